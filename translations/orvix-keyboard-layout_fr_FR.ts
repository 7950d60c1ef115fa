<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en">
<context>
    <name>CKbdSpecSelector</name>
    <message>
        <source>&lt;Custom&gt;</source>
        <translation>&lt;Personnalisée&gt;</translation>
    </message>
    <message>
        <source>Arabic</source>
        <translation>Arabe</translation>
    </message>
    <message>
        <source>Arabic, AZERTY</source>
        <translation>Arabe, AZERTY</translation>
    </message>
    <message>
        <source>Asturian</source>
        <translation>Asturien</translation>
    </message>
    <message>
        <source>Bengali, India</source>
        <translation>Bengali, Inde</translation>
    </message>
    <message>
        <source>%1, 105 keys</source>
        <translation>%1, 105 touches</translation>
    </message>
    <message>
        <source>Berber, Latin</source>
        <translation>Berbère, écriture latine</translation>
    </message>
    <message>
        <source>Berber, Tifinagh</source>
        <translation>Berbère, tifinagh</translation>
    </message>
    <message>
        <source>Braille</source>
        <translation>Braille</translation>
    </message>
    <message>
        <source>Breton</source>
        <translation>Breton</translation>
    </message>
    <message>
        <source>Catalan</source>
        <translation>Catalan</translation>
    </message>
    <message>
        <source>Esperanto</source>
        <translation>Espéranto</translation>
    </message>
    <message>
        <source>Gujarati</source>
        <translation>Gujarâtî</translation>
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
        <translation>Hindi, phonétique</translation>
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
        <translation>Javanais</translation>
    </message>
    <message>
        <source>Kannada</source>
        <translation>Kannada</translation>
    </message>
    <message>
        <source>Kurdish, Arabic script</source>
        <translation>Kurde, écriture arabe</translation>
    </message>
    <message>
        <source>Kurdish, Latin script</source>
        <translation>Kurde, écriture latine</translation>
    </message>
    <message>
        <source>Latin America</source>
        <translation>Amérique latine</translation>
    </message>
    <message>
        <source>Malayalam</source>
        <translation>Malayâlam</translation>
    </message>
    <message>
        <source>Maori</source>
        <translation>Maori</translation>
    </message>
    <message>
        <source>Marathi</source>
        <translation>Marathe</translation>
    </message>
    <message>
        <source>N&apos;Ko</source>
        <translation>N’Ko</translation>
    </message>
    <message>
        <source>Northern Sami</source>
        <translation>Sami du Nord</translation>
    </message>
    <message>
        <source>Occitan</source>
        <translation>Occitan</translation>
    </message>
    <message>
        <source>Odia</source>
        <translation>Odia</translation>
    </message>
    <message>
        <source>Pashto</source>
        <translation>Pachto</translation>
    </message>
    <message>
        <source>Punjabi</source>
        <translation>Penjabi</translation>
    </message>
    <message>
        <source>Scottish Gaelic</source>
        <translation>Gaélique écossais</translation>
    </message>
    <message>
        <source>Tamil, India</source>
        <translation>Tamoul, Inde</translation>
    </message>
    <message>
        <source>Tamil, Sri Lanka</source>
        <translation>Tamoul, Sri Lanka</translation>
    </message>
    <message>
        <source>Tatar</source>
        <translation>Tatar</translation>
    </message>
    <message>
        <source>Telugu</source>
        <translation>Télougou</translation>
    </message>
    <message>
        <source>Tibetan</source>
        <translation>Tibétain</translation>
    </message>
    <message>
        <source>Urdu, India</source>
        <translation>Ourdou, Inde</translation>
    </message>
    <message>
        <source>Uyghur</source>
        <translation>Ouïghour</translation>
    </message>
    <message>
        <source>Arabic, with US English</source>
        <translation>Arabe, avec anglais (US)</translation>
    </message>
    <message>
        <source>Bulgaria, with US English</source>
        <translation>Bulgarie, avec anglais (US)</translation>
    </message>
    <message>
        <source>Greece, with US English</source>
        <translation>Grèce, avec anglais (US)</translation>
    </message>
    <message>
        <source>Iran, with US English</source>
        <translation>Iran, avec anglais (US)</translation>
    </message>
    <message>
        <source>Israel, with US English</source>
        <translation>Israël, avec anglais (US)</translation>
    </message>
    <message>
        <source>Russia, with US English</source>
        <translation>Russie, avec anglais (US)</translation>
    </message>
    <message>
        <source>Thailand, with US English</source>
        <translation>Thaïlande, avec anglais (US)</translation>
    </message>
    <message>
        <source>Ukraine, with US English</source>
        <translation>Ukraine, avec anglais (US)</translation>
    </message>
    <message>
        <source>Afghanistan</source>
        <translation>Afghanistan</translation>
    </message>
    <message>
        <source>Albania</source>
        <translation>Albanie</translation>
    </message>
    <message>
        <source>Algeria</source>
        <translation>Algérie</translation>
    </message>
    <message>
        <source>Armenia</source>
        <translation>Arménie</translation>
    </message>
    <message>
        <source>Australia</source>
        <translation>Australie</translation>
    </message>
    <message>
        <source>Austria</source>
        <translation>Autriche</translation>
    </message>
    <message>
        <source>Azerbaijan</source>
        <translation>Azerbaïdjan</translation>
    </message>
    <message>
        <source>Bangladesh</source>
        <translation>Bangladesh</translation>
    </message>
    <message>
        <source>Bangladesh, Probhat</source>
        <translation>Bangladesh, Probhat</translation>
    </message>
    <message>
        <source>Belarus</source>
        <translation>Bélarus</translation>
    </message>
    <message>
        <source>Belgium</source>
        <translation>Belgique</translation>
    </message>
    <message>
        <source>Bhutan</source>
        <translation>Bhoutan</translation>
    </message>
    <message>
        <source>Bosnia and Herzegovina</source>
        <translation>Bosnie-Herzégovine</translation>
    </message>
    <message>
        <source>Botswana</source>
        <translation>Botswana</translation>
    </message>
    <message>
        <source>Brazil</source>
        <translation>Brésil</translation>
    </message>
    <message>
        <source>Bulgaria</source>
        <translation>Bulgarie</translation>
    </message>
    <message>
        <source>Bulgaria, phonetic</source>
        <translation>Bulgarie, phonétique</translation>
    </message>
    <message>
        <source>Cambodia</source>
        <translation>Cambodge</translation>
    </message>
    <message>
        <source>Cameroon</source>
        <translation>Cameroun</translation>
    </message>
    <message>
        <source>Canada, English</source>
        <translation>Canada, anglais</translation>
    </message>
    <message>
        <source>Canada, French</source>
        <translation>Canada, français</translation>
    </message>
    <message>
        <source>Canada, multilingual</source>
        <translation>Canada, multilingue</translation>
    </message>
    <message>
        <source>China</source>
        <translation>Chine</translation>
    </message>
    <message>
        <source>Croatia</source>
        <translation>Croatie</translation>
    </message>
    <message>
        <source>Czechia</source>
        <translation>Tchéquie</translation>
    </message>
    <message>
        <source>Czechia, QWERTY</source>
        <translation>Tchéquie, QWERTY</translation>
    </message>
    <message>
        <source>Denmark</source>
        <translation>Danemark</translation>
    </message>
    <message>
        <source>Denmark, no dead keys</source>
        <translation>Danemark, sans touche morte</translation>
    </message>
    <message>
        <source>DR Congo</source>
        <translation>RD Congo</translation>
    </message>
    <message>
        <source>Egypt</source>
        <translation>Égypte</translation>
    </message>
    <message>
        <source>Estonia</source>
        <translation>Estonie</translation>
    </message>
    <message>
        <source>Ethiopia</source>
        <translation>Éthiopie</translation>
    </message>
    <message>
        <source>Faroe Islands</source>
        <translation>Îles Féroé</translation>
    </message>
    <message>
        <source>Finland</source>
        <translation>Finlande</translation>
    </message>
    <message>
        <source>France</source>
        <translation>France</translation>
    </message>
    <message>
        <source>France, alternative</source>
        <translation>France, variante</translation>
    </message>
    <message>
        <source>France, AZERTY</source>
        <translation>France, AZERTY</translation>
    </message>
    <message>
        <source>France, BÉPO</source>
        <translation>France, BÉPO</translation>
    </message>
    <message>
        <source>France, no dead keys</source>
        <translation>France, sans touche morte</translation>
    </message>
    <message>
        <source>Georgia</source>
        <translation>Géorgie</translation>
    </message>
    <message>
        <source>Germany</source>
        <translation>Allemagne</translation>
    </message>
    <message>
        <source>Germany, Neo 2</source>
        <translation>Allemagne, Neo 2</translation>
    </message>
    <message>
        <source>Germany, no dead keys</source>
        <translation>Allemagne, sans touche morte</translation>
    </message>
    <message>
        <source>Ghana</source>
        <translation>Ghana</translation>
    </message>
    <message>
        <source>Greece</source>
        <translation>Grèce</translation>
    </message>
    <message>
        <source>Greece, polytonic</source>
        <translation>Grèce, polytonique</translation>
    </message>
    <message>
        <source>Hungary</source>
        <translation>Hongrie</translation>
    </message>
    <message>
        <source>Iceland</source>
        <translation>Islande</translation>
    </message>
    <message>
        <source>India, English</source>
        <translation>Inde, anglais</translation>
    </message>
    <message>
        <source>Indonesia</source>
        <translation>Indonésie</translation>
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
        <translation>Irlande</translation>
    </message>
    <message>
        <source>Israel</source>
        <translation>Israël</translation>
    </message>
    <message>
        <source>Italy</source>
        <translation>Italie</translation>
    </message>
    <message>
        <source>Japan</source>
        <translation>Japon</translation>
    </message>
    <message>
        <source>Kazakhstan</source>
        <translation>Kazakhstan</translation>
    </message>
    <message>
        <source>Kenya</source>
        <translation>Kenya</translation>
    </message>
    <message>
        <source>Korea</source>
        <translation>Corée</translation>
    </message>
    <message>
        <source>Korea, 104 keys</source>
        <translation>Corée, 104 touches</translation>
    </message>
    <message>
        <source>Kyrgyzstan</source>
        <translation>Kirghizistan</translation>
    </message>
    <message>
        <source>Laos</source>
        <translation>Laos</translation>
    </message>
    <message>
        <source>Latvia</source>
        <translation>Lettonie</translation>
    </message>
    <message>
        <source>Latvia, apostrophe</source>
        <translation>Lettonie, apostrophe</translation>
    </message>
    <message>
        <source>Lithuania</source>
        <translation>Lituanie</translation>
    </message>
    <message>
        <source>Malaysia, Jawi</source>
        <translation>Malaisie, jawi</translation>
    </message>
    <message>
        <source>Mali</source>
        <translation>Mali</translation>
    </message>
    <message>
        <source>Malta</source>
        <translation>Malte</translation>
    </message>
    <message>
        <source>Moldova</source>
        <translation>Moldavie</translation>
    </message>
    <message>
        <source>Mongolia</source>
        <translation>Mongolie</translation>
    </message>
    <message>
        <source>Montenegro</source>
        <translation>Monténégro</translation>
    </message>
    <message>
        <source>Morocco</source>
        <translation>Maroc</translation>
    </message>
    <message>
        <source>Morocco, French</source>
        <translation>Maroc, français</translation>
    </message>
    <message>
        <source>Myanmar</source>
        <translation>Birmanie</translation>
    </message>
    <message>
        <source>Nepal</source>
        <translation>Népal</translation>
    </message>
    <message>
        <source>Netherlands</source>
        <translation>Pays-Bas</translation>
    </message>
    <message>
        <source>New Zealand</source>
        <translation>Nouvelle-Zélande</translation>
    </message>
    <message>
        <source>Nigeria</source>
        <translation>Nigeria</translation>
    </message>
    <message>
        <source>North Macedonia</source>
        <translation>Macédoine du Nord</translation>
    </message>
    <message>
        <source>Norway</source>
        <translation>Norvège</translation>
    </message>
    <message>
        <source>Norway, no dead keys</source>
        <translation>Norvège, sans touche morte</translation>
    </message>
    <message>
        <source>Pakistan</source>
        <translation>Pakistan</translation>
    </message>
    <message>
        <source>Philippines</source>
        <translation>Philippines</translation>
    </message>
    <message>
        <source>Poland</source>
        <translation>Pologne</translation>
    </message>
    <message>
        <source>Portugal</source>
        <translation>Portugal</translation>
    </message>
    <message>
        <source>Romania</source>
        <translation>Roumanie</translation>
    </message>
    <message>
        <source>Romania, standard</source>
        <translation>Roumanie, standard</translation>
    </message>
    <message>
        <source>Russia</source>
        <translation>Russie</translation>
    </message>
    <message>
        <source>Russia, phonetic</source>
        <translation>Russie, phonétique</translation>
    </message>
    <message>
        <source>Senegal</source>
        <translation>Sénégal</translation>
    </message>
    <message>
        <source>Serbia</source>
        <translation>Serbie</translation>
    </message>
    <message>
        <source>Serbia, Latin</source>
        <translation>Serbie, écriture latine</translation>
    </message>
    <message>
        <source>Slovakia</source>
        <translation>Slovaquie</translation>
    </message>
    <message>
        <source>Slovakia, QWERTY</source>
        <translation>Slovaquie, QWERTY</translation>
    </message>
    <message>
        <source>Slovenia</source>
        <translation>Slovénie</translation>
    </message>
    <message>
        <source>South Africa</source>
        <translation>Afrique du Sud</translation>
    </message>
    <message>
        <source>Spain</source>
        <translation>Espagne</translation>
    </message>
    <message>
        <source>Spain, no dead keys</source>
        <translation>Espagne, sans touche morte</translation>
    </message>
    <message>
        <source>Sri Lanka</source>
        <translation>Sri Lanka</translation>
    </message>
    <message>
        <source>Sweden</source>
        <translation>Suède</translation>
    </message>
    <message>
        <source>Sweden, no dead keys</source>
        <translation>Suède, sans touche morte</translation>
    </message>
    <message>
        <source>Switzerland, French</source>
        <translation>Suisse, français</translation>
    </message>
    <message>
        <source>Switzerland, German</source>
        <translation>Suisse, allemand</translation>
    </message>
    <message>
        <source>Switzerland, German, no dead keys</source>
        <translation>Suisse, allemand, sans touche morte</translation>
    </message>
    <message>
        <source>Syria</source>
        <translation>Syrie</translation>
    </message>
    <message>
        <source>Taiwan</source>
        <translation>Taïwan</translation>
    </message>
    <message>
        <source>Tajikistan</source>
        <translation>Tadjikistan</translation>
    </message>
    <message>
        <source>Tanzania</source>
        <translation>Tanzanie</translation>
    </message>
    <message>
        <source>Thailand</source>
        <translation>Thaïlande</translation>
    </message>
    <message>
        <source>Togo</source>
        <translation>Togo</translation>
    </message>
    <message>
        <source>Turkey</source>
        <translation>Turquie</translation>
    </message>
    <message>
        <source>Turkey, F</source>
        <translation>Turquie, F</translation>
    </message>
    <message>
        <source>Turkmenistan</source>
        <translation>Turkménistan</translation>
    </message>
    <message>
        <source>Ukraine</source>
        <translation>Ukraine</translation>
    </message>
    <message>
        <source>United Kingdom</source>
        <translation>Royaume-Uni</translation>
    </message>
    <message>
        <source>United Kingdom, Dvorak</source>
        <translation>Royaume-Uni, Dvorak</translation>
    </message>
    <message>
        <source>United Kingdom, extended</source>
        <translation>Royaume-Uni, étendue</translation>
    </message>
    <message>
        <source>United States</source>
        <translation>États-Unis</translation>
    </message>
    <message>
        <source>United States, Colemak</source>
        <translation>États-Unis, Colemak</translation>
    </message>
    <message>
        <source>United States, Dvorak</source>
        <translation>États-Unis, Dvorak</translation>
    </message>
    <message>
        <source>United States, international</source>
        <translation>États-Unis, internationale</translation>
    </message>
    <message>
        <source>United States, international, with AltGr</source>
        <translation>États-Unis, internationale, avec AltGr</translation>
    </message>
    <message>
        <source>Uzbekistan</source>
        <translation>Ouzbékistan</translation>
    </message>
    <message>
        <source>Uzbekistan, Latin</source>
        <translation>Ouzbékistan, écriture latine</translation>
    </message>
    <message>
        <source>Vietnam</source>
        <translation>Viêt Nam</translation>
    </message>
