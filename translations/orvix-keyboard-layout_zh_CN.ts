<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>CKbdSpecSelector</name>
    <message>
        <source>&lt;Custom&gt;</source>
        <translation>&lt;自定义&gt;</translation>
    </message>
    <message>
        <source>Arabic</source>
        <translation>阿拉伯语</translation>
    </message>
    <message>
        <source>Arabic, AZERTY</source>
        <translation>阿拉伯语，AZERTY</translation>
    </message>
    <message>
        <source>Asturian</source>
        <translation>阿斯图里亚斯语</translation>
    </message>
    <message>
        <source>Bengali, India</source>
        <translation>孟加拉语，印度</translation>
    </message>
    <message>
        <source>%1, 105 keys</source>
        <translation>%1，105 键</translation>
    </message>
    <message>
        <source>Berber, Latin</source>
        <translation>柏柏尔语，拉丁字母</translation>
    </message>
    <message>
        <source>Berber, Tifinagh</source>
        <translation>柏柏尔语，提非纳字母</translation>
    </message>
    <message>
        <source>Braille</source>
        <translation>盲文</translation>
    </message>
    <message>
        <source>Breton</source>
        <translation>布列塔尼语</translation>
    </message>
    <message>
        <source>Catalan</source>
        <translation>加泰罗尼亚语</translation>
    </message>
    <message>
        <source>Esperanto</source>
        <translation>世界语</translation>
    </message>
    <message>
        <source>Gujarati</source>
        <translation>古吉拉特语</translation>
    </message>
    <message>
        <source>Hindi, Bolnagri</source>
        <translation>印地语，Bolnagri</translation>
    </message>
    <message>
        <source>Hindi, InScript</source>
        <translation>印地语，InScript</translation>
    </message>
    <message>
        <source>Hindi, phonetic</source>
        <translation>印地语，语音助记</translation>
    </message>
    <message>
        <source>Hindi, WX</source>
        <translation>印地语，WX</translation>
    </message>
    <message>
        <source>Inuktitut</source>
        <translation>因纽特语</translation>
    </message>
    <message>
        <source>Javanese</source>
        <translation>爪哇语</translation>
    </message>
    <message>
        <source>Kannada</source>
        <translation>卡纳达语</translation>
    </message>
    <message>
        <source>Kurdish, Arabic script</source>
        <translation>库尔德语，阿拉伯字母</translation>
    </message>
    <message>
        <source>Kurdish, Latin script</source>
        <translation>库尔德语，拉丁字母</translation>
    </message>
    <message>
        <source>Latin America</source>
        <translation>拉丁美洲</translation>
    </message>
    <message>
        <source>Malayalam</source>
        <translation>马拉雅拉姆语</translation>
    </message>
    <message>
        <source>Maori</source>
        <translation>毛利语</translation>
    </message>
    <message>
        <source>Marathi</source>
        <translation>马拉地语</translation>
    </message>
    <message>
        <source>N&apos;Ko</source>
        <translation>西非书面文字（N&apos;Ko）</translation>
    </message>
    <message>
        <source>Northern Sami</source>
        <translation>北萨米语</translation>
    </message>
    <message>
        <source>Occitan</source>
        <translation>奥克语</translation>
    </message>
    <message>
        <source>Odia</source>
        <translation>奥里亚语</translation>
    </message>
    <message>
        <source>Pashto</source>
        <translation>普什图语</translation>
    </message>
    <message>
        <source>Punjabi</source>
        <translation>旁遮普语</translation>
    </message>
    <message>
        <source>Scottish Gaelic</source>
        <translation>苏格兰盖尔语</translation>
    </message>
    <message>
        <source>Tamil, India</source>
        <translation>泰米尔语，印度</translation>
    </message>
    <message>
        <source>Tamil, Sri Lanka</source>
        <translation>泰米尔语，斯里兰卡</translation>
    </message>
    <message>
        <source>Tatar</source>
        <translation>鞑靼语</translation>
    </message>
    <message>
        <source>Telugu</source>
        <translation>泰卢固语</translation>
    </message>
    <message>
        <source>Tibetan</source>
        <translation>藏语</translation>
    </message>
    <message>
        <source>Urdu, India</source>
        <translation>乌尔都语，印度</translation>
    </message>
    <message>
        <source>Uyghur</source>
        <translation>维吾尔语</translation>
    </message>
    <message>
        <source>Arabic, with US English</source>
        <translation>阿拉伯语，带英语（美国）</translation>
    </message>
    <message>
        <source>Bulgaria, with US English</source>
        <translation>保加利亚，带英语（美国）</translation>
    </message>
    <message>
        <source>Greece, with US English</source>
        <translation>希腊，带英语（美国）</translation>
    </message>
    <message>
        <source>Iran, with US English</source>
        <translation>伊朗，带英语（美国）</translation>
    </message>
    <message>
        <source>Israel, with US English</source>
        <translation>以色列，带英语（美国）</translation>
    </message>
    <message>
        <source>Russia, with US English</source>
        <translation>俄罗斯，带英语（美国）</translation>
    </message>
    <message>
        <source>Thailand, with US English</source>
        <translation>泰国，带英语（美国）</translation>
    </message>
    <message>
        <source>Ukraine, with US English</source>
        <translation>乌克兰，带英语（美国）</translation>
    </message>
    <message>
        <source>Afghanistan</source>
        <translation>阿富汗</translation>
    </message>
    <message>
        <source>Albania</source>
        <translation>阿尔巴尼亚</translation>
    </message>
    <message>
        <source>Algeria</source>
        <translation>阿尔及利亚</translation>
    </message>
    <message>
        <source>Armenia</source>
        <translation>亚美尼亚</translation>
    </message>
    <message>
        <source>Australia</source>
        <translation>澳大利亚</translation>
    </message>
    <message>
        <source>Austria</source>
        <translation>奥地利</translation>
    </message>
    <message>
        <source>Azerbaijan</source>
        <translation>阿塞拜疆</translation>
    </message>
    <message>
        <source>Bangladesh</source>
        <translation>孟加拉国</translation>
    </message>
    <message>
        <source>Bangladesh, Probhat</source>
        <translation>孟加拉国，Probhat</translation>
    </message>
    <message>
        <source>Belarus</source>
        <translation>白俄罗斯</translation>
    </message>
    <message>
        <source>Belgium</source>
        <translation>比利时</translation>
    </message>
    <message>
        <source>Bhutan</source>
        <translation>不丹</translation>
    </message>
    <message>
        <source>Bosnia and Herzegovina</source>
        <translation>波斯尼亚和黑塞哥维那</translation>
    </message>
    <message>
        <source>Botswana</source>
        <translation>博茨瓦纳</translation>
    </message>
    <message>
        <source>Brazil</source>
        <translation>巴西</translation>
    </message>
    <message>
        <source>Bulgaria</source>
        <translation>保加利亚</translation>
    </message>
    <message>
        <source>Bulgaria, phonetic</source>
        <translation>保加利亚，语音助记</translation>
    </message>
    <message>
        <source>Cambodia</source>
        <translation>柬埔寨</translation>
    </message>
    <message>
        <source>Cameroon</source>
        <translation>喀麦隆</translation>
    </message>
    <message>
        <source>Canada, English</source>
        <translation>加拿大，英语</translation>
    </message>
    <message>
        <source>Canada, French</source>
        <translation>加拿大，法语</translation>
    </message>
    <message>
        <source>Canada, multilingual</source>
        <translation>加拿大，多语言</translation>
    </message>
    <message>
        <source>China</source>
        <translation>中国</translation>
    </message>
    <message>
        <source>Croatia</source>
        <translation>克罗地亚</translation>
    </message>
    <message>
        <source>Czechia</source>
        <translation>捷克</translation>
    </message>
    <message>
        <source>Czechia, QWERTY</source>
        <translation>捷克，QWERTY</translation>
    </message>
    <message>
        <source>Denmark</source>
        <translation>丹麦</translation>
    </message>
    <message>
        <source>Denmark, no dead keys</source>
        <translation>丹麦，无死键</translation>
    </message>
    <message>
        <source>DR Congo</source>
        <translation>刚果民主共和国</translation>
    </message>
    <message>
        <source>Egypt</source>
        <translation>埃及</translation>
    </message>
    <message>
        <source>Estonia</source>
        <translation>爱沙尼亚</translation>
    </message>
    <message>
        <source>Ethiopia</source>
        <translation>埃塞俄比亚</translation>
    </message>
    <message>
        <source>Faroe Islands</source>
        <translation>法罗群岛</translation>
    </message>
    <message>
        <source>Finland</source>
        <translation>芬兰</translation>
    </message>
    <message>
        <source>France</source>
        <translation>法国</translation>
    </message>
    <message>
        <source>France, alternative</source>
        <translation>法国，替代</translation>
    </message>
    <message>
        <source>France, AZERTY</source>
        <translation>法国，AZERTY</translation>
    </message>
    <message>
        <source>France, BÉPO</source>
        <translation>法国，BÉPO</translation>
    </message>
    <message>
        <source>France, no dead keys</source>
        <translation>法国，无死键</translation>
    </message>
    <message>
        <source>Georgia</source>
        <translation>格鲁吉亚</translation>
    </message>
    <message>
        <source>Germany</source>
        <translation>德国</translation>
    </message>
    <message>
        <source>Germany, Neo 2</source>
        <translation>德国，Neo 2</translation>
    </message>
    <message>
        <source>Germany, no dead keys</source>
        <translation>德国，无死键</translation>
    </message>
    <message>
        <source>Ghana</source>
        <translation>加纳</translation>
    </message>
    <message>
        <source>Greece</source>
        <translation>希腊</translation>
    </message>
    <message>
        <source>Greece, polytonic</source>
        <translation>希腊，多调</translation>
    </message>
    <message>
        <source>Hungary</source>
        <translation>匈牙利</translation>
    </message>
    <message>
        <source>Iceland</source>
        <translation>冰岛</translation>
    </message>
    <message>
        <source>India, English</source>
        <translation>印度，英语</translation>
    </message>
    <message>
        <source>Indonesia</source>
        <translation>印度尼西亚</translation>
    </message>
    <message>
        <source>Iran</source>
        <translation>伊朗</translation>
    </message>
    <message>
        <source>Iraq</source>
        <translation>伊拉克</translation>
    </message>
    <message>
        <source>Ireland</source>
        <translation>爱尔兰</translation>
    </message>
    <message>
        <source>Israel</source>
        <translation>以色列</translation>
    </message>
    <message>
        <source>Italy</source>
        <translation>意大利</translation>
    </message>
    <message>
        <source>Japan</source>
        <translation>日本</translation>
    </message>
    <message>
        <source>Kazakhstan</source>
        <translation>哈萨克斯坦</translation>
    </message>
    <message>
        <source>Kenya</source>
        <translation>肯尼亚</translation>
    </message>
    <message>
        <source>Korea</source>
        <translation>韩国</translation>
    </message>
    <message>
        <source>Korea, 104 keys</source>
        <translation>韩国，104 键</translation>
    </message>
    <message>
        <source>Kyrgyzstan</source>
        <translation>吉尔吉斯斯坦</translation>
    </message>
    <message>
        <source>Laos</source>
        <translation>老挝</translation>
    </message>
    <message>
        <source>Latvia</source>
        <translation>拉脱维亚</translation>
    </message>
    <message>
        <source>Latvia, apostrophe</source>
        <translation>拉脱维亚，撇号</translation>
    </message>
    <message>
        <source>Lithuania</source>
        <translation>立陶宛</translation>
    </message>
    <message>
        <source>Malaysia, Jawi</source>
        <translation>马来西亚，爪夷文</translation>
    </message>
    <message>
        <source>Mali</source>
        <translation>马里</translation>
    </message>
    <message>
        <source>Malta</source>
        <translation>马耳他</translation>
    </message>
    <message>
        <source>Moldova</source>
        <translation>摩尔多瓦</translation>
    </message>
    <message>
        <source>Mongolia</source>
        <translation>蒙古</translation>
    </message>
    <message>
        <source>Montenegro</source>
        <translation>黑山</translation>
    </message>
    <message>
        <source>Morocco</source>
        <translation>摩洛哥</translation>
    </message>
    <message>
        <source>Morocco, French</source>
        <translation>摩洛哥，法语</translation>
    </message>
    <message>
        <source>Myanmar</source>
        <translation>缅甸</translation>
    </message>
    <message>
        <source>Nepal</source>
        <translation>尼泊尔</translation>
    </message>
    <message>
        <source>Netherlands</source>
        <translation>荷兰</translation>
    </message>
    <message>
        <source>New Zealand</source>
        <translation>新西兰</translation>
    </message>
    <message>
        <source>Nigeria</source>
        <translation>尼日利亚</translation>
    </message>
    <message>
        <source>North Macedonia</source>
        <translation>北马其顿</translation>
    </message>
    <message>
        <source>Norway</source>
        <translation>挪威</translation>
    </message>
    <message>
        <source>Norway, no dead keys</source>
        <translation>挪威，无死键</translation>
    </message>
    <message>
        <source>Pakistan</source>
        <translation>巴基斯坦</translation>
    </message>
    <message>
        <source>Philippines</source>
        <translation>菲律宾</translation>
    </message>
    <message>
        <source>Poland</source>
        <translation>波兰</translation>
    </message>
    <message>
        <source>Portugal</source>
        <translation>葡萄牙</translation>
    </message>
    <message>
        <source>Romania</source>
        <translation>罗马尼亚</translation>
    </message>
    <message>
        <source>Romania, standard</source>
        <translation>罗马尼亚，标准</translation>
    </message>
    <message>
        <source>Russia</source>
        <translation>俄罗斯</translation>
    </message>
    <message>
        <source>Russia, phonetic</source>
        <translation>俄罗斯，语音助记</translation>
    </message>
    <message>
        <source>Senegal</source>
        <translation>塞内加尔</translation>
    </message>
    <message>
        <source>Serbia</source>
        <translation>塞尔维亚</translation>
    </message>
    <message>
        <source>Serbia, Latin</source>
        <translation>塞尔维亚，拉丁字母</translation>
    </message>
    <message>
        <source>Slovakia</source>
        <translation>斯洛伐克</translation>
    </message>
    <message>
        <source>Slovakia, QWERTY</source>
        <translation>斯洛伐克，QWERTY</translation>
    </message>
    <message>
        <source>Slovenia</source>
        <translation>斯洛文尼亚</translation>
    </message>
    <message>
        <source>South Africa</source>
        <translation>南非</translation>
    </message>
    <message>
        <source>Spain</source>
        <translation>西班牙</translation>
    </message>
    <message>
        <source>Spain, no dead keys</source>
        <translation>西班牙，无死键</translation>
    </message>
    <message>
        <source>Sri Lanka</source>
        <translation>斯里兰卡</translation>
    </message>
    <message>
        <source>Sweden</source>
        <translation>瑞典</translation>
    </message>
    <message>
        <source>Sweden, no dead keys</source>
        <translation>瑞典，无死键</translation>
    </message>
    <message>
        <source>Switzerland, French</source>
        <translation>瑞士，法语</translation>
    </message>
    <message>
        <source>Switzerland, German</source>
        <translation>瑞士，德语</translation>
    </message>
    <message>
        <source>Switzerland, German, no dead keys</source>
        <translation>瑞士，德语，无死键</translation>
    </message>
    <message>
        <source>Syria</source>
        <translation>叙利亚</translation>
    </message>
    <message>
        <source>Taiwan</source>
        <translation>台湾</translation>
    </message>
    <message>
        <source>Tajikistan</source>
        <translation>塔吉克斯坦</translation>
    </message>
    <message>
        <source>Tanzania</source>
        <translation>坦桑尼亚</translation>
    </message>
    <message>
        <source>Thailand</source>
        <translation>泰国</translation>
    </message>
    <message>
        <source>Togo</source>
        <translation>多哥</translation>
    </message>
    <message>
        <source>Turkey</source>
        <translation>土耳其</translation>
    </message>
    <message>
        <source>Turkey, F</source>
        <translation>土耳其，F</translation>
    </message>
    <message>
        <source>Turkmenistan</source>
        <translation>土库曼斯坦</translation>
    </message>
    <message>
        <source>Ukraine</source>
        <translation>乌克兰</translation>
    </message>
    <message>
        <source>United Kingdom</source>
        <translation>英国</translation>
    </message>
    <message>
        <source>United Kingdom, Dvorak</source>
        <translation>英国，Dvorak</translation>
    </message>
    <message>
        <source>United Kingdom, extended</source>
        <translation>英国，扩展</translation>
    </message>
    <message>
        <source>United States</source>
        <translation>美国</translation>
    </message>
    <message>
        <source>United States, Colemak</source>
        <translation>美国，Colemak</translation>
    </message>
    <message>
        <source>United States, Dvorak</source>
        <translation>美国，Dvorak</translation>
    </message>
    <message>
        <source>United States, international</source>
        <translation>美国，国际</translation>
    </message>
    <message>
        <source>United States, international, with AltGr</source>
        <translation>美国，国际，带 AltGr</translation>
    </message>
    <message>
        <source>Uzbekistan</source>
        <translation>乌兹别克斯坦</translation>
    </message>
    <message>
        <source>Uzbekistan, Latin</source>
        <translation>乌兹别克斯坦，拉丁字母</translation>
    </message>
    <message>
        <source>Vietnam</source>
        <translation>越南</translation>
    </message>
