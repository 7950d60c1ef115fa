<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>CKbdSpecSelector</name>
    <message>
        <source>&lt;Custom&gt;</source>
        <translation>&lt;Benutzerdefiniert&gt;</translation>
    </message>
    <message>
        <source>Arabic</source>
        <translation>Arabisch</translation>
    </message>
    <message>
        <source>Arabic, AZERTY</source>
        <translation>Arabisch, AZERTY</translation>
    </message>
    <message>
        <source>Asturian</source>
        <translation>Asturisch</translation>
    </message>
    <message>
        <source>Bengali, India</source>
        <translation>Bengalisch, Indien</translation>
    </message>
    <message>
        <source>%1, 105 keys</source>
        <translation>%1, 105 Tasten</translation>
    </message>
    <message>
        <source>Berber, Latin</source>
        <translation>Berberisch, lateinische Schrift</translation>
    </message>
    <message>
        <source>Berber, Tifinagh</source>
        <translation>Berberisch, Tifinagh</translation>
    </message>
    <message>
        <source>Braille</source>
        <translation>Braille</translation>
    </message>
    <message>
        <source>Breton</source>
        <translation>Bretonisch</translation>
    </message>
    <message>
        <source>Catalan</source>
        <translation>Katalanisch</translation>
    </message>
    <message>
        <source>Esperanto</source>
        <translation>Esperanto</translation>
    </message>
    <message>
        <source>Gujarati</source>
        <translation>Gujarati</translation>
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
        <translation>Hindi, phonetisch</translation>
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
        <translation>Javanisch</translation>
    </message>
    <message>
        <source>Kannada</source>
        <translation>Kannada</translation>
    </message>
    <message>
        <source>Kurdish, Arabic script</source>
        <translation>Kurdisch, arabische Schrift</translation>
    </message>
    <message>
        <source>Kurdish, Latin script</source>
        <translation>Kurdisch, lateinische Schrift</translation>
    </message>
    <message>
        <source>Latin America</source>
        <translation>Lateinamerika</translation>
    </message>
    <message>
        <source>Malayalam</source>
        <translation>Malayalam</translation>
    </message>
    <message>
        <source>Maori</source>
        <translation>Maori</translation>
    </message>
    <message>
        <source>Marathi</source>
        <translation>Marathi</translation>
    </message>
    <message>
        <source>N&apos;Ko</source>
        <translation>N&apos;Ko</translation>
    </message>
    <message>
        <source>Northern Sami</source>
        <translation>Nordsamisch</translation>
    </message>
    <message>
        <source>Occitan</source>
        <translation>Okzitanisch</translation>
    </message>
    <message>
        <source>Odia</source>
        <translation>Odia</translation>
    </message>
    <message>
        <source>Pashto</source>
        <translation>Paschtunisch</translation>
    </message>
    <message>
        <source>Punjabi</source>
        <translation>Punjabi</translation>
    </message>
    <message>
        <source>Scottish Gaelic</source>
        <translation>Schottisches Gälisch</translation>
    </message>
    <message>
        <source>Tamil, India</source>
        <translation>Tamilisch, Indien</translation>
    </message>
    <message>
        <source>Tamil, Sri Lanka</source>
        <translation>Tamilisch, Sri Lanka</translation>
    </message>
    <message>
        <source>Tatar</source>
        <translation>Tatarisch</translation>
    </message>
    <message>
        <source>Telugu</source>
        <translation>Telugu</translation>
    </message>
    <message>
        <source>Tibetan</source>
        <translation>Tibetisch</translation>
    </message>
    <message>
        <source>Urdu, India</source>
        <translation>Urdu, Indien</translation>
    </message>
    <message>
        <source>Uyghur</source>
        <translation>Uigurisch</translation>
    </message>
    <message>
        <source>Arabic, with US English</source>
        <translation>Arabisch, mit Englisch (USA)</translation>
    </message>
    <message>
        <source>Bulgaria, with US English</source>
        <translation>Bulgarien, mit Englisch (USA)</translation>
    </message>
    <message>
        <source>Greece, with US English</source>
        <translation>Griechenland, mit Englisch (USA)</translation>
    </message>
    <message>
        <source>Iran, with US English</source>
        <translation>Iran, mit Englisch (USA)</translation>
    </message>
    <message>
        <source>Israel, with US English</source>
        <translation>Israel, mit Englisch (USA)</translation>
    </message>
    <message>
        <source>Russia, with US English</source>
        <translation>Russland, mit Englisch (USA)</translation>
    </message>
    <message>
        <source>Thailand, with US English</source>
        <translation>Thailand, mit Englisch (USA)</translation>
    </message>
    <message>
        <source>Ukraine, with US English</source>
        <translation>Ukraine, mit Englisch (USA)</translation>
    </message>
    <message>
        <source>Afghanistan</source>
        <translation>Afghanistan</translation>
    </message>
    <message>
        <source>Albania</source>
        <translation>Albanien</translation>
    </message>
    <message>
        <source>Algeria</source>
        <translation>Algerien</translation>
    </message>
    <message>
        <source>Armenia</source>
        <translation>Armenien</translation>
    </message>
    <message>
        <source>Australia</source>
        <translation>Australien</translation>
    </message>
    <message>
        <source>Austria</source>
        <translation>Österreich</translation>
    </message>
    <message>
        <source>Azerbaijan</source>
        <translation>Aserbaidschan</translation>
    </message>
    <message>
        <source>Bangladesh</source>
        <translation>Bangladesch</translation>
    </message>
    <message>
        <source>Bangladesh, Probhat</source>
        <translation>Bangladesch, Probhat</translation>
    </message>
    <message>
        <source>Belarus</source>
        <translation>Belarus</translation>
    </message>
    <message>
        <source>Belgium</source>
        <translation>Belgien</translation>
    </message>
    <message>
        <source>Bhutan</source>
        <translation>Bhutan</translation>
    </message>
    <message>
        <source>Bosnia and Herzegovina</source>
        <translation>Bosnien und Herzegowina</translation>
    </message>
    <message>
        <source>Botswana</source>
        <translation>Botsuana</translation>
    </message>
    <message>
        <source>Brazil</source>
        <translation>Brasilien</translation>
    </message>
    <message>
        <source>Bulgaria</source>
        <translation>Bulgarien</translation>
    </message>
    <message>
        <source>Bulgaria, phonetic</source>
        <translation>Bulgarien, phonetisch</translation>
    </message>
    <message>
        <source>Cambodia</source>
        <translation>Kambodscha</translation>
    </message>
    <message>
        <source>Cameroon</source>
        <translation>Kamerun</translation>
    </message>
    <message>
        <source>Canada, English</source>
        <translation>Kanada, Englisch</translation>
    </message>
    <message>
        <source>Canada, French</source>
        <translation>Kanada, Französisch</translation>
    </message>
    <message>
        <source>Canada, multilingual</source>
        <translation>Kanada, mehrsprachig</translation>
    </message>
    <message>
        <source>China</source>
        <translation>China</translation>
    </message>
    <message>
        <source>Croatia</source>
        <translation>Kroatien</translation>
    </message>
    <message>
        <source>Czechia</source>
        <translation>Tschechien</translation>
    </message>
    <message>
        <source>Czechia, QWERTY</source>
        <translation>Tschechien, QWERTY</translation>
    </message>
    <message>
        <source>Denmark</source>
        <translation>Dänemark</translation>
    </message>
    <message>
        <source>Denmark, no dead keys</source>
        <translation>Dänemark, ohne Akzenttasten</translation>
    </message>
    <message>
        <source>DR Congo</source>
        <translation>DR Kongo</translation>
    </message>
    <message>
        <source>Egypt</source>
        <translation>Ägypten</translation>
    </message>
    <message>
        <source>Estonia</source>
        <translation>Estland</translation>
    </message>
    <message>
        <source>Ethiopia</source>
        <translation>Äthiopien</translation>
    </message>
    <message>
        <source>Faroe Islands</source>
        <translation>Färöer</translation>
    </message>
    <message>
        <source>Finland</source>
        <translation>Finnland</translation>
    </message>
    <message>
        <source>France</source>
        <translation>Frankreich</translation>
    </message>
    <message>
        <source>France, alternative</source>
        <translation>Frankreich, alternativ</translation>
    </message>
    <message>
        <source>France, AZERTY</source>
        <translation>Frankreich, AZERTY</translation>
    </message>
    <message>
        <source>France, BÉPO</source>
        <translation>Frankreich, BÉPO</translation>
    </message>
    <message>
        <source>France, no dead keys</source>
        <translation>Frankreich, ohne Akzenttasten</translation>
    </message>
    <message>
        <source>Georgia</source>
        <translation>Georgien</translation>
    </message>
    <message>
        <source>Germany</source>
        <translation>Deutschland</translation>
    </message>
    <message>
        <source>Germany, Neo 2</source>
        <translation>Deutschland, Neo 2</translation>
    </message>
    <message>
        <source>Germany, no dead keys</source>
        <translation>Deutschland, ohne Akzenttasten</translation>
    </message>
    <message>
        <source>Ghana</source>
        <translation>Ghana</translation>
    </message>
    <message>
        <source>Greece</source>
        <translation>Griechenland</translation>
    </message>
    <message>
        <source>Greece, polytonic</source>
        <translation>Griechenland, polytonisch</translation>
    </message>
    <message>
        <source>Hungary</source>
        <translation>Ungarn</translation>
    </message>
    <message>
        <source>Iceland</source>
        <translation>Island</translation>
    </message>
    <message>
        <source>India, English</source>
        <translation>Indien, Englisch</translation>
    </message>
    <message>
        <source>Indonesia</source>
        <translation>Indonesien</translation>
    </message>
    <message>
        <source>Iran</source>
        <translation>Iran</translation>
    </message>
    <message>
        <source>Iraq</source>
        <translation>Irak</translation>
    </message>
    <message>
        <source>Ireland</source>
        <translation>Irland</translation>
    </message>
    <message>
        <source>Israel</source>
        <translation>Israel</translation>
    </message>
    <message>
        <source>Italy</source>
        <translation>Italien</translation>
    </message>
    <message>
        <source>Japan</source>
        <translation>Japan</translation>
    </message>
    <message>
        <source>Kazakhstan</source>
        <translation>Kasachstan</translation>
    </message>
    <message>
        <source>Kenya</source>
        <translation>Kenia</translation>
    </message>
    <message>
        <source>Korea</source>
        <translation>Korea</translation>
    </message>
    <message>
        <source>Korea, 104 keys</source>
        <translation>Korea, 104 Tasten</translation>
    </message>
    <message>
        <source>Kyrgyzstan</source>
        <translation>Kirgisistan</translation>
    </message>
    <message>
        <source>Laos</source>
        <translation>Laos</translation>
    </message>
    <message>
        <source>Latvia</source>
        <translation>Lettland</translation>
    </message>
    <message>
        <source>Latvia, apostrophe</source>
        <translation>Lettland, Apostroph</translation>
    </message>
    <message>
        <source>Lithuania</source>
        <translation>Litauen</translation>
    </message>
    <message>
        <source>Malaysia, Jawi</source>
        <translation>Malaysia, Jawi</translation>
    </message>
    <message>
        <source>Mali</source>
        <translation>Mali</translation>
    </message>
    <message>
        <source>Malta</source>
        <translation>Malta</translation>
    </message>
    <message>
        <source>Moldova</source>
        <translation>Moldau</translation>
    </message>
    <message>
        <source>Mongolia</source>
        <translation>Mongolei</translation>
    </message>
    <message>
        <source>Montenegro</source>
        <translation>Montenegro</translation>
    </message>
    <message>
        <source>Morocco</source>
        <translation>Marokko</translation>
    </message>
    <message>
        <source>Morocco, French</source>
        <translation>Marokko, Französisch</translation>
    </message>
    <message>
        <source>Myanmar</source>
        <translation>Myanmar</translation>
    </message>
    <message>
        <source>Nepal</source>
        <translation>Nepal</translation>
    </message>
    <message>
        <source>Netherlands</source>
        <translation>Niederlande</translation>
    </message>
    <message>
        <source>New Zealand</source>
        <translation>Neuseeland</translation>
    </message>
    <message>
        <source>Nigeria</source>
        <translation>Nigeria</translation>
    </message>
    <message>
        <source>North Macedonia</source>
        <translation>Nordmazedonien</translation>
    </message>
    <message>
        <source>Norway</source>
        <translation>Norwegen</translation>
    </message>
    <message>
        <source>Norway, no dead keys</source>
        <translation>Norwegen, ohne Akzenttasten</translation>
    </message>
    <message>
        <source>Pakistan</source>
        <translation>Pakistan</translation>
    </message>
    <message>
        <source>Philippines</source>
        <translation>Philippinen</translation>
    </message>
    <message>
        <source>Poland</source>
        <translation>Polen</translation>
    </message>
    <message>
        <source>Portugal</source>
        <translation>Portugal</translation>
    </message>
    <message>
        <source>Romania</source>
        <translation>Rumänien</translation>
    </message>
    <message>
        <source>Romania, standard</source>
        <translation>Rumänien, Standard</translation>
    </message>
    <message>
        <source>Russia</source>
        <translation>Russland</translation>
    </message>
    <message>
        <source>Russia, phonetic</source>
        <translation>Russland, phonetisch</translation>
    </message>
    <message>
        <source>Senegal</source>
        <translation>Senegal</translation>
    </message>
    <message>
        <source>Serbia</source>
        <translation>Serbien</translation>
    </message>
    <message>
        <source>Serbia, Latin</source>
        <translation>Serbien, lateinische Schrift</translation>
    </message>
    <message>
        <source>Slovakia</source>
        <translation>Slowakei</translation>
    </message>
    <message>
        <source>Slovakia, QWERTY</source>
        <translation>Slowakei, QWERTY</translation>
    </message>
    <message>
        <source>Slovenia</source>
        <translation>Slowenien</translation>
    </message>
    <message>
        <source>South Africa</source>
        <translation>Südafrika</translation>
    </message>
    <message>
        <source>Spain</source>
        <translation>Spanien</translation>
    </message>
    <message>
        <source>Spain, no dead keys</source>
        <translation>Spanien, ohne Akzenttasten</translation>
    </message>
    <message>
        <source>Sri Lanka</source>
        <translation>Sri Lanka</translation>
    </message>
    <message>
        <source>Sweden</source>
        <translation>Schweden</translation>
    </message>
    <message>
        <source>Sweden, no dead keys</source>
        <translation>Schweden, ohne Akzenttasten</translation>
    </message>
    <message>
        <source>Switzerland, French</source>
        <translation>Schweiz, Französisch</translation>
    </message>
    <message>
        <source>Switzerland, German</source>
        <translation>Schweiz, Deutsch</translation>
    </message>
    <message>
        <source>Switzerland, German, no dead keys</source>
        <translation>Schweiz, Deutsch, ohne Akzenttasten</translation>
    </message>
    <message>
        <source>Syria</source>
        <translation>Syrien</translation>
    </message>
    <message>
        <source>Taiwan</source>
        <translation>Taiwan</translation>
    </message>
    <message>
        <source>Tajikistan</source>
        <translation>Tadschikistan</translation>
    </message>
    <message>
        <source>Tanzania</source>
        <translation>Tansania</translation>
    </message>
    <message>
        <source>Thailand</source>
        <translation>Thailand</translation>
    </message>
    <message>
        <source>Togo</source>
        <translation>Togo</translation>
    </message>
    <message>
        <source>Turkey</source>
        <translation>Türkei</translation>
    </message>
    <message>
        <source>Turkey, F</source>
        <translation>Türkei, F</translation>
    </message>
    <message>
        <source>Turkmenistan</source>
        <translation>Turkmenistan</translation>
    </message>
    <message>
        <source>Ukraine</source>
        <translation>Ukraine</translation>
    </message>
    <message>
        <source>United Kingdom</source>
        <translation>Vereinigtes Königreich</translation>
    </message>
    <message>
        <source>United Kingdom, Dvorak</source>
        <translation>Vereinigtes Königreich, Dvorak</translation>
    </message>
    <message>
        <source>United Kingdom, extended</source>
        <translation>Vereinigtes Königreich, erweitert</translation>
    </message>
    <message>
        <source>United States</source>
        <translation>Vereinigte Staaten</translation>
    </message>
    <message>
        <source>United States, Colemak</source>
        <translation>Vereinigte Staaten, Colemak</translation>
    </message>
    <message>
        <source>United States, Dvorak</source>
        <translation>Vereinigte Staaten, Dvorak</translation>
    </message>
    <message>
        <source>United States, international</source>
        <translation>Vereinigte Staaten, international</translation>
    </message>
    <message>
        <source>United States, international, with AltGr</source>
        <translation>Vereinigte Staaten, international, mit AltGr</translation>
    </message>
    <message>
        <source>Uzbekistan</source>
        <translation>Usbekistan</translation>
    </message>
    <message>
        <source>Uzbekistan, Latin</source>
        <translation>Usbekistan, lateinische Schrift</translation>
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
        <translation>Gruppe: </translation>
    </message>