</context>
<context>
    <name>GroupCombo</name>
    <message>
        <source>Group: </source>
        <translation>Groupe&#xa0;: </translation>
    </message>
</context>
<context>
    <name>KbdAccessible</name>
    <message>
        <source>Keyboard</source>
        <translation>Clavier</translation>
    </message>
</context>
<context>
    <name>KbdApp</name>
    <message>
        <source>Arvane Virtual Keyboard</source>
        <translation>Clavier virtuel Arvane</translation>
    </message>
    <message>
        <source>Arvane Trial Keyboard</source>
        <translation>Clavier d’essai Arvane</translation>
    </message>
</context>
<context>
    <name>KbdGeometry</name>
    <message>
        <source>Model:  %1</source>
        <translation>Modèle&#xa0;:  %1</translation>
    </message>
    <message>
        <source>Layout:  %1</source>
        <translation>Disposition&#xa0;:  %1</translation>
    </message>
    <message>
        <source>Variant:  %1</source>
        <translation>Variante&#xa0;:  %1</translation>
    </message>
    <message>
        <source>Options:  %1</source>
        <translation>Options&#xa0;:  %1</translation>
    </message>
</context>
<context>
    <name>KbdKey</name>
    <message>
        <source>Details about this key:</source>
        <translation>Détails de cette touche&#xa0;:</translation>
    </message>
    <message>
        <source>X11 Identity:  Name=&apos;%1&apos;, Code=0x%2</source>
        <translation>Identité X11&#xa0;:  Nom=&apos;%1&apos;, Code=0x%2</translation>
    </message>
    <message>
        <source>Key symbol table:</source>
        <translation>Table des symboles de la touche&#xa0;:</translation>
    </message>
    <message>
        <source>
   symbol[%1,%2]=0x%3=%4=%5</source>
        <translation>
   symbole[%1,%2]=0x%3=%4=%5</translation>
    </message>
    <message>
        <source>