</context>
<context>
    <name>GroupCombo</name>
    <message>
        <source>Group: </source>
        <translation>组： </translation>
    </message>
</context>
<context>
    <name>KbdAccessible</name>
    <message>
        <source>Keyboard</source>
        <translation>键盘</translation>
    </message>
</context>
<context>
    <name>KbdApp</name>
    <message>
        <source>Arvane Virtual Keyboard</source>
        <translation>Arvane 虚拟键盘</translation>
    </message>
    <message>
        <source>Arvane Trial Keyboard</source>
        <translation>Arvane 试用键盘</translation>
    </message>
</context>
<context>
    <name>KbdGeometry</name>
    <message>
        <source>Model:  %1</source>
        <translation>型号：  %1</translation>
    </message>
    <message>
        <source>Layout:  %1</source>
        <translation>布局：  %1</translation>
    </message>
    <message>
        <source>Variant:  %1</source>
        <translation>变体：  %1</translation>
    </message>
    <message>
        <source>Options:  %1</source>
        <translation>选项：  %1</translation>
    </message>
</context>
<context>
    <name>KbdKey</name>
    <message>
        <source>Details about this key:</source>
        <translation>此键的详细信息：</translation>
    </message>
    <message>
        <source>X11 Identity:  Name=&apos;%1&apos;, Code=0x%2</source>
        <translation>X11 标识：  名称=&apos;%1&apos;，代码=0x%2</translation>
    </message>
    <message>
        <source>Key symbol table:</source>
        <translation>键符号表：</translation>
    </message>
    <message>
        <source>
   symbol[%1,%2]=0x%3=%4=%5</source>
        <translation>
   符号[%1,%2]=0x%3=%4=%5</translation>
    </message>
    <message>
        <source>