</context>
<context>
    <name>KbdAccessible</name>
    <message>
        <source>Keyboard</source>
        <translation>Tastatur</translation>
    </message>
</context>
<context>
    <name>KbdApp</name>
    <message>
        <source>Arvane Virtual Keyboard</source>
        <translation>Virtuelle Arvane-Tastatur</translation>
    </message>
    <message>
        <source>Arvane Trial Keyboard</source>
        <translation>Arvane-Probetastatur</translation>
    </message>
</context>
<context>
    <name>KbdGeometry</name>
    <message>
        <source>Model:  %1</source>
        <translation>Modell:  %1</translation>
    </message>
    <message>
        <source>Layout:  %1</source>
        <translation>Belegung:  %1</translation>
    </message>
    <message>
        <source>Variant:  %1</source>
        <translation>Variante:  %1</translation>
    </message>
    <message>
        <source>Options:  %1</source>
        <translation>Optionen:  %1</translation>
    </message>
</context>
<context>
    <name>KbdKey</name>
    <message>
        <source>Details about this key:</source>
        <translation>Einzelheiten zu dieser Taste:</translation>
    </message>
    <message>
        <source>X11 Identity:  Name=&apos;%1&apos;, Code=0x%2</source>
        <translation>X11-Kennung:  Name=&apos;%1&apos;, Code=0x%2</translation>
    </message>
    <message>
        <source>Key symbol table:</source>
        <translation>Tabelle der Tastensymbole:</translation>
    </message>
    <message>
        <source>
   symbol[%1,%2]=0x%3=%4=%5</source>
        <translation>
   Symbol[%1,%2]=0x%3=%4=%5</translation>
    </message>
    <message>
        <source>
