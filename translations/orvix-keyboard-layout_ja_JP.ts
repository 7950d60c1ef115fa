<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en">
<context>
    <name>CKbdSpecSelector</name>
    <message>
        <source>&lt;Custom&gt;</source>
        <translation>&lt;カスタム&gt;</translation>
    </message>
    <message>
        <source>Arabic</source>
        <translation>アラビア語</translation>
    </message>
    <message>
        <source>Arabic, AZERTY</source>
        <translation>アラビア語、AZERTY</translation>
    </message>
    <message>
        <source>Asturian</source>
        <translation>アストゥリアス語</translation>
    </message>
    <message>
        <source>Bengali, India</source>
        <translation>ベンガル語、インド</translation>
    </message>
    <message>
        <source>%1, 105 keys</source>
        <translation>%1、105 キー</translation>
    </message>
    <message>
        <source>Berber, Latin</source>
        <translation>ベルベル語、ラテン文字</translation>
    </message>
    <message>
        <source>Berber, Tifinagh</source>
        <translation>ベルベル語、ティフナグ文字</translation>
    </message>
    <message>
        <source>Braille</source>
        <translation>ブライユ点字</translation>
    </message>
    <message>
        <source>Breton</source>
        <translation>ブルトン語</translation>
    </message>
    <message>
        <source>Catalan</source>
        <translation>カタロニア語</translation>
    </message>
    <message>
        <source>Esperanto</source>
        <translation>エスペラント語</translation>
    </message>
    <message>
        <source>Gujarati</source>
        <translation>グジャラート語</translation>
    </message>
    <message>
        <source>Hindi, Bolnagri</source>
        <translation>ヒンディー語、Bolnagri</translation>
    </message>
    <message>
        <source>Hindi, InScript</source>
        <translation>ヒンディー語、InScript</translation>
    </message>
    <message>
        <source>Hindi, phonetic</source>
        <translation>ヒンディー語、表音</translation>
    </message>
    <message>
        <source>Hindi, WX</source>
        <translation>ヒンディー語、WX</translation>
    </message>
    <message>
        <source>Inuktitut</source>
        <translation>イヌクティトゥト語</translation>
    </message>
    <message>
        <source>Javanese</source>
        <translation>ジャワ語</translation>
    </message>
    <message>
        <source>Kannada</source>
        <translation>カンナダ語</translation>
    </message>
    <message>
        <source>Kurdish, Arabic script</source>
        <translation>クルド語、アラビア文字</translation>
    </message>
    <message>
        <source>Kurdish, Latin script</source>
        <translation>クルド語、ラテン文字</translation>
    </message>
    <message>
        <source>Latin America</source>
        <translation>ラテンアメリカ</translation>
    </message>
    <message>
        <source>Malayalam</source>
        <translation>マラヤーラム語</translation>
    </message>
    <message>
        <source>Maori</source>
        <translation>マオリ語</translation>
    </message>
    <message>
        <source>Marathi</source>
        <translation>マラーティー語</translation>
    </message>
    <message>
        <source>N&apos;Ko</source>
        <translation>ンコ語</translation>
    </message>
    <message>
        <source>Northern Sami</source>
        <translation>北サーミ語</translation>
    </message>
    <message>
        <source>Occitan</source>
        <translation>オック語</translation>
    </message>
    <message>
        <source>Odia</source>
        <translation>オリヤー語</translation>
    </message>
    <message>
        <source>Pashto</source>
        <translation>パシュト語</translation>
    </message>
    <message>
        <source>Punjabi</source>
        <translation>パンジャブ語</translation>
    </message>
    <message>
        <source>Scottish Gaelic</source>
        <translation>スコットランド・ゲール語</translation>
    </message>
    <message>
        <source>Tamil, India</source>
        <translation>タミル語、インド</translation>
    </message>
    <message>
        <source>Tamil, Sri Lanka</source>
        <translation>タミル語、スリランカ</translation>
    </message>
    <message>
        <source>Tatar</source>
        <translation>タタール語</translation>
    </message>
    <message>
        <source>Telugu</source>
        <translation>テルグ語</translation>
    </message>
    <message>
        <source>Tibetan</source>
        <translation>チベット語</translation>
    </message>
    <message>
        <source>Urdu, India</source>
        <translation>ウルドゥー語、インド</translation>
    </message>
    <message>
        <source>Uyghur</source>
        <translation>ウイグル語</translation>
    </message>
    <message>
        <source>Arabic, with US English</source>
        <translation>アラビア語、英語 (US) 付き</translation>
    </message>
    <message>
        <source>Bulgaria, with US English</source>
        <translation>ブルガリア、英語 (US) 付き</translation>
    </message>
    <message>
        <source>Greece, with US English</source>
        <translation>ギリシャ、英語 (US) 付き</translation>
    </message>
    <message>
        <source>Iran, with US English</source>
        <translation>イラン、英語 (US) 付き</translation>
    </message>
    <message>
        <source>Israel, with US English</source>
        <translation>イスラエル、英語 (US) 付き</translation>
    </message>
    <message>
        <source>Russia, with US English</source>
        <translation>ロシア、英語 (US) 付き</translation>
    </message>
    <message>
        <source>Thailand, with US English</source>
        <translation>タイ、英語 (US) 付き</translation>
    </message>
    <message>
        <source>Ukraine, with US English</source>
        <translation>ウクライナ、英語 (US) 付き</translation>
    </message>
    <message>
        <source>Afghanistan</source>
        <translation>アフガニスタン</translation>
    </message>
    <message>
        <source>Albania</source>
        <translation>アルバニア</translation>
    </message>
    <message>
        <source>Algeria</source>
        <translation>アルジェリア</translation>
    </message>
    <message>
        <source>Armenia</source>
        <translation>アルメニア</translation>
    </message>
    <message>
        <source>Australia</source>
        <translation>オーストラリア</translation>
    </message>
    <message>
        <source>Austria</source>
        <translation>オーストリア</translation>
    </message>
    <message>
        <source>Azerbaijan</source>
        <translation>アゼルバイジャン</translation>
    </message>
    <message>
        <source>Bangladesh</source>
        <translation>バングラデシュ</translation>
    </message>
    <message>
        <source>Bangladesh, Probhat</source>
        <translation>バングラデシュ、Probhat</translation>
    </message>
    <message>
        <source>Belarus</source>
        <translation>ベラルーシ</translation>
    </message>
    <message>
        <source>Belgium</source>
        <translation>ベルギー</translation>
    </message>
    <message>
        <source>Bhutan</source>
        <translation>ブータン</translation>
    </message>
    <message>
        <source>Bosnia and Herzegovina</source>
        <translation>ボスニア・ヘルツェゴビナ</translation>
    </message>
    <message>
        <source>Botswana</source>
        <translation>ボツワナ</translation>
    </message>
    <message>
        <source>Brazil</source>
        <translation>ブラジル</translation>
    </message>
    <message>
        <source>Bulgaria</source>
        <translation>ブルガリア</translation>
    </message>
    <message>
        <source>Bulgaria, phonetic</source>
        <translation>ブルガリア、表音</translation>
    </message>
    <message>
        <source>Cambodia</source>
        <translation>カンボジア</translation>
    </message>
    <message>
        <source>Cameroon</source>
        <translation>カメルーン</translation>
    </message>
    <message>
        <source>Canada, English</source>
        <translation>カナダ、英語</translation>
    </message>
    <message>
        <source>Canada, French</source>
        <translation>カナダ、フランス語</translation>
    </message>
    <message>
        <source>Canada, multilingual</source>
        <translation>カナダ、多言語</translation>
    </message>
    <message>
        <source>China</source>
        <translation>中国</translation>
    </message>
    <message>
        <source>Croatia</source>
        <translation>クロアチア</translation>
    </message>
    <message>
        <source>Czechia</source>
        <translation>チェコ</translation>
    </message>
    <message>
        <source>Czechia, QWERTY</source>
        <translation>チェコ、QWERTY</translation>
    </message>
    <message>
        <source>Denmark</source>
        <translation>デンマーク</translation>
    </message>
    <message>
        <source>Denmark, no dead keys</source>
        <translation>デンマーク、デッドキーなし</translation>
    </message>
    <message>
        <source>DR Congo</source>
        <translation>コンゴ民主共和国</translation>
    </message>
    <message>
        <source>Egypt</source>
        <translation>エジプト</translation>
    </message>
    <message>
        <source>Estonia</source>
        <translation>エストニア</translation>
    </message>
    <message>
        <source>Ethiopia</source>
        <translation>エチオピア</translation>
    </message>
    <message>
        <source>Faroe Islands</source>
        <translation>フェロー諸島</translation>
    </message>
    <message>
        <source>Finland</source>
        <translation>フィンランド</translation>
    </message>
    <message>
        <source>France</source>
        <translation>フランス</translation>
    </message>
    <message>
        <source>France, alternative</source>
        <translation>フランス、代替</translation>
    </message>
    <message>
        <source>France, AZERTY</source>
        <translation>フランス、AZERTY</translation>
    </message>
    <message>
        <source>France, BÉPO</source>
        <translation>フランス、BÉPO</translation>
    </message>
    <message>
        <source>France, no dead keys</source>
        <translation>フランス、デッドキーなし</translation>
    </message>
    <message>
        <source>Georgia</source>
        <translation>ジョージア</translation>
    </message>
    <message>
        <source>Germany</source>
        <translation>ドイツ</translation>
    </message>
    <message>
        <source>Germany, Neo 2</source>
        <translation>ドイツ、Neo 2</translation>
    </message>
    <message>
        <source>Germany, no dead keys</source>
        <translation>ドイツ、デッドキーなし</translation>
    </message>
    <message>
        <source>Ghana</source>
        <translation>ガーナ</translation>
    </message>
    <message>
        <source>Greece</source>
        <translation>ギリシャ</translation>
    </message>
    <message>
        <source>Greece, polytonic</source>
        <translation>ギリシャ、ポリトニック</translation>
    </message>
    <message>
        <source>Hungary</source>
        <translation>ハンガリー</translation>
    </message>
    <message>
        <source>Iceland</source>
        <translation>アイスランド</translation>
    </message>
    <message>
        <source>India, English</source>
        <translation>インド、英語</translation>
    </message>
    <message>
        <source>Indonesia</source>
        <translation>インドネシア</translation>
    </message>
    <message>
        <source>Iran</source>
        <translation>イラン</translation>
    </message>
    <message>
        <source>Iraq</source>
        <translation>イラク</translation>
    </message>
    <message>
        <source>Ireland</source>
        <translation>アイルランド</translation>
    </message>
    <message>
        <source>Israel</source>
        <translation>イスラエル</translation>
    </message>
    <message>
        <source>Italy</source>
        <translation>イタリア</translation>
    </message>
    <message>
        <source>Japan</source>
        <translation>日本</translation>
    </message>
    <message>
        <source>Kazakhstan</source>
        <translation>カザフスタン</translation>
    </message>
    <message>
        <source>Kenya</source>
        <translation>ケニア</translation>
    </message>
    <message>
        <source>Korea</source>
        <translation>韓国</translation>
    </message>
    <message>
        <source>Korea, 104 keys</source>
        <translation>韓国、104 キー</translation>
    </message>
    <message>
        <source>Kyrgyzstan</source>
        <translation>キルギス</translation>
    </message>
    <message>
        <source>Laos</source>
        <translation>ラオス</translation>
    </message>
    <message>
        <source>Latvia</source>
        <translation>ラトビア</translation>
    </message>
    <message>
        <source>Latvia, apostrophe</source>
        <translation>ラトビア、アポストロフィ</translation>
    </message>
    <message>
        <source>Lithuania</source>
        <translation>リトアニア</translation>
    </message>
    <message>
        <source>Malaysia, Jawi</source>
        <translation>マレーシア、ジャウィ文字</translation>
    </message>
    <message>
        <source>Mali</source>
        <translation>マリ</translation>
    </message>
    <message>
        <source>Malta</source>
        <translation>マルタ</translation>
    </message>
    <message>
        <source>Moldova</source>
        <translation>モルドバ</translation>
    </message>
    <message>
        <source>Mongolia</source>
        <translation>モンゴル</translation>
    </message>
    <message>
        <source>Montenegro</source>
        <translation>モンテネグロ</translation>
    </message>
    <message>
        <source>Morocco</source>
        <translation>モロッコ</translation>
    </message>
    <message>
        <source>Morocco, French</source>
        <translation>モロッコ、フランス語</translation>
    </message>
    <message>
        <source>Myanmar</source>
        <translation>ミャンマー</translation>
    </message>
    <message>
        <source>Nepal</source>
        <translation>ネパール</translation>
    </message>
    <message>
        <source>Netherlands</source>
        <translation>オランダ</translation>
    </message>
    <message>
        <source>New Zealand</source>
        <translation>ニュージーランド</translation>
    </message>
    <message>
        <source>Nigeria</source>
        <translation>ナイジェリア</translation>
    </message>
    <message>
        <source>North Macedonia</source>
        <translation>北マケドニア</translation>
    </message>
    <message>
        <source>Norway</source>
        <translation>ノルウェー</translation>
    </message>
    <message>
        <source>Norway, no dead keys</source>
        <translation>ノルウェー、デッドキーなし</translation>
    </message>
    <message>
        <source>Pakistan</source>
        <translation>パキスタン</translation>
    </message>
    <message>
        <source>Philippines</source>
        <translation>フィリピン</translation>
    </message>
    <message>
        <source>Poland</source>
        <translation>ポーランド</translation>
    </message>
    <message>
        <source>Portugal</source>
        <translation>ポルトガル</translation>
    </message>
    <message>
        <source>Romania</source>
        <translation>ルーマニア</translation>
    </message>
    <message>
        <source>Romania, standard</source>
        <translation>ルーマニア、標準</translation>
    </message>
    <message>
        <source>Russia</source>
        <translation>ロシア</translation>
    </message>
    <message>
        <source>Russia, phonetic</source>
        <translation>ロシア、表音</translation>
    </message>
    <message>
        <source>Senegal</source>
        <translation>セネガル</translation>
    </message>
    <message>
        <source>Serbia</source>
        <translation>セルビア</translation>
    </message>
    <message>
        <source>Serbia, Latin</source>
        <translation>セルビア、ラテン文字</translation>
    </message>
    <message>
        <source>Slovakia</source>
        <translation>スロバキア</translation>
    </message>
    <message>
        <source>Slovakia, QWERTY</source>
        <translation>スロバキア、QWERTY</translation>
    </message>
    <message>
        <source>Slovenia</source>
        <translation>スロベニア</translation>
    </message>
    <message>
        <source>South Africa</source>
        <translation>南アフリカ</translation>
    </message>
    <message>
        <source>Spain</source>
        <translation>スペイン</translation>
    </message>
    <message>
        <source>Spain, no dead keys</source>
        <translation>スペイン、デッドキーなし</translation>
    </message>
    <message>
        <source>Sri Lanka</source>
        <translation>スリランカ</translation>
    </message>
    <message>
        <source>Sweden</source>
        <translation>スウェーデン</translation>
    </message>
    <message>
        <source>Sweden, no dead keys</source>
        <translation>スウェーデン、デッドキーなし</translation>
    </message>
    <message>
        <source>Switzerland, French</source>
        <translation>スイス、フランス語</translation>
    </message>
    <message>
        <source>Switzerland, German</source>
        <translation>スイス、ドイツ語</translation>
    </message>
    <message>
        <source>Switzerland, German, no dead keys</source>
        <translation>スイス、ドイツ語、デッドキーなし</translation>
    </message>
    <message>
        <source>Syria</source>
        <translation>シリア</translation>
    </message>
    <message>
        <source>Taiwan</source>
        <translation>台湾</translation>
    </message>
    <message>
        <source>Tajikistan</source>
        <translation>タジキスタン</translation>
    </message>
    <message>
        <source>Tanzania</source>
        <translation>タンザニア</translation>
    </message>
    <message>
        <source>Thailand</source>
        <translation>タイ</translation>
    </message>
    <message>
        <source>Togo</source>
        <translation>トーゴ</translation>
    </message>
    <message>
        <source>Turkey</source>
        <translation>トルコ</translation>
    </message>
    <message>
        <source>Turkey, F</source>
        <translation>トルコ、F</translation>
    </message>
    <message>
        <source>Turkmenistan</source>
        <translation>トルクメニスタン</translation>
    </message>
    <message>
        <source>Ukraine</source>
        <translation>ウクライナ</translation>
    </message>
    <message>
        <source>United Kingdom</source>
        <translation>英国</translation>
    </message>
    <message>
        <source>United Kingdom, Dvorak</source>
        <translation>英国、Dvorak</translation>
    </message>
    <message>
        <source>United Kingdom, extended</source>
        <translation>英国、拡張</translation>
    </message>
    <message>
        <source>United States</source>
        <translation>米国</translation>
    </message>
    <message>
        <source>United States, Colemak</source>
        <translation>米国、Colemak</translation>
    </message>
    <message>
        <source>United States, Dvorak</source>
        <translation>米国、Dvorak</translation>
    </message>
    <message>
        <source>United States, international</source>
        <translation>米国、国際</translation>
    </message>
    <message>
        <source>United States, international, with AltGr</source>
        <translation>米国、国際、AltGr 付き</translation>
    </message>
    <message>
        <source>Uzbekistan</source>
        <translation>ウズベキスタン</translation>
    </message>
    <message>
        <source>Uzbekistan, Latin</source>
        <translation>ウズベキスタン、ラテン文字</translation>
    </message>
    <message>
        <source>Vietnam</source>
        <translation>ベトナム</translation>
    </message>