Modifier %1=0x%2</source>
        <translation>
修饰键 %1=0x%2</translation>
    </message>
    <message>
        <source>
Lock Modifier %1=0x%2</source>
        <translation>
锁定修饰键 %1=0x%2</translation>
    </message>
</context>
<context>
    <name>KeyAccessible</name>
    <message>
        <source>with Shift: %1</source>
        <translation>按住 Shift：%1</translation>
    </message>
    <message>
        <source>key %1</source>
        <translation>键 %1</translation>
    </message>
</context>
<context>
    <name>KeycapCombo</name>
    <message>
        <source>Keycap Display: </source>
        <translation>键帽显示： </translation>
    </message>
    <message>
        <source>Active Character Only</source>
        <translation>仅当前字符</translation>
    </message>
    <message>
        <source>Multiple Characters</source>
        <translation>多个字符</translation>
    </message>
    <message>
        <source>Keycap display mode</source>
        <translation>键帽显示模式</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Layout: </source>
        <translation>布局： </translation>
    </message>
    <message>
        <source>Print</source>
        <translation>打印</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>SpokenName</name>
    <message>
        <source>Space</source>
        <translation>空格</translation>
    </message>
    <message>
        <source>no-break space</source>
        <translation>不换行空格</translation>
    </message>
    <message>
        <source>soft hyphen</source>
        <translation>软连字符</translation>
    </message>
    <message>
        <source>double arrow left and right</source>
        <translation>左右双箭头</translation>
    </message>
    <message>
        <source>double arrow right</source>
        <translation>向右双箭头</translation>
    </message>
    <message>
        <source>arrow left</source>
        <translation>向左箭头</translation>
    </message>
    <message>
        <source>arrow up</source>
        <translation>向上箭头</translation>
    </message>
    <message>
        <source>arrow right</source>
        <translation>向右箭头</translation>
    </message>
    <message>
        <source>arrow down</source>
        <translation>向下箭头</translation>
    </message>
    <message>
        <source>Alt Gr</source>
        <translation>Alt Gr</translation>
    </message>
    <message>
        <source>next layout</source>
        <translation>下一个布局</translation>
    </message>
    <message>
        <source>previous layout</source>
        <translation>上一个布局</translation>
    </message>
    <message>
        <source>Back Tab</source>
        <translation>反向 Tab</translation>
    </message>
    <message>
        <source>dead grave</source>
        <translation>死键 抑音符</translation>
    </message>
    <message>
        <source>dead acute</source>
        <translation>死键 尖音符</translation>
    </message>
    <message>
        <source>dead circumflex</source>
        <translation>死键 扬抑符</translation>
    </message>
    <message>
        <source>dead tilde</source>
        <translation>死键 波浪符</translation>
    </message>
    <message>
        <source>dead macron</source>
        <translation>死键 长音符</translation>
    </message>
    <message>
        <source>dead breve</source>
        <translation>死键 短音符</translation>
    </message>
    <message>
        <source>dead dot above</source>
        <translation>死键 上点</translation>
    </message>
    <message>
        <source>dead diaeresis</source>
        <translation>死键 分音符</translation>
    </message>
    <message>
        <source>dead ring above</source>
        <translation>死键 上圆圈</translation>
    </message>
    <message>
        <source>dead double acute</source>
        <translation>死键 双尖音符</translation>
    </message>
    <message>
        <source>dead caron</source>
        <translation>死键 抑扬符</translation>
    </message>
    <message>
        <source>dead cedilla</source>
        <translation>死键 软音符</translation>
    </message>
    <message>
        <source>dead ogonek</source>
        <translation>死键 反尾形符</translation>
    </message>
    <message>
        <source>dead iota</source>
        <translation>死键 约塔</translation>
    </message>
    <message>
        <source>dead voiced sound mark</source>
        <translation>死键 浊音符</translation>
    </message>
    <message>
        <source>dead semi-voiced sound mark</source>
        <translation>死键 半浊音符</translation>
    </message>
    <message>
        <source>dead dot below</source>
        <translation>死键 下点</translation>
    </message>
    <message>
        <source>dead hook</source>
        <translation>死键 钩符</translation>
    </message>
    <message>
        <source>dead horn</source>
        <translation>死键 角符</translation>
    </message>
    <message>
        <source>dead stroke</source>
        <translation>死键 横杠</translation>
    </message>
    <message>
        <source>dead comma above</source>
        <translation>死键 上逗号</translation>
    </message>
    <message>
        <source>dead reversed comma above</source>
        <translation>死键 上反逗号</translation>
    </message>
    <message>
        <source>dead double grave</source>
        <translation>死键 双抑音符</translation>
    </message>
    <message>
        <source>dead ring below</source>
        <translation>死键 下圆圈</translation>
    </message>
    <message>
        <source>dead macron below</source>
        <translation>死键 下长音符</translation>
    </message>
    <message>
        <source>dead circumflex below</source>
        <translation>死键 下扬抑符</translation>
    </message>
    <message>
        <source>dead tilde below</source>
        <translation>死键 下波浪符</translation>
    </message>
    <message>
        <source>dead breve below</source>
        <translation>死键 下短音符</translation>
    </message>
    <message>
        <source>dead diaeresis below</source>
        <translation>死键 下分音符</translation>
    </message>
    <message>
        <source>dead inverted breve</source>
        <translation>死键 倒短音符</translation>
    </message>
    <message>
        <source>dead comma below</source>
        <translation>死键 下逗号</translation>
    </message>
    <message>
        <source>dead currency sign</source>
        <translation>死键 货币符号</translation>
    </message>
    <message>
        <source>dead Greek</source>
        <translation>死键 希腊字母</translation>
    </message>
    <message>
        <source>dead hamza</source>
        <translation>死键 海姆宰</translation>
    </message>
    <message>
        <source>dead low line</source>
        <translation>死键 下划线</translation>
    </message>
    <message>
        <source>dead vertical line above</source>
        <translation>死键 上竖线</translation>
    </message>
    <message>
        <source>dead vertical line below</source>
        <translation>死键 下竖线</translation>
    </message>
    <message>
        <source>dead long solidus</source>
        <translation>死键 长斜线</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>退格</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>回车</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>Scroll Lock</source>
        <translation>滚动锁定</translation>
    </message>
    <message>
        <source>System Request</source>
        <translation>系统请求</translation>
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
        <translation>Home</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>左方向键</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>上方向键</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>右方向键</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>下方向键</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>向上翻页</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>向下翻页</translation>
    </message>
    <message>
        <source>End</source>
        <translation>End</translation>
    </message>
    <message>
        <source>Print Screen</source>
        <translation>打印屏幕</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>插入</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>菜单</translation>
    </message>
    <message>
        <source>Break</source>
        <translation>中断</translation>
    </message>
    <message>
        <source>Num Lock</source>
        <translation>数字锁定</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>小键盘 Enter</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Shift</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Control</translation>
    </message>
    <message>
        <source>Caps Lock</source>
        <translation>大写锁定</translation>
    </message>
    <message>
        <source>Shift Lock</source>
        <translation>Shift 锁定</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>zero-width non-joiner</source>
        <translation>零宽不连字</translation>
    </message>
    <message>
        <source>zero-width joiner</source>
        <translation>零宽连字</translation>
    </message>
    <message>
        <source>left-to-right mark</source>
        <translation>从左到右标记</translation>
    </message>
    <message>
        <source>right-to-left mark</source>
        <translation>从右到左标记</translation>
    </message>
    <message>
        <source>narrow no-break space</source>
        <translation>窄不换行空格</translation>
    </message>
    <message>
        <source>blank</source>
        <translation>未分配</translation>
    </message>
</context>
<context>
    <name>TypingArea</name>
    <message>
        <source>Sample Text Area</source>
        <translation>示例文本区</translation>
    </message>
</context>
</TS>
