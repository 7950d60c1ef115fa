<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES" sourcelanguage="en">
<context>
    <name>CKbdSpecSelector</name>
    <message>
        <source>&lt;Custom&gt;</source>
        <translation>&lt;Personalizada&gt;</translation>
    </message>
    <message>
        <source>Arabic</source>
        <translation>Árabe</translation>
    </message>
    <message>
        <source>Arabic, AZERTY</source>
        <translation>Árabe, AZERTY</translation>
    </message>
    <message>
        <source>Asturian</source>
        <translation>Asturiano</translation>
    </message>
    <message>
        <source>Bengali, India</source>
        <translation>Bengalí, India</translation>
    </message>
    <message>
        <source>%1, 105 keys</source>
        <translation>%1, 105 teclas</translation>
    </message>
    <message>
        <source>Berber, Latin</source>
        <translation>Bereber, alfabeto latino</translation>
    </message>
    <message>
        <source>Berber, Tifinagh</source>
        <translation>Bereber, tifinagh</translation>
    </message>
    <message>
        <source>Braille</source>
        <translation>Braille</translation>
    </message>
    <message>
        <source>Breton</source>
        <translation>Bretón</translation>
    </message>
    <message>
        <source>Catalan</source>
        <translation>Catalán</translation>
    </message>
    <message>
        <source>Esperanto</source>
        <translation>Esperanto</translation>
    </message>
    <message>
        <source>Gujarati</source>
        <translation>Guyaratí</translation>
    </message>
    <message>
        <source>Hindi, Bolnagri</source>
        <translation>Hindi, Bolnagri</translation>
    </message>
    <message>
        <source>Hindi, InScript</source>
        <translation>Hindi, InScript</translation>
    </message>
    <message>
        <source>Hindi, phonetic</source>
        <translation>Hindi, fonético</translation>
    </message>
    <message>
        <source>Hindi, WX</source>
        <translation>Hindi, WX</translation>
    </message>
    <message>
        <source>Inuktitut</source>
        <translation>Inuktitut</translation>
    </message>
    <message>
        <source>Javanese</source>
        <translation>Javanés</translation>
    </message>
    <message>
        <source>Kannada</source>
        <translation>Canarés</translation>
    </message>
    <message>
        <source>Kurdish, Arabic script</source>
        <translation>Kurdo, alfabeto árabe</translation>
    </message>
    <message>
        <source>Kurdish, Latin script</source>
        <translation>Kurdo, alfabeto latino</translation>
    </message>
    <message>
        <source>Latin America</source>
        <translation>América Latina</translation>
    </message>
    <message>
        <source>Malayalam</source>
        <translation>Malayalam</translation>
    </message>
    <message>
        <source>Maori</source>
        <translation>Maorí</translation>
    </message>
    <message>
        <source>Marathi</source>
        <translation>Maratí</translation>
    </message>
    <message>
        <source>N&apos;Ko</source>
        <translation>N&apos;Ko</translation>
    </message>
    <message>
        <source>Northern Sami</source>
        <translation>Sami del norte</translation>
    </message>
    <message>
        <source>Occitan</source>
        <translation>Occitano</translation>
    </message>
    <message>
        <source>Odia</source>
        <translation>Oriya</translation>
    </message>
    <message>
        <source>Pashto</source>
        <translation>Pashto</translation>
    </message>
    <message>
        <source>Punjabi</source>
        <translation>Panyabí</translation>
    </message>
    <message>
        <source>Scottish Gaelic</source>
        <translation>Gaélico escocés</translation>
    </message>
    <message>
        <source>Tamil, India</source>
        <translation>Tamil, India</translation>
    </message>
    <message>
        <source>Tamil, Sri Lanka</source>
        <translation>Tamil, Sri Lanka</translation>
    </message>
    <message>
        <source>Tatar</source>
        <translation>Tártaro</translation>
    </message>
    <message>
        <source>Telugu</source>
        <translation>Telugu</translation>
    </message>
    <message>
        <source>Tibetan</source>
        <translation>Tibetano</translation>
    </message>
    <message>
        <source>Urdu, India</source>
        <translation>Urdu, India</translation>
    </message>
    <message>
        <source>Uyghur</source>
        <translation>Uigur</translation>
    </message>
    <message>
        <source>Arabic, with US English</source>
        <translation>Árabe, con inglés (EE. UU.)</translation>
    </message>
    <message>
        <source>Bulgaria, with US English</source>
        <translation>Bulgaria, con inglés (EE. UU.)</translation>
    </message>
    <message>
        <source>Greece, with US English</source>
        <translation>Grecia, con inglés (EE. UU.)</translation>
    </message>
    <message>
        <source>Iran, with US English</source>
        <translation>Irán, con inglés (EE. UU.)</translation>
    </message>
    <message>
        <source>Israel, with US English</source>
        <translation>Israel, con inglés (EE. UU.)</translation>
    </message>
    <message>
        <source>Russia, with US English</source>
        <translation>Rusia, con inglés (EE. UU.)</translation>
    </message>
    <message>
        <source>Thailand, with US English</source>
        <translation>Tailandia, con inglés (EE. UU.)</translation>
    </message>
    <message>
        <source>Ukraine, with US English</source>
        <translation>Ucrania, con inglés (EE. UU.)</translation>
    </message>
    <message>
        <source>Afghanistan</source>
        <translation>Afganistán</translation>
    </message>
    <message>
        <source>Albania</source>
        <translation>Albania</translation>
    </message>
    <message>
        <source>Algeria</source>
        <translation>Argelia</translation>
    </message>
    <message>
        <source>Armenia</source>
        <translation>Armenia</translation>
    </message>
    <message>
        <source>Australia</source>
        <translation>Australia</translation>
    </message>
    <message>
        <source>Austria</source>
        <translation>Austria</translation>
    </message>
    <message>
        <source>Azerbaijan</source>
        <translation>Azerbaiyán</translation>
    </message>
    <message>
        <source>Bangladesh</source>
        <translation>Bangladés</translation>
    </message>
    <message>
        <source>Bangladesh, Probhat</source>
        <translation>Bangladés, Probhat</translation>
    </message>
    <message>
        <source>Belarus</source>
        <translation>Bielorrusia</translation>
    </message>
    <message>
        <source>Belgium</source>
        <translation>Bélgica</translation>
    </message>
    <message>
        <source>Bhutan</source>
        <translation>Bután</translation>
    </message>
    <message>
        <source>Bosnia and Herzegovina</source>
        <translation>Bosnia y Herzegovina</translation>
    </message>
    <message>
        <source>Botswana</source>
        <translation>Botsuana</translation>
    </message>
    <message>
        <source>Brazil</source>
        <translation>Brasil</translation>
    </message>
    <message>
        <source>Bulgaria</source>
        <translation>Bulgaria</translation>
    </message>
    <message>
        <source>Bulgaria, phonetic</source>
        <translation>Bulgaria, fonética</translation>
    </message>
    <message>
        <source>Cambodia</source>
        <translation>Camboya</translation>
    </message>
    <message>
        <source>Cameroon</source>
        <translation>Camerún</translation>
    </message>
    <message>
        <source>Canada, English</source>
        <translation>Canadá, inglés</translation>
    </message>
    <message>
        <source>Canada, French</source>
        <translation>Canadá, francés</translation>
    </message>
    <message>
        <source>Canada, multilingual</source>
        <translation>Canadá, multilingüe</translation>
    </message>
    <message>
        <source>China</source>
        <translation>China</translation>
    </message>
    <message>
        <source>Croatia</source>
        <translation>Croacia</translation>
    </message>
    <message>
        <source>Czechia</source>
        <translation>Chequia</translation>
    </message>
    <message>
        <source>Czechia, QWERTY</source>
        <translation>Chequia, QWERTY</translation>
    </message>
    <message>
        <source>Denmark</source>
        <translation>Dinamarca</translation>
    </message>
    <message>
        <source>Denmark, no dead keys</source>
        <translation>Dinamarca, sin teclas muertas</translation>
    </message>
    <message>
        <source>DR Congo</source>
        <translation>RD Congo</translation>
    </message>
    <message>
        <source>Egypt</source>
        <translation>Egipto</translation>
    </message>
    <message>
        <source>Estonia</source>
        <translation>Estonia</translation>
    </message>
    <message>
        <source>Ethiopia</source>
        <translation>Etiopía</translation>
    </message>
    <message>
        <source>Faroe Islands</source>
        <translation>Islas Feroe</translation>
    </message>
    <message>
        <source>Finland</source>
        <translation>Finlandia</translation>
    </message>
    <message>
        <source>France</source>
        <translation>Francia</translation>
    </message>
    <message>
        <source>France, alternative</source>
        <translation>Francia, alternativa</translation>
    </message>
    <message>
        <source>France, AZERTY</source>
        <translation>Francia, AZERTY</translation>
    </message>
    <message>
        <source>France, BÉPO</source>
        <translation>Francia, BÉPO</translation>
    </message>
    <message>
        <source>France, no dead keys</source>
        <translation>Francia, sin teclas muertas</translation>
    </message>
    <message>
        <source>Georgia</source>
        <translation>Georgia</translation>
    </message>
    <message>
        <source>Germany</source>
        <translation>Alemania</translation>
    </message>
    <message>
        <source>Germany, Neo 2</source>
        <translation>Alemania, Neo 2</translation>
    </message>
    <message>
        <source>Germany, no dead keys</source>
        <translation>Alemania, sin teclas muertas</translation>
    </message>
    <message>
        <source>Ghana</source>
        <translation>Ghana</translation>
    </message>
    <message>
        <source>Greece</source>
        <translation>Grecia</translation>
    </message>
    <message>
        <source>Greece, polytonic</source>
        <translation>Grecia, politónica</translation>
    </message>
    <message>
        <source>Hungary</source>
        <translation>Hungría</translation>
    </message>
    <message>
        <source>Iceland</source>
        <translation>Islandia</translation>
    </message>
    <message>
        <source>India, English</source>
        <translation>India, inglés</translation>
    </message>
    <message>
        <source>Indonesia</source>
        <translation>Indonesia</translation>
    </message>
    <message>
        <source>Iran</source>
        <translation>Irán</translation>
    </message>
    <message>
        <source>Iraq</source>
        <translation>Irak</translation>
    </message>
    <message>
        <source>Ireland</source>
        <translation>Irlanda</translation>
    </message>
    <message>
        <source>Israel</source>
        <translation>Israel</translation>
    </message>
    <message>
        <source>Italy</source>
        <translation>Italia</translation>
    </message>
    <message>
        <source>Japan</source>
        <translation>Japón</translation>
    </message>
    <message>
        <source>Kazakhstan</source>
        <translation>Kazajistán</translation>
    </message>
    <message>
        <source>Kenya</source>
        <translation>Kenia</translation>
    </message>
    <message>
        <source>Korea</source>
        <translation>Corea</translation>
    </message>
    <message>
        <source>Korea, 104 keys</source>
        <translation>Corea, 104 teclas</translation>
    </message>
    <message>
        <source>Kyrgyzstan</source>
        <translation>Kirguistán</translation>
    </message>
    <message>
        <source>Laos</source>
        <translation>Laos</translation>
    </message>
    <message>
        <source>Latvia</source>
        <translation>Letonia</translation>
    </message>
    <message>
        <source>Latvia, apostrophe</source>
        <translation>Letonia, apóstrofo</translation>
    </message>
    <message>
        <source>Lithuania</source>
        <translation>Lituania</translation>
    </message>
    <message>
        <source>Malaysia, Jawi</source>
        <translation>Malasia, jawi</translation>
    </message>
    <message>
        <source>Mali</source>
        <translation>Malí</translation>
    </message>
    <message>
        <source>Malta</source>
        <translation>Malta</translation>
    </message>
    <message>
        <source>Moldova</source>
        <translation>Moldavia</translation>
    </message>
    <message>
        <source>Mongolia</source>
        <translation>Mongolia</translation>
    </message>
    <message>
        <source>Montenegro</source>
        <translation>Montenegro</translation>
    </message>
    <message>
        <source>Morocco</source>
        <translation>Marruecos</translation>
    </message>
    <message>
        <source>Morocco, French</source>
        <translation>Marruecos, francés</translation>
    </message>
    <message>
        <source>Myanmar</source>
        <translation>Birmania</translation>
    </message>
    <message>
        <source>Nepal</source>
        <translation>Nepal</translation>
    </message>
    <message>
        <source>Netherlands</source>
        <translation>Países Bajos</translation>
    </message>
    <message>
        <source>New Zealand</source>
        <translation>Nueva Zelanda</translation>
    </message>
    <message>
        <source>Nigeria</source>
        <translation>Nigeria</translation>
    </message>
    <message>
        <source>North Macedonia</source>
        <translation>Macedonia del Norte</translation>
    </message>
    <message>
        <source>Norway</source>
        <translation>Noruega</translation>
    </message>
    <message>
        <source>Norway, no dead keys</source>
        <translation>Noruega, sin teclas muertas</translation>
    </message>
    <message>
        <source>Pakistan</source>
        <translation>Pakistán</translation>
    </message>
    <message>
        <source>Philippines</source>
        <translation>Filipinas</translation>
    </message>
    <message>
        <source>Poland</source>
        <translation>Polonia</translation>
    </message>
    <message>
        <source>Portugal</source>
        <translation>Portugal</translation>
    </message>
    <message>
        <source>Romania</source>
        <translation>Rumanía</translation>
    </message>
    <message>
        <source>Romania, standard</source>
        <translation>Rumanía, estándar</translation>
    </message>
    <message>
        <source>Russia</source>
        <translation>Rusia</translation>
    </message>
    <message>
        <source>Russia, phonetic</source>
        <translation>Rusia, fonética</translation>
    </message>
    <message>
        <source>Senegal</source>
        <translation>Senegal</translation>
    </message>
    <message>
        <source>Serbia</source>
        <translation>Serbia</translation>
    </message>
    <message>
        <source>Serbia, Latin</source>
        <translation>Serbia, alfabeto latino</translation>
    </message>
    <message>
        <source>Slovakia</source>
        <translation>Eslovaquia</translation>
    </message>
    <message>
        <source>Slovakia, QWERTY</source>
        <translation>Eslovaquia, QWERTY</translation>
    </message>
    <message>
        <source>Slovenia</source>
        <translation>Eslovenia</translation>
    </message>
    <message>
        <source>South Africa</source>
        <translation>Sudáfrica</translation>
    </message>
    <message>
        <source>Spain</source>
        <translation>España</translation>
    </message>
    <message>
        <source>Spain, no dead keys</source>
        <translation>España, sin teclas muertas</translation>
    </message>
    <message>
        <source>Sri Lanka</source>
        <translation>Sri Lanka</translation>
    </message>
    <message>
        <source>Sweden</source>
        <translation>Suecia</translation>
    </message>
    <message>
        <source>Sweden, no dead keys</source>
        <translation>Suecia, sin teclas muertas</translation>
    </message>
    <message>
        <source>Switzerland, French</source>
        <translation>Suiza, francés</translation>
    </message>
    <message>
        <source>Switzerland, German</source>
        <translation>Suiza, alemán</translation>
    </message>
    <message>
        <source>Switzerland, German, no dead keys</source>
        <translation>Suiza, alemán, sin teclas muertas</translation>
    </message>
    <message>
        <source>Syria</source>
        <translation>Siria</translation>
    </message>
    <message>
        <source>Taiwan</source>
        <translation>Taiwán</translation>
    </message>
    <message>
        <source>Tajikistan</source>
        <translation>Tayikistán</translation>
    </message>
    <message>
        <source>Tanzania</source>
        <translation>Tanzania</translation>
    </message>
    <message>
        <source>Thailand</source>
        <translation>Tailandia</translation>
    </message>
    <message>
        <source>Togo</source>
        <translation>Togo</translation>
    </message>
    <message>
        <source>Turkey</source>
        <translation>Turquía</translation>
    </message>
    <message>
        <source>Turkey, F</source>
        <translation>Turquía, F</translation>
    </message>
    <message>
        <source>Turkmenistan</source>
        <translation>Turkmenistán</translation>
    </message>
    <message>
        <source>Ukraine</source>
        <translation>Ucrania</translation>
    </message>
    <message>
        <source>United Kingdom</source>
        <translation>Reino Unido</translation>
    </message>
    <message>
        <source>United Kingdom, Dvorak</source>
        <translation>Reino Unido, Dvorak</translation>
    </message>
    <message>
        <source>United Kingdom, extended</source>
        <translation>Reino Unido, extendida</translation>
    </message>
    <message>
        <source>United States</source>
        <translation>Estados Unidos</translation>
    </message>
    <message>
        <source>United States, Colemak</source>
        <translation>Estados Unidos, Colemak</translation>
    </message>
    <message>
        <source>United States, Dvorak</source>
        <translation>Estados Unidos, Dvorak</translation>
    </message>
    <message>
        <source>United States, international</source>
        <translation>Estados Unidos, internacional</translation>
    </message>
    <message>
        <source>United States, international, with AltGr</source>
        <translation>Estados Unidos, internacional, con AltGr</translation>
    </message>
    <message>
        <source>Uzbekistan</source>
        <translation>Uzbekistán</translation>
    </message>
    <message>
        <source>Uzbekistan, Latin</source>
        <translation>Uzbekistán, alfabeto latino</translation>
    </message>
    <message>
        <source>Vietnam</source>
        <translation>Vietnam</translation>
    </message>