</context>
<context>
    <name>GroupCombo</name>
    <message>
        <source>Group: </source>
        <translation>グループ: </translation>
    </message>
</context>
<context>
    <name>KbdAccessible</name>
    <message>
        <source>Keyboard</source>
        <translation>キーボード</translation>
    </message>
</context>
<context>
    <name>KbdApp</name>
    <message>
        <source>Arvane Virtual Keyboard</source>
        <translation>Arvane 仮想キーボード</translation>
    </message>
    <message>
        <source>Arvane Trial Keyboard</source>
        <translation>Arvane 試用キーボード</translation>
    </message>
</context>
<context>
    <name>KbdGeometry</name>
    <message>
        <source>Model:  %1</source>
        <translation>モデル:  %1</translation>
    </message>
    <message>
        <source>Layout:  %1</source>
        <translation>配列:  %1</translation>
    </message>
    <message>
        <source>Variant:  %1</source>
        <translation>バリアント:  %1</translation>
    </message>
    <message>
        <source>Options:  %1</source>
        <translation>オプション:  %1</translation>
    </message>
</context>
<context>
    <name>KbdKey</name>
    <message>
        <source>Details about this key:</source>
        <translation>このキーの詳細:</translation>
    </message>
    <message>
        <source>X11 Identity:  Name=&apos;%1&apos;, Code=0x%2</source>
        <translation>X11 識別情報:  名前=&apos;%1&apos;、コード=0x%2</translation>
    </message>
    <message>
        <source>Key symbol table:</source>
        <translation>キーシンボル表:</translation>
    </message>
    <message>
        <source>
   symbol[%1,%2]=0x%3=%4=%5</source>
        <translation>
   シンボル[%1,%2]=0x%3=%4=%5</translation>
    </message>
    <message>
        <source>