Modifier %1=0x%2</source>
        <translation>
Modificateur %1=0x%2</translation>
    </message>
    <message>
        <source>
Lock Modifier %1=0x%2</source>
        <translation>
Modificateur verrouillant %1=0x%2</translation>
    </message>
</context>
<context>
    <name>KeyAccessible</name>
    <message>
        <source>with Shift: %1</source>
        <translation>avec Majuscule&#xa0;: %1</translation>
    </message>
    <message>
        <source>key %1</source>
        <translation>touche %1</translation>
    </message>
</context>
<context>
    <name>KeycapCombo</name>
    <message>
        <source>Keycap Display: </source>
        <translation>Affichage des touches&#xa0;: </translation>
    </message>
    <message>
        <source>Active Character Only</source>
        <translation>Caractère actif seul</translation>
    </message>
    <message>
        <source>Multiple Characters</source>
        <translation>Plusieurs caractères</translation>
    </message>
    <message>
        <source>Keycap display mode</source>
        <translation>Mode d’affichage des touches</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Layout: </source>
        <translation>Disposition&#xa0;: </translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Imprimer</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>SpokenName</name>
    <message>
        <source>Space</source>
        <translation>Espace</translation>
    </message>
    <message>
        <source>no-break space</source>
        <translation>espace insécable</translation>
    </message>
    <message>
        <source>soft hyphen</source>
        <translation>trait d’union conditionnel</translation>
    </message>
    <message>
        <source>double arrow left and right</source>
        <translation>double flèche vers la gauche et la droite</translation>
    </message>
    <message>
        <source>double arrow right</source>
        <translation>double flèche vers la droite</translation>
    </message>
    <message>
        <source>arrow left</source>
        <translation>flèche vers la gauche</translation>
    </message>
    <message>
        <source>arrow up</source>
        <translation>flèche vers le haut</translation>
    </message>
    <message>
        <source>arrow right</source>
        <translation>flèche vers la droite</translation>
    </message>
    <message>
        <source>arrow down</source>
        <translation>flèche vers le bas</translation>
    </message>
    <message>
        <source>Alt Gr</source>
        <translation>Alt Gr</translation>
    </message>
    <message>
        <source>next layout</source>
        <translation>disposition suivante</translation>
    </message>
    <message>
        <source>previous layout</source>
        <translation>disposition précédente</translation>
    </message>
    <message>
        <source>Back Tab</source>
        <translation>Tabulation arrière</translation>
    </message>
    <message>
        <source>dead grave</source>
        <translation>touche morte accent grave</translation>
    </message>
    <message>
        <source>dead acute</source>
        <translation>touche morte accent aigu</translation>
    </message>
    <message>
        <source>dead circumflex</source>
        <translation>touche morte accent circonflexe</translation>
    </message>
    <message>
        <source>dead tilde</source>
        <translation>touche morte tilde</translation>
    </message>
    <message>
        <source>dead macron</source>
        <translation>touche morte macron</translation>
    </message>
    <message>
        <source>dead breve</source>
        <translation>touche morte brève</translation>
    </message>
    <message>
        <source>dead dot above</source>
        <translation>touche morte point suscrit</translation>
    </message>
    <message>
        <source>dead diaeresis</source>
        <translation>touche morte tréma</translation>
    </message>
    <message>
        <source>dead ring above</source>
        <translation>touche morte rond en chef</translation>
    </message>
    <message>
        <source>dead double acute</source>
        <translation>touche morte double accent aigu</translation>
    </message>
    <message>
        <source>dead caron</source>
        <translation>touche morte caron</translation>
    </message>
    <message>
        <source>dead cedilla</source>
        <translation>touche morte cédille</translation>
    </message>
    <message>
        <source>dead ogonek</source>
        <translation>touche morte ogonek</translation>
    </message>
    <message>
        <source>dead iota</source>
        <translation>touche morte iota</translation>
    </message>
    <message>
        <source>dead voiced sound mark</source>
        <translation>touche morte dakuten</translation>
    </message>
    <message>
        <source>dead semi-voiced sound mark</source>
        <translation>touche morte handakuten</translation>
    </message>
    <message>
        <source>dead dot below</source>
        <translation>touche morte point souscrit</translation>
    </message>
    <message>
        <source>dead hook</source>
        <translation>touche morte crochet en chef</translation>
    </message>
    <message>
        <source>dead horn</source>
        <translation>touche morte corne</translation>
    </message>
    <message>
        <source>dead stroke</source>
        <translation>touche morte barre</translation>
    </message>
    <message>
        <source>dead comma above</source>
        <translation>touche morte virgule suscrite</translation>
    </message>
    <message>
        <source>dead reversed comma above</source>
        <translation>touche morte virgule réfléchie suscrite</translation>
    </message>
    <message>
        <source>dead double grave</source>
        <translation>touche morte double accent grave</translation>
    </message>
    <message>
        <source>dead ring below</source>
        <translation>touche morte rond souscrit</translation>
    </message>
    <message>
        <source>dead macron below</source>
        <translation>touche morte macron souscrit</translation>
    </message>
    <message>
        <source>dead circumflex below</source>
        <translation>touche morte accent circonflexe souscrit</translation>
    </message>
    <message>
        <source>dead tilde below</source>
        <translation>touche morte tilde souscrit</translation>
    </message>
    <message>
        <source>dead breve below</source>
        <translation>touche morte brève souscrite</translation>
    </message>
    <message>
        <source>dead diaeresis below</source>
        <translation>touche morte tréma souscrit</translation>
    </message>
    <message>
        <source>dead inverted breve</source>
        <translation>touche morte brève renversée</translation>
    </message>
    <message>
        <source>dead comma below</source>
        <translation>touche morte virgule souscrite</translation>
    </message>
    <message>
        <source>dead currency sign</source>
        <translation>touche morte symbole monétaire</translation>
    </message>
    <message>
        <source>dead Greek</source>
        <translation>touche morte lettre grecque</translation>
    </message>
    <message>
        <source>dead hamza</source>
        <translation>touche morte hamza</translation>
    </message>
    <message>
        <source>dead low line</source>
        <translation>touche morte tiret bas</translation>
    </message>
    <message>
        <source>dead vertical line above</source>
        <translation>touche morte ligne verticale suscrite</translation>
    </message>
    <message>
        <source>dead vertical line below</source>
        <translation>touche morte ligne verticale souscrite</translation>
    </message>
    <message>
        <source>dead long solidus</source>
        <translation>touche morte barre oblique longue</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Retour arrière</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tabulation</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Entrée</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Scroll Lock</source>
        <translation>Arrêt défilement</translation>
    </message>
    <message>
        <source>System Request</source>
        <translation>Appel système</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Échap</translation>
    </message>
    <message>
        <source>Compose</source>
        <translation>Composition</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Début</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Gauche</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Haut</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Droite</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Bas</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Page précédente</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Page suivante</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Fin</translation>
    </message>
    <message>
        <source>Print Screen</source>
        <translation>Impression d’écran</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Insertion</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menu</translation>
    </message>
    <message>
        <source>Break</source>
        <translation>Interruption</translation>
    </message>
    <message>
        <source>Num Lock</source>
        <translation>Verrouillage numérique</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Entrée du pavé numérique</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>Centre du pavé numérique</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Suppression</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Majuscule</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Contrôle</translation>
    </message>
    <message>
        <source>Caps Lock</source>
        <translation>Verrouillage des majuscules</translation>
    </message>
    <message>
        <source>Shift Lock</source>
        <translation>Verrouillage de la touche Majuscule</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>zero-width non-joiner</source>
        <translation>antiliant sans chasse</translation>
    </message>
    <message>
        <source>zero-width joiner</source>
        <translation>liant sans chasse</translation>
    </message>
    <message>
        <source>left-to-right mark</source>
        <translation>marque gauche-à-droite</translation>
    </message>
    <message>
        <source>right-to-left mark</source>
        <translation>marque droite-à-gauche</translation>
    </message>
    <message>
        <source>narrow no-break space</source>
        <translation>espace fine insécable</translation>
    </message>
    <message>
        <source>blank</source>
        <translation>vide</translation>
    </message>
</context>
<context>
    <name>TypingArea</name>
    <message>
        <source>Sample Text Area</source>
        <translation>Zone de texte d’essai</translation>
    </message>
</context>
</TS>