</context>
<context>
    <name>GroupCombo</name>
    <message>
        <source>Group: </source>
        <translation>Grupo: </translation>
    </message>
</context>
<context>
    <name>KbdAccessible</name>
    <message>
        <source>Keyboard</source>
        <translation>Teclado</translation>
    </message>
</context>
<context>
    <name>KbdApp</name>
    <message>
        <source>Arvane Virtual Keyboard</source>
        <translation>Teclado virtual Arvane</translation>
    </message>
    <message>
        <source>Arvane Trial Keyboard</source>
        <translation>Teclado de prueba Arvane</translation>
    </message>
</context>
<context>
    <name>KbdGeometry</name>
    <message>
        <source>Model:  %1</source>
        <translation>Modelo:  %1</translation>
    </message>
    <message>
        <source>Layout:  %1</source>
        <translation>Distribución:  %1</translation>
    </message>
    <message>
        <source>Variant:  %1</source>
        <translation>Variante:  %1</translation>
    </message>
    <message>
        <source>Options:  %1</source>
        <translation>Opciones:  %1</translation>
    </message>
</context>
<context>
    <name>KbdKey</name>
    <message>
        <source>Details about this key:</source>
        <translation>Detalles de esta tecla:</translation>
    </message>
    <message>
        <source>X11 Identity:  Name=&apos;%1&apos;, Code=0x%2</source>
        <translation>Identidad X11:  Nombre=&apos;%1&apos;, Código=0x%2</translation>
    </message>
    <message>
        <source>Key symbol table:</source>
        <translation>Tabla de símbolos de la tecla:</translation>
    </message>
    <message>
        <source>
   symbol[%1,%2]=0x%3=%4=%5</source>
        <translation>
   símbolo[%1,%2]=0x%3=%4=%5</translation>
    </message>
    <message>
        <source>