Modifier %1=0x%2</source>
        <translation>
Modifikator %1=0x%2</translation>
    </message>
    <message>
        <source>
Lock Modifier %1=0x%2</source>
        <translation>
Feststellender Modifikator %1=0x%2</translation>
    </message>
</context>
<context>
    <name>KeyAccessible</name>
    <message>
        <source>with Shift: %1</source>
        <translation>mit Umschalttaste: %1</translation>
    </message>
    <message>
        <source>key %1</source>
        <translation>Taste %1</translation>
    </message>
</context>
<context>
    <name>KeycapCombo</name>
    <message>
        <source>Keycap Display: </source>
        <translation>Tastenbeschriftung: </translation>
    </message>
    <message>
        <source>Active Character Only</source>
        <translation>Nur aktives Zeichen</translation>
    </message>
    <message>
        <source>Multiple Characters</source>
        <translation>Mehrere Zeichen</translation>
    </message>
    <message>
        <source>Keycap display mode</source>
        <translation>Art der Tastenbeschriftung</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Layout: </source>
        <translation>Belegung: </translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>SpokenName</name>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>no-break space</source>
        <translation>geschütztes Leerzeichen</translation>
    </message>
    <message>
        <source>soft hyphen</source>
        <translation>weiches Trennzeichen</translation>
    </message>
    <message>
        <source>double arrow left and right</source>
        <translation>Doppelpfeil nach links und rechts</translation>
    </message>
    <message>
        <source>double arrow right</source>
        <translation>Doppelpfeil nach rechts</translation>
    </message>
    <message>
        <source>arrow left</source>
        <translation>Pfeil nach links</translation>
    </message>
    <message>
        <source>arrow up</source>
        <translation>Pfeil nach oben</translation>
    </message>
    <message>
        <source>arrow right</source>
        <translation>Pfeil nach rechts</translation>
    </message>
    <message>
        <source>arrow down</source>
        <translation>Pfeil nach unten</translation>
    </message>
    <message>
        <source>Alt Gr</source>
        <translation>Alt Gr</translation>
    </message>
    <message>
        <source>next layout</source>
        <translation>nächste Belegung</translation>
    </message>
    <message>
        <source>previous layout</source>
        <translation>vorherige Belegung</translation>
    </message>
    <message>
        <source>Back Tab</source>
        <translation>Tabulator rückwärts</translation>
    </message>
    <message>
        <source>dead grave</source>
        <translation>Akzenttaste Gravis</translation>
    </message>
    <message>
        <source>dead acute</source>
        <translation>Akzenttaste Akut</translation>
    </message>
    <message>
        <source>dead circumflex</source>
        <translation>Akzenttaste Zirkumflex</translation>
    </message>
    <message>
        <source>dead tilde</source>
        <translation>Akzenttaste Tilde</translation>
    </message>
    <message>
        <source>dead macron</source>
        <translation>Akzenttaste Makron</translation>
    </message>
    <message>
        <source>dead breve</source>
        <translation>Akzenttaste Breve</translation>
    </message>
    <message>
        <source>dead dot above</source>
        <translation>Akzenttaste Punkt oben</translation>
    </message>
    <message>
        <source>dead diaeresis</source>
        <translation>Akzenttaste Trema</translation>
    </message>
    <message>
        <source>dead ring above</source>
        <translation>Akzenttaste Ring oben</translation>
    </message>
    <message>
        <source>dead double acute</source>
        <translation>Akzenttaste Doppelakut</translation>
    </message>
    <message>
        <source>dead caron</source>
        <translation>Akzenttaste Hatschek</translation>
    </message>
    <message>
        <source>dead cedilla</source>
        <translation>Akzenttaste Cedille</translation>
    </message>
    <message>
        <source>dead ogonek</source>
        <translation>Akzenttaste Ogonek</translation>
    </message>
    <message>
        <source>dead iota</source>
        <translation>Akzenttaste Iota</translation>
    </message>
    <message>
        <source>dead voiced sound mark</source>
        <translation>Akzenttaste Dakuten</translation>
    </message>
    <message>
        <source>dead semi-voiced sound mark</source>
        <translation>Akzenttaste Handakuten</translation>
    </message>
    <message>
        <source>dead dot below</source>
        <translation>Akzenttaste Punkt unten</translation>
    </message>
    <message>
        <source>dead hook</source>
        <translation>Akzenttaste Haken</translation>
    </message>
    <message>
        <source>dead horn</source>
        <translation>Akzenttaste Horn</translation>
    </message>
    <message>
        <source>dead stroke</source>
        <translation>Akzenttaste Querstrich</translation>
    </message>
    <message>
        <source>dead comma above</source>
        <translation>Akzenttaste Komma oben</translation>
    </message>
    <message>
        <source>dead reversed comma above</source>
        <translation>Akzenttaste umgekehrtes Komma oben</translation>
    </message>
    <message>
        <source>dead double grave</source>
        <translation>Akzenttaste Doppelgravis</translation>
    </message>
    <message>
        <source>dead ring below</source>
        <translation>Akzenttaste Ring unten</translation>
    </message>
    <message>
        <source>dead macron below</source>
        <translation>Akzenttaste Makron unten</translation>
    </message>
    <message>
        <source>dead circumflex below</source>
        <translation>Akzenttaste Zirkumflex unten</translation>
    </message>
    <message>
        <source>dead tilde below</source>
        <translation>Akzenttaste Tilde unten</translation>
    </message>
    <message>
        <source>dead breve below</source>
        <translation>Akzenttaste Breve unten</translation>
    </message>
    <message>
        <source>dead diaeresis below</source>
        <translation>Akzenttaste Trema unten</translation>
    </message>
    <message>
        <source>dead inverted breve</source>
        <translation>Akzenttaste umgekehrte Breve</translation>
    </message>
    <message>
        <source>dead comma below</source>
        <translation>Akzenttaste Komma unten</translation>
    </message>
    <message>
        <source>dead currency sign</source>
        <translation>Akzenttaste Währungszeichen</translation>
    </message>
    <message>
        <source>dead Greek</source>
        <translation>Akzenttaste Griechisch</translation>
    </message>
    <message>
        <source>dead hamza</source>
        <translation>Akzenttaste Hamza</translation>
    </message>
    <message>
        <source>dead low line</source>
        <translation>Akzenttaste Unterstrich</translation>
    </message>
    <message>
        <source>dead vertical line above</source>
        <translation>Akzenttaste senkrechter Strich oben</translation>
    </message>
    <message>
        <source>dead vertical line below</source>
        <translation>Akzenttaste senkrechter Strich unten</translation>
    </message>
    <message>
        <source>dead long solidus</source>
        <translation>Akzenttaste langer Schrägstrich</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Rücktaste</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tabulator</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Eingabetaste</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Scroll Lock</source>
        <translation>Rollen</translation>
    </message>
    <message>
        <source>System Request</source>
        <translation>Systemabfrage</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Escape</translation>
    </message>
    <message>
        <source>Compose</source>
        <translation>Compose</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Pos 1</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Pfeiltaste nach links</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Pfeiltaste nach oben</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Pfeiltaste nach rechts</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Pfeiltaste nach unten</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Bild auf</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Bild ab</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Print Screen</source>
        <translation>Druck</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>Break</source>
        <translation>Unterbrechen</translation>
    </message>
    <message>
        <source>Num Lock</source>
        <translation>Num Lock</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>Anfang</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalttaste</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Steuerung</translation>
    </message>
    <message>
        <source>Caps Lock</source>
        <translation>Feststelltaste</translation>
    </message>
    <message>
        <source>Shift Lock</source>
        <translation>Umschaltsperre</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>zero-width non-joiner</source>
        <translation>breitenloser Nichtverbinder</translation>
    </message>
    <message>
        <source>zero-width joiner</source>
        <translation>breitenloser Verbinder</translation>
    </message>
    <message>
        <source>left-to-right mark</source>
        <translation>Links-nach-rechts-Zeichen</translation>
    </message>
    <message>
        <source>right-to-left mark</source>
        <translation>Rechts-nach-links-Zeichen</translation>
    </message>
    <message>
        <source>narrow no-break space</source>
        <translation>schmales geschütztes Leerzeichen</translation>
    </message>
    <message>
        <source>blank</source>
        <translation>nicht belegt</translation>
    </message>
</context>
<context>
    <name>TypingArea</name>
    <message>
        <source>Sample Text Area</source>
        <translation>Textfeld zum Ausprobieren</translation>
    </message>
</context>
</TS>