Modifier %1=0x%2</source>
        <translation>
修飾キー %1=0x%2</translation>
    </message>
    <message>
        <source>
Lock Modifier %1=0x%2</source>
        <translation>
ロック修飾キー %1=0x%2</translation>
    </message>
</context>
<context>
    <name>KeyAccessible</name>
    <message>
        <source>with Shift: %1</source>
        <translation>シフト時: %1</translation>
    </message>
    <message>
        <source>key %1</source>
        <translation>キー %1</translation>
    </message>
</context>
<context>
    <name>KeycapCombo</name>
    <message>
        <source>Keycap Display: </source>
        <translation>キートップ表示: </translation>
    </message>
    <message>
        <source>Active Character Only</source>
        <translation>現在の文字のみ</translation>
    </message>
    <message>
        <source>Multiple Characters</source>
        <translation>複数の文字</translation>
    </message>
    <message>
        <source>Keycap display mode</source>
        <translation>キートップの表示モード</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Layout: </source>
        <translation>配列: </translation>
    </message>
    <message>
        <source>Print</source>
        <translation>印刷</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>SpokenName</name>
    <message>
        <source>Space</source>
        <translation>スペース</translation>
    </message>
    <message>
        <source>no-break space</source>
        <translation>ノーブレークスペース</translation>
    </message>
    <message>
        <source>soft hyphen</source>
        <translation>ソフトハイフン</translation>
    </message>
    <message>
        <source>double arrow left and right</source>
        <translation>左右二重矢印</translation>
    </message>
    <message>
        <source>double arrow right</source>
        <translation>右向き二重矢印</translation>
    </message>
    <message>
        <source>arrow left</source>
        <translation>左向き矢印</translation>
    </message>
    <message>
        <source>arrow up</source>
        <translation>上向き矢印</translation>
    </message>
    <message>
        <source>arrow right</source>
        <translation>右向き矢印</translation>
    </message>
    <message>
        <source>arrow down</source>
        <translation>下向き矢印</translation>
    </message>
    <message>
        <source>Alt Gr</source>
        <translation>Alt Gr</translation>
    </message>
    <message>
        <source>next layout</source>
        <translation>次の配列</translation>
    </message>
    <message>
        <source>previous layout</source>
        <translation>前の配列</translation>
    </message>
    <message>
        <source>Back Tab</source>
        <translation>バックタブ</translation>
    </message>
    <message>
        <source>dead grave</source>
        <translation>デッドキー グレーブ</translation>
    </message>
    <message>
        <source>dead acute</source>
        <translation>デッドキー アキュート</translation>
    </message>
    <message>
        <source>dead circumflex</source>
        <translation>デッドキー サーカムフレックス</translation>
    </message>
    <message>
        <source>dead tilde</source>
        <translation>デッドキー チルダ</translation>
    </message>
    <message>
        <source>dead macron</source>
        <translation>デッドキー マクロン</translation>
    </message>
    <message>
        <source>dead breve</source>
        <translation>デッドキー ブレーヴェ</translation>
    </message>
    <message>
        <source>dead dot above</source>
        <translation>デッドキー 上ドット</translation>
    </message>
    <message>
        <source>dead diaeresis</source>
        <translation>デッドキー ダイエレシス</translation>
    </message>
    <message>
        <source>dead ring above</source>
        <translation>デッドキー 上リング</translation>
    </message>
    <message>
        <source>dead double acute</source>
        <translation>デッドキー ダブルアキュート</translation>
    </message>
    <message>
        <source>dead caron</source>
        <translation>デッドキー キャロン</translation>
    </message>
    <message>
        <source>dead cedilla</source>
        <translation>デッドキー セディーユ</translation>
    </message>
    <message>
        <source>dead ogonek</source>
        <translation>デッドキー オゴネク</translation>
    </message>
    <message>
        <source>dead iota</source>
        <translation>デッドキー イオタ</translation>
    </message>
    <message>
        <source>dead voiced sound mark</source>
        <translation>デッドキー 濁点</translation>
    </message>
    <message>
        <source>dead semi-voiced sound mark</source>
        <translation>デッドキー 半濁点</translation>
    </message>
    <message>
        <source>dead dot below</source>
        <translation>デッドキー 下ドット</translation>
    </message>
    <message>
        <source>dead hook</source>
        <translation>デッドキー フック</translation>
    </message>
    <message>
        <source>dead horn</source>
        <translation>デッドキー ホーン</translation>
    </message>
    <message>
        <source>dead stroke</source>
        <translation>デッドキー ストローク</translation>
    </message>
    <message>
        <source>dead comma above</source>
        <translation>デッドキー 上コンマ</translation>
    </message>
    <message>
        <source>dead reversed comma above</source>
        <translation>デッドキー 上逆コンマ</translation>
    </message>
    <message>
        <source>dead double grave</source>
        <translation>デッドキー ダブルグレーブ</translation>
    </message>
    <message>
        <source>dead ring below</source>
        <translation>デッドキー 下リング</translation>
    </message>
    <message>
        <source>dead macron below</source>
        <translation>デッドキー 下マクロン</translation>
    </message>
    <message>
        <source>dead circumflex below</source>
        <translation>デッドキー 下サーカムフレックス</translation>
    </message>
    <message>
        <source>dead tilde below</source>
        <translation>デッドキー 下チルダ</translation>
    </message>
    <message>
        <source>dead breve below</source>
        <translation>デッドキー 下ブレーヴェ</translation>
    </message>
    <message>
        <source>dead diaeresis below</source>
        <translation>デッドキー 下ダイエレシス</translation>
    </message>
    <message>
        <source>dead inverted breve</source>
        <translation>デッドキー 逆ブレーヴェ</translation>
    </message>
    <message>
        <source>dead comma below</source>
        <translation>デッドキー 下コンマ</translation>
    </message>
    <message>
        <source>dead currency sign</source>
        <translation>デッドキー 通貨記号</translation>
    </message>
    <message>
        <source>dead Greek</source>
        <translation>デッドキー ギリシャ文字</translation>
    </message>
    <message>
        <source>dead hamza</source>
        <translation>デッドキー ハムザ</translation>
    </message>
    <message>
        <source>dead low line</source>
        <translation>デッドキー 下線</translation>
    </message>
    <message>
        <source>dead vertical line above</source>
        <translation>デッドキー 上縦線</translation>
    </message>
    <message>
        <source>dead vertical line below</source>
        <translation>デッドキー 下縦線</translation>
    </message>
    <message>
        <source>dead long solidus</source>
        <translation>デッドキー 長い斜線</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>バックスペース</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>タブ</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>リターン</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>ポーズ</translation>
    </message>
    <message>
        <source>Scroll Lock</source>
        <translation>スクロールロック</translation>
    </message>
    <message>
        <source>System Request</source>
        <translation>システムリクエスト</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>エスケープ</translation>
    </message>
    <message>
        <source>Compose</source>
        <translation>コンポーズ</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>ホーム</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>左方向キー</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>上方向キー</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>右方向キー</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>下方向キー</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>ページアップ</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>ページダウン</translation>
    </message>
    <message>
        <source>End</source>
        <translation>エンド</translation>
    </message>
    <message>
        <source>Print Screen</source>
        <translation>プリントスクリーン</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>インサート</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>メニュー</translation>
    </message>
    <message>
        <source>Break</source>
        <translation>ブレーク</translation>
    </message>
    <message>
        <source>Num Lock</source>
        <translation>ナムロック</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>エンター</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>ビギン</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>デリート</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>シフト</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>コントロール</translation>
    </message>
    <message>
        <source>Caps Lock</source>
        <translation>キャップスロック</translation>
    </message>
    <message>
        <source>Shift Lock</source>
        <translation>シフトロック</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>スーパー</translation>
    </message>
    <message>
        <source>zero-width non-joiner</source>
        <translation>ゼロ幅非接合子</translation>
    </message>
    <message>
        <source>zero-width joiner</source>
        <translation>ゼロ幅接合子</translation>
    </message>
    <message>
        <source>left-to-right mark</source>
        <translation>左から右へのマーク</translation>
    </message>
    <message>
        <source>right-to-left mark</source>
        <translation>右から左へのマーク</translation>
    </message>
    <message>
        <source>narrow no-break space</source>
        <translation>幅の狭いノーブレークスペース</translation>
    </message>
    <message>
        <source>blank</source>
        <translation>割り当てなし</translation>
    </message>
</context>
<context>
    <name>TypingArea</name>
    <message>
        <source>Sample Text Area</source>
        <translation>試し入力欄</translation>
    </message>
</context>
</TS>