Modifier %1=0x%2</source>
        <translation>
Modificador %1=0x%2</translation>
    </message>
    <message>
        <source>
Lock Modifier %1=0x%2</source>
        <translation>
Modificador de bloqueo %1=0x%2</translation>
    </message>
</context>
<context>
    <name>KeyAccessible</name>
    <message>
        <source>with Shift: %1</source>
        <translation>con Mayúsculas: %1</translation>
    </message>
    <message>
        <source>key %1</source>
        <translation>tecla %1</translation>
    </message>
</context>
<context>
    <name>KeycapCombo</name>
    <message>
        <source>Keycap Display: </source>
        <translation>Rótulos de las teclas: </translation>
    </message>
    <message>
        <source>Active Character Only</source>
        <translation>Solo carácter activo</translation>
    </message>
    <message>
        <source>Multiple Characters</source>
        <translation>Varios caracteres</translation>
    </message>
    <message>
        <source>Keycap display mode</source>
        <translation>Modo de rotulación de las teclas</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Layout: </source>
        <translation>Distribución: </translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Imprimir</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>SpokenName</name>
    <message>
        <source>Space</source>
        <translation>Espacio</translation>
    </message>
    <message>
        <source>no-break space</source>
        <translation>espacio de no separación</translation>
    </message>
    <message>
        <source>soft hyphen</source>
        <translation>guion opcional</translation>
    </message>
    <message>
        <source>double arrow left and right</source>
        <translation>flecha doble hacia la izquierda y la derecha</translation>
    </message>
    <message>
        <source>double arrow right</source>
        <translation>flecha doble hacia la derecha</translation>
    </message>
    <message>
        <source>arrow left</source>
        <translation>flecha hacia la izquierda</translation>
    </message>
    <message>
        <source>arrow up</source>
        <translation>flecha hacia arriba</translation>
    </message>
    <message>
        <source>arrow right</source>
        <translation>flecha hacia la derecha</translation>
    </message>
    <message>
        <source>arrow down</source>
        <translation>flecha hacia abajo</translation>
    </message>
    <message>
        <source>Alt Gr</source>
        <translation>Alt Gr</translation>
    </message>
    <message>
        <source>next layout</source>
        <translation>distribución siguiente</translation>
    </message>
    <message>
        <source>previous layout</source>
        <translation>distribución anterior</translation>
    </message>
    <message>
        <source>Back Tab</source>
        <translation>Tabulador inverso</translation>
    </message>
    <message>
        <source>dead grave</source>
        <translation>tecla muerta: acento grave</translation>
    </message>
    <message>
        <source>dead acute</source>
        <translation>tecla muerta: acento agudo</translation>
    </message>
    <message>
        <source>dead circumflex</source>
        <translation>tecla muerta: acento circunflejo</translation>
    </message>
    <message>
        <source>dead tilde</source>
        <translation>tecla muerta: virgulilla</translation>
    </message>
    <message>
        <source>dead macron</source>
        <translation>tecla muerta: macrón</translation>
    </message>
    <message>
        <source>dead breve</source>
        <translation>tecla muerta: breve</translation>
    </message>
    <message>
        <source>dead dot above</source>
        <translation>tecla muerta: punto superior</translation>
    </message>
    <message>
        <source>dead diaeresis</source>
        <translation>tecla muerta: diéresis</translation>
    </message>
    <message>
        <source>dead ring above</source>
        <translation>tecla muerta: anillo superior</translation>
    </message>
    <message>
        <source>dead double acute</source>
        <translation>tecla muerta: doble acento agudo</translation>
    </message>
    <message>
        <source>dead caron</source>
        <translation>tecla muerta: carón</translation>
    </message>
    <message>
        <source>dead cedilla</source>
        <translation>tecla muerta: cedilla</translation>
    </message>
    <message>
        <source>dead ogonek</source>
        <translation>tecla muerta: ogonek</translation>
    </message>
    <message>
        <source>dead iota</source>
        <translation>tecla muerta: iota</translation>
    </message>
    <message>
        <source>dead voiced sound mark</source>
        <translation>tecla muerta: dakuten</translation>
    </message>
    <message>
        <source>dead semi-voiced sound mark</source>
        <translation>tecla muerta: handakuten</translation>
    </message>
    <message>
        <source>dead dot below</source>
        <translation>tecla muerta: punto inferior</translation>
    </message>
    <message>
        <source>dead hook</source>
        <translation>tecla muerta: gancho</translation>
    </message>
    <message>
        <source>dead horn</source>
        <translation>tecla muerta: cuerno</translation>
    </message>
    <message>
        <source>dead stroke</source>
        <translation>tecla muerta: barra</translation>
    </message>
    <message>
        <source>dead comma above</source>
        <translation>tecla muerta: coma superior</translation>
    </message>
    <message>
        <source>dead reversed comma above</source>
        <translation>tecla muerta: coma superior invertida</translation>
    </message>
    <message>
        <source>dead double grave</source>
        <translation>tecla muerta: doble acento grave</translation>
    </message>
    <message>
        <source>dead ring below</source>
        <translation>tecla muerta: anillo inferior</translation>
    </message>
    <message>
        <source>dead macron below</source>
        <translation>tecla muerta: macrón inferior</translation>
    </message>
    <message>
        <source>dead circumflex below</source>
        <translation>tecla muerta: acento circunflejo inferior</translation>
    </message>
    <message>
        <source>dead tilde below</source>
        <translation>tecla muerta: virgulilla inferior</translation>
    </message>
    <message>
        <source>dead breve below</source>
        <translation>tecla muerta: breve inferior</translation>
    </message>
    <message>
        <source>dead diaeresis below</source>
        <translation>tecla muerta: diéresis inferior</translation>
    </message>
    <message>
        <source>dead inverted breve</source>
        <translation>tecla muerta: breve invertida</translation>
    </message>
    <message>
        <source>dead comma below</source>
        <translation>tecla muerta: coma inferior</translation>
    </message>
    <message>
        <source>dead currency sign</source>
        <translation>tecla muerta: símbolo de moneda</translation>
    </message>
    <message>
        <source>dead Greek</source>
        <translation>tecla muerta: letra griega</translation>
    </message>
    <message>
        <source>dead hamza</source>
        <translation>tecla muerta: hamza</translation>
    </message>
    <message>
        <source>dead low line</source>
        <translation>tecla muerta: guion bajo</translation>
    </message>
    <message>
        <source>dead vertical line above</source>
        <translation>tecla muerta: línea vertical superior</translation>
    </message>
    <message>
        <source>dead vertical line below</source>
        <translation>tecla muerta: línea vertical inferior</translation>
    </message>
    <message>
        <source>dead long solidus</source>
        <translation>tecla muerta: barra oblicua larga</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Retroceso</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tabulador</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Retorno</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausa</translation>
    </message>
    <message>
        <source>Scroll Lock</source>
        <translation>Bloqueo de desplazamiento</translation>
    </message>
    <message>
        <source>System Request</source>
        <translation>Petición del sistema</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Escape</translation>
    </message>
    <message>
        <source>Compose</source>
        <translation>Componer</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Inicio</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Izquierda</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Arriba</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Derecha</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Abajo</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Retroceder página</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Avanzar página</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Fin</translation>
    </message>
    <message>
        <source>Print Screen</source>
        <translation>Imprimir pantalla</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Insertar</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menú</translation>
    </message>
    <message>
        <source>Break</source>
        <translation>Interrumpir</translation>
    </message>
    <message>
        <source>Num Lock</source>
        <translation>Bloqueo numérico</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Intro</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>Principio</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Suprimir</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Mayúsculas</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Control</translation>
    </message>
    <message>
        <source>Caps Lock</source>
        <translation>Bloqueo de mayúsculas</translation>
    </message>
    <message>
        <source>Shift Lock</source>
        <translation>Bloqueo de la tecla Mayúsculas</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>zero-width non-joiner</source>
        <translation>carácter de no unión de ancho cero</translation>
    </message>
    <message>
        <source>zero-width joiner</source>
        <translation>carácter de unión de ancho cero</translation>
    </message>
    <message>
        <source>left-to-right mark</source>
        <translation>marca de izquierda a derecha</translation>
    </message>
    <message>
        <source>right-to-left mark</source>
        <translation>marca de derecha a izquierda</translation>
    </message>
    <message>
        <source>narrow no-break space</source>
        <translation>espacio estrecho de no separación</translation>
    </message>
    <message>
        <source>blank</source>
        <translation>vacía</translation>
    </message>
</context>
<context>
    <name>TypingArea</name>
    <message>
        <source>Sample Text Area</source>
        <translation>Área de texto de prueba</translation>
    </message>
</context>
</TS>
