#include "keys/KbdLabelTable.h"
#include "x11/Keysyms.h"

#include <QFile>
#include <QMultiMap>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include <xkbcommon/xkbcommon.h>

namespace {

// One definition of the X keysym headers.
struct Definition {
    QString name; // without XK_ or XF86XK_
    quint32 keysym;
    char32_t character; // from the comment; 0 when it names none
};

quint32 definedValue(const QString& text)
{
    if (text.startsWith(QLatin1String("_EVDEVK(")))
        return 0x10081000 + text.mid(8).chopped(1).toUInt(nullptr, 16);
    return text.toUInt(nullptr, 16);
}

QList<Definition> definitionsIn(const char* header)
{
    static const QRegularExpression form(QStringLiteral(
        "^#define (?:XF86)?XK_(\\w+)\\s+(0x\\w+|_EVDEVK\\(0x\\w+\\))(?:.*\\bU\\+([0-9A-Fa-f]+))?"));
    QFile file(QStringLiteral(KEYSYM_HEADERS "/") + QLatin1String(header));
    QList<Definition> definitions;
    if (!file.open(QIODevice::ReadOnly))
        return definitions;
    while (!file.atEnd()) {
        const auto match = form.match(QString::fromUtf8(file.readLine()));
        if (match.hasMatch())
            definitions.append({match.captured(1), definedValue(match.captured(2)),
                match.captured(3).toUInt(nullptr, 16)});
    }
    return definitions;
}

QString plainLabel(quint32 keysym)
{
    static const KbdLabelTable table;
    return table.label(keysym, QString(), QString());
}

QString message(const Definition& definition, const QString& expected)
{
    return QStringLiteral("%1 (0x%2) is labelled \"%3\", not \"%4\"")
        .arg(definition.name, QString::number(definition.keysym, 16), plainLabel(definition.keysym),
            expected);
}

// Labels that are not what the headers' rule for their kind gives.
struct Exception {
    quint32 keysym;
    const char* name;
    const char* label; // UTF-8
};

constexpr Exception characterExceptions[] = {
    {XK_space, "space", "Space"},
    {XK_KP_Space, "KP_Space", "Space"},
    {XK_downtack, "downtack", "\u22A5"},
    {XK_uptack, "uptack", "\u22A4"},
    {XK_lefttack, "lefttack", "\u22A2"},
    {XK_righttack, "righttack", "\u22A3"},
    {XK_Ocaron, "Ocaron", "\u01D2"},
    {XK_approxeq, "approxeq", "\u2245"},
    // Two marks, for which there is no single character.
    {XK_Thai_maihanakat_maitho, "Thai_maihanakat_maitho", "\u0E31\u0E49"},
};

// Where the typed character of libxkbcommon is not the one that the X keysym list states: the list
// counts.
constexpr Exception typedExceptions[] = {
    {XK_leftanglebracket, "leftanglebracket", "\u2329"},
    {XK_rightanglebracket, "rightanglebracket", "\u232A"},
};

constexpr Exception nameExceptions[] = {
    {XK_ISO_Level3_Shift, "ISO_Level3_Shift", "AltGr"},
    {XK_ISO_Next_Group, "ISO_Next_Group", "NxtGrp"},
    {XK_ISO_Prev_Group, "ISO_Prev_Group", "PrvGrp"},
    {XK_ISO_Left_Tab, "ISO_Left_Tab", "\u21E5"},
    {XK_Pointer_EnableKeys, "Pointer_EnableKeys", "PtrKy"},
    {XF86XK_BackForward, "BackForward", "XF86BackForward"},
    {XF86XK_ClearGrab, "ClearGrab", "Clear\nGrab"},
    {XF86XK_Next_VMode, "Next_VMode", "Next\nVMode"},
    {XF86XK_Prev_VMode, "Prev_VMode", "Prev\nVMode"},
    {XF86XK_Switch_VT_1, "Switch_VT_1", "VT1"},
    {XF86XK_Switch_VT_2, "Switch_VT_2", "VT2"},
    {XF86XK_Switch_VT_3, "Switch_VT_3", "VT3"},
    {XF86XK_Switch_VT_4, "Switch_VT_4", "VT4"},
    {XF86XK_Switch_VT_5, "Switch_VT_5", "VT5"},
    {XF86XK_Switch_VT_6, "Switch_VT_6", "VT6"},
    {XF86XK_Switch_VT_7, "Switch_VT_7", "VT7"},
    {XF86XK_Switch_VT_8, "Switch_VT_8", "VT8"},
    {XF86XK_Switch_VT_9, "Switch_VT_9", "VT9"},
    {XF86XK_Switch_VT_10, "Switch_VT_10", "VT10"},
    {XF86XK_Switch_VT_11, "Switch_VT_11", "VT11"},
    {XF86XK_Switch_VT_12, "Switch_VT_12", "VT12"},
};

template <size_t N>
bool isIn(const Exception (&exceptions)[N], quint32 keysym)
{
    return std::any_of(std::begin(exceptions), std::end(exceptions),
        [keysym](const Exception& exception) { return exception.keysym == keysym; });
}

bool isPrintable(char32_t character)
{
    return character >= 0x20 && character != 0x7f;
}

// Keys that are called by their own names.
bool carriesItsName(const Definition& definition)
{
    static const QRegularExpression own(
        QStringLiteral("^(ISO_|Pointer_|\\w+_Virtual_Screen$|AccessX_|\\w+_Enable$)"));
    return own.match(definition.name).hasMatch();
}

// A keysym's label in the layouts with a language of their own; null where they have the default.
struct NationalLabels {
    const char* name;
    quint32 keysym;
    const char* plain;
    const char* ca;
    const char* br;
    const char* es;
    const char* it;
    const char* de;
    const char* fr;
    const char* fi;
};

constexpr const char* same = nullptr;

// clang-format off
constexpr NationalLabels nationalLabels[] = {
    {"Return", XK_Return, "↵", same, same, same, "↵Invio", same, "↵Entrée", same},
    {"Pause", XK_Pause, "Pause", same, same, "Pausa", "Pausa", same, same, same},
    {"Scroll_Lock", XK_Scroll_Lock, "Scroll\nLock", "Défil", same, "Bloq\nDespl", "Bloc\nScorr", "Rollen\n", "Arrét\nDéfil", same},
    {"Sys_Req", XK_Sys_Req, "SysRq", "Syst", same, "PetSis", "R Sist", "S-Abf", "Syst", same},
    {"Escape", XK_Escape, "Esc", "Échap", same, same, same, same, "Echap", same},
    {"Delete", XK_Delete, "Delete", "Suppr", same, "Supr", "Canc", "Entf", "Suppr", same},
    {"Home", XK_Home, "Home", "↖", same, "Inicio", "↖", "Pos 1", "↖", same},
    {"Prior", XK_Prior, "Page\nUp", "⇞", same, "Re\nPág", "Pag↑", "Bild\n↑", "⇞", same},
    {"Next", XK_Next, "Page\nDown", "⇟", same, "Av\nPág", "Pag↓", "Bild\n↓", "⇟", same},
    {"End", XK_End, "End", "Fin", same, "Fin", "Fine", "Ende", "Fin", same},
    {"Print", XK_Print, "Print\nScrn", "Impr\nécran", same, "Impr\nPant", "Stamp", "Druck", "Impr\nécran", same},
    {"Insert", XK_Insert, "Insert", "Inser", same, same, "Ins", "Einfg", "Inser", same},
    {"Break", XK_Break, "Break", "Attn", same, "Inter", "Inter", "Untbr", "Attn", same},
    {"Num_Lock", XK_Num_Lock, "Num\nLock", "Num", same, "Bloq\nNum", "Bloc\nNum", "Num\n", "Verr\nNum", same},
    {"KP_Enter", XK_KP_Enter, "Enter", "Entr", same, "Intro", "Invio", same, "Entr", same},
    {"KP_Home", XK_KP_Home, "Home", "↖", same, "Inicio", "↖", "Pos 1", "↖", same},
    {"KP_Prior", XK_KP_Prior, "PgUp", "⇞", same, "RePág", "Pag↑", "Bild↑", "⇞", same},
    {"KP_Next", XK_KP_Next, "PgDn", "⇟", same, "AvPág", "Pag↓", "Bild↓", "⇟", same},
    {"KP_End", XK_KP_End, "End", "Fin", same, "Fin", "Fine", "Ende", "Fin", same},
    {"KP_Insert", XK_KP_Insert, "Ins", "Inser", same, same, same, "Einfg", "Inser", same},
    {"KP_Delete", XK_KP_Delete, "Del", "Suppr", same, "Supr", "Canc", "Entf", "Suppr", same},
    {"KP_Multiply", XK_KP_Multiply, "*", same, same, same, same, "×", same, "×"},
    {"KP_Divide", XK_KP_Divide, "/", same, same, same, same, "÷", same, "÷"},
    {"Control_L", XK_Control_L, "Ctrl", same, same, same, same, "Strg", same, same},
    {"Control_R", XK_Control_R, "Ctrl", same, same, same, same, "Strg", same, same},
    {"Caps_Lock", XK_Caps_Lock, "Caps\nLock", "Fix\nMaj", "Fixa", "Bloq\nMayús", "⇬", "⇩", "⇬", same},
    {"ISO_Level3_Shift", XK_ISO_Level3_Shift, "AltGr", "Alt Car", same, same, same, same, same, same},
};
// clang-format on

// The row files, read a second time to compare them with each other.
constexpr quint32 evdevKeysym(quint32 code)
{
    return 0x10081000 + code;
}

struct TextRow {
    quint32 keysym;
    std::u16string_view text;
};

constexpr TextRow textRows[] = {
#include "keys/labels/words.inc"

#include "keys/labels/inputmethods.inc"

#include "keys/labels/deadkeys.inc"

#include "keys/labels/iso.inc"

#include "keys/labels/desktop.inc"

#include "keys/labels/terminal3270.inc"

#include "keys/labels/xf86.inc"

#include "keys/labels/vendor.inc"
};

enum Language { FrenchCanadian, Brazilian, Spanish, Italian, German, French, Finnish };

struct NationalRow {
    quint32 keysym;
    Language language;
    std::u16string_view text;
};

constexpr NationalRow nationalRows[] = {
#include "keys/labels/national.inc"
};

using NationalKey = std::pair<quint32, Language>;

// What the list above says of labels that differ from the default.
QSet<NationalKey> expectedNationalKeys()
{
    QSet<NationalKey> keys;
    for (const NationalLabels& row : nationalLabels) {
        const std::pair<Language, const char*> labels[] = {{FrenchCanadian, row.ca},
            {Brazilian, row.br}, {Spanish, row.es}, {Italian, row.it}, {German, row.de},
            {French, row.fr}, {Finnish, row.fi}};
        for (const auto& [language, label] : labels) {
            if (label != same)
                keys.insert({row.keysym, language});
        }
    }
    return keys;
}

} // namespace

class LabelTableTest : public QObject {
    Q_OBJECT

private slots:
    void everyCharacterOfTheKeysymListIsItsOwnLabel();
    void theLabelsAgreeWithTheCharactersThatTheKeysymsType();
    void aCharacterThatIsLabelledOtherwiseIsSoOnPurpose_data();
    void aCharacterThatIsLabelledOtherwiseIsSoOnPurpose();
    void functionKeysOfTheKeysymListCarryTheirNames();
    void multimediaKeysCarryTheirNamesWithoutPrefix();
    void multimediaKeysOfNewerHeadersCarryTheirNames_data();
    void multimediaKeysOfNewerHeadersCarryTheirNames();
    void aNameThatIsLabelledOtherwiseIsSoOnPurpose_data();
    void aNameThatIsLabelledOtherwiseIsSoOnPurpose();
    void noKeysymWithANameIsLabelledWithItsNumber();
    void latin1AsUnicodeKeysymsIsItsOwnLabel();

    void specialKeysHaveSymbolsOrWords_data();
    void specialKeysHaveSymbolsOrWords();
    void functionKeysAreNumbered();
    void keypadDigitsAreDigits();
    void inputMethodKeysSpeakTheirLanguage_data();
    void inputMethodKeysSpeakTheirLanguage();
    void deadKeysShowTheirAccent_data();
    void deadKeysShowTheirAccent();
    void ofTwoRowsTheLaterOneWins_data();
    void ofTwoRowsTheLaterOneWins();
    void onlyTheIntendedKeysymsHaveTwoRows();

    void aLayoutLabelsItsKeysInItsLanguage_data();
    void aLayoutLabelsItsKeysInItsLanguage();
    void noLanguageHasMoreLabelsThanTheseTestsKnow();
    void aVariantAloneGivesTheLanguage();
    void theLayoutSpeaksWhereTheVariantNamesAnotherLanguage();
    void unknownNamesGiveTheDefault_data();
    void unknownNamesGiveTheDefault();

    void aKeysymWithoutARowFallsBack_data();
    void aKeysymWithoutARowFallsBack();
    void aLabelOutlivesItsTable();
};

void LabelTableTest::everyCharacterOfTheKeysymListIsItsOwnLabel()
{
    const QList<Definition> list = definitionsIn("keysymdef.h");
    QVERIFY(list.size() > 2000);
    QStringList wrong;
    for (const Definition& definition : list) {
        const QString expected(QChar(static_cast<char16_t>(definition.character)));
        // Newer lists name the control codes of editing keys, too.
        if (isPrintable(definition.character) && !isIn(characterExceptions, definition.keysym)
            && plainLabel(definition.keysym) != expected)
            wrong.append(message(definition, expected));
    }
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1Char('\n'))));
}

void LabelTableTest::theLabelsAgreeWithTheCharactersThatTheKeysymsType()
{
    QStringList wrong;
    int compared = 0;
    for (const Definition& definition : definitionsIn("keysymdef.h")) {
        const char32_t typed = xkb_keysym_to_utf32(definition.keysym);
        if (!isPrintable(typed) || isIn(characterExceptions, definition.keysym)
            || isIn(typedExceptions, definition.keysym))
            continue;
        ++compared;
        const QString expected(QChar(static_cast<char16_t>(typed)));
        if (plainLabel(definition.keysym) != expected)
            wrong.append(message(definition, expected));
    }
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1Char('\n'))));
    QVERIFY(compared > 1500);
}

void LabelTableTest::aCharacterThatIsLabelledOtherwiseIsSoOnPurpose_data()
{
    QTest::addColumn<quint32>("keysym");
    QTest::addColumn<QString>("label");
    for (const Exception& exception : characterExceptions)
        QTest::newRow(exception.name) << exception.keysym << QString(exception.label);
    for (const Exception& exception : typedExceptions)
        QTest::newRow(exception.name) << exception.keysym << QString(exception.label);
}

void LabelTableTest::aCharacterThatIsLabelledOtherwiseIsSoOnPurpose()
{
    QFETCH(quint32, keysym);
    QFETCH(QString, label);
    QCOMPARE(plainLabel(keysym), label);
    QVERIFY(label != QString(QChar(static_cast<char16_t>(xkb_keysym_to_utf32(keysym)))));
}

void LabelTableTest::functionKeysOfTheKeysymListCarryTheirNames()
{
    QStringList wrong;
    int compared = 0;
    for (const Definition& definition : definitionsIn("keysymdef.h")) {
        if (!carriesItsName(definition) || isIn(nameExceptions, definition.keysym))
            continue;
        ++compared;
        if (plainLabel(definition.keysym) != definition.name)
            wrong.append(message(definition, definition.name));
    }
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1Char('\n'))));
    QVERIFY(compared > 75);
}

void LabelTableTest::multimediaKeysCarryTheirNamesWithoutPrefix()
{
    // A keysym that the header defines under several names may carry any of them.
    QMultiMap<quint32, QString> names;
    for (const Definition& definition : definitionsIn("XF86keysym.h")) {
        if (!isIn(nameExceptions, definition.keysym))
            names.insert(definition.keysym, definition.name);
    }
    QVERIFY(names.size() > 250);
    QStringList wrong;
    for (const quint32 keysym : names.uniqueKeys()) {
        if (!names.contains(keysym, plainLabel(keysym)))
            wrong.append(message({names.value(keysym), keysym, 0}, names.value(keysym)));
    }
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1Char('\n'))));
}

// Whether the installed headers name them or not.
void LabelTableTest::multimediaKeysOfNewerHeadersCarryTheirNames_data()
{
    QTest::addColumn<quint32>("keysym");
    QTest::addColumn<QString>("label");
    QTest::newRow("first of the camera") << evdevKeysym(0x24B) << "CameraAccessEnable";
    QTest::newRow("last of the camera") << evdevKeysym(0x24D) << "CameraAccessToggle";
    QTest::newRow("first of navigation") << evdevKeysym(0x27B) << "NextElement";
    QTest::newRow("last of navigation") << evdevKeysym(0x288) << "NavInfo";
}

void LabelTableTest::multimediaKeysOfNewerHeadersCarryTheirNames()
{
    QFETCH(quint32, keysym);
    QTEST(plainLabel(keysym), "label");
}

void LabelTableTest::aNameThatIsLabelledOtherwiseIsSoOnPurpose_data()
{
    QTest::addColumn<quint32>("keysym");
    QTest::addColumn<QString>("label");
    for (const Exception& exception : nameExceptions)
        QTest::newRow(exception.name) << exception.keysym << QString(exception.label);
}

void LabelTableTest::aNameThatIsLabelledOtherwiseIsSoOnPurpose()
{
    QFETCH(quint32, keysym);
    QTEST(plainLabel(keysym), "label");
}

void LabelTableTest::noKeysymWithANameIsLabelledWithItsNumber()
{
    QStringList numbered;
    for (const char* header : {"keysymdef.h", "XF86keysym.h"}) {
        const QList<Definition> list = definitionsIn(header);
        QVERIFY(!list.isEmpty());
        for (const Definition& definition : list) {
            if (plainLabel(definition.keysym) == QStringLiteral("Key%1").arg(definition.keysym))
                numbered.append(definition.name);
        }
    }
    QVERIFY2(numbered.isEmpty(), qPrintable(numbered.join(QLatin1Char('\n'))));
}

void LabelTableTest::latin1AsUnicodeKeysymsIsItsOwnLabel()
{
    for (quint32 code = 0x20; code <= 0xff; ++code) {
        if (QChar(code).category() != QChar::Other_Control)
            QCOMPARE(plainLabel(0x1000000 + code), QString(QChar(code)));
    }
}

void LabelTableTest::specialKeysHaveSymbolsOrWords_data()
{
    QTest::addColumn<quint32>("keysym");
    QTest::addColumn<QString>("label");
    QTest::newRow("no symbol") << quint32(0) << "None";
    QTest::newRow("VoidSymbol") << quint32(XK_VoidSymbol) << "Void";
    QTest::newRow("BackSpace") << quint32(XK_BackSpace) << "\u21FD";
    QTest::newRow("Tab") << quint32(XK_Tab) << "\u21E4";
    QTest::newRow("KP_Tab") << quint32(XK_KP_Tab) << "\u21B9";
    QTest::newRow("Linefeed") << quint32(XK_Linefeed) << "Linefeed";
    QTest::newRow("Clear") << quint32(XK_Clear) << "Clear";
    QTest::newRow("Multi_key") << quint32(XK_Multi_key) << "Multi";
    QTest::newRow("Menu") << quint32(XK_Menu) << "\u2338";
    QTest::newRow("Help") << quint32(XK_Help) << "Help";
    QTest::newRow("Shift_L") << quint32(XK_Shift_L) << "\u21E7";
    QTest::newRow("Shift_R") << quint32(XK_Shift_R) << "\u21E7";
    QTest::newRow("Super_L") << quint32(XK_Super_L) << "\u2318";
    QTest::newRow("Super_R") << quint32(XK_Super_R) << "\u2318";
    QTest::newRow("Alt_L") << quint32(XK_Alt_L) << "Alt";
    QTest::newRow("Alt_R") << quint32(XK_Alt_R) << "Alt";
    QTest::newRow("Meta_L") << quint32(XK_Meta_L) << "Meta";
    QTest::newRow("Meta_R") << quint32(XK_Meta_R) << "Meta";
    QTest::newRow("Hyper_L") << quint32(XK_Hyper_L) << "Hyper";
    QTest::newRow("Hyper_R") << quint32(XK_Hyper_R) << "Hyper";
    QTest::newRow("Shift_Lock") << quint32(XK_Shift_Lock) << "Shift\nLock";
    QTest::newRow("Left") << quint32(XK_Left) << "←";
    QTest::newRow("Up") << quint32(XK_Up) << "↑";
    QTest::newRow("Right") << quint32(XK_Right) << "→";
    QTest::newRow("Down") << quint32(XK_Down) << "↓";
    QTest::newRow("KP_Left") << quint32(XK_KP_Left) << "←";
    QTest::newRow("KP_Up") << quint32(XK_KP_Up) << "↑";
    QTest::newRow("KP_Right") << quint32(XK_KP_Right) << "→";
    QTest::newRow("KP_Down") << quint32(XK_KP_Down) << "↓";
    QTest::newRow("Begin") << quint32(XK_Begin) << "Begin";
    QTest::newRow("Select") << quint32(XK_Select) << "Select";
    QTest::newRow("Execute") << quint32(XK_Execute) << "Execute";
    QTest::newRow("Undo") << quint32(XK_Undo) << "Undo";
    QTest::newRow("Redo") << quint32(XK_Redo) << "Redo";
    QTest::newRow("Find") << quint32(XK_Find) << "Find";
    QTest::newRow("Cancel") << quint32(XK_Cancel) << "Cancel";
    QTest::newRow("KP_Equal") << quint32(XK_KP_Equal) << "=";
    QTest::newRow("KP_Add") << quint32(XK_KP_Add) << "+";
    QTest::newRow("KP_Separator") << quint32(XK_KP_Separator) << ",";
    QTest::newRow("KP_Subtract") << quint32(XK_KP_Subtract) << "-";
    QTest::newRow("KP_Decimal") << quint32(XK_KP_Decimal) << ".";
    QTest::newRow("Terminate_Server") << quint32(XK_Terminate_Server) << "Terminate\nServer";
    QTest::newRow("blank") << quint32(XK_blank) << " ";
}

void LabelTableTest::specialKeysHaveSymbolsOrWords()
{
    QFETCH(quint32, keysym);
    QTEST(plainLabel(keysym), "label");
}

void LabelTableTest::functionKeysAreNumbered()
{
    for (quint32 i = 0; i < 35; ++i)
        QCOMPARE(plainLabel(XK_F1 + i), QStringLiteral("F%1").arg(i + 1));
    for (quint32 i = 0; i < 4; ++i)
        QCOMPARE(plainLabel(XK_KP_F1 + i), QStringLiteral("F%1").arg(i + 1));
}

void LabelTableTest::keypadDigitsAreDigits()
{
    for (quint32 i = 0; i < 10; ++i)
        QCOMPARE(plainLabel(XK_KP_0 + i), QString::number(i));
}

void LabelTableTest::inputMethodKeysSpeakTheirLanguage_data()
{
    QTest::addColumn<quint32>("keysym");
    QTest::addColumn<QString>("label");
    QTest::newRow("Kanji") << quint32(XK_Kanji) << "漢字";
    QTest::newRow("Muhenkan") << quint32(XK_Muhenkan) << "無変換";
    QTest::newRow("Henkan_Mode") << quint32(XK_Henkan_Mode) << "変換";
    QTest::newRow("Romaji") << quint32(XK_Romaji) << "ローマ字";
    QTest::newRow("Hiragana") << quint32(XK_Hiragana) << "ひらがな";
    QTest::newRow("Katakana") << quint32(XK_Katakana) << "カタカナ";
    QTest::newRow("Hiragana_Katakana") << quint32(XK_Hiragana_Katakana) << "カタカナ\nひらがな";
    QTest::newRow("Zenkaku") << quint32(XK_Zenkaku) << "全角";
    QTest::newRow("Hankaku") << quint32(XK_Hankaku) << "半角";
    QTest::newRow("Zenkaku_Hankaku") << quint32(XK_Zenkaku_Hankaku) << "半角/\n全角";
    QTest::newRow("Touroku") << quint32(XK_Touroku) << "Touroku";
    QTest::newRow("Massyo") << quint32(XK_Massyo) << "Massyo";
    QTest::newRow("Kana_Lock") << quint32(XK_Kana_Lock) << "KanaLock";
    QTest::newRow("Kana_Shift") << quint32(XK_Kana_Shift) << "KanaShift";
    QTest::newRow("Eisu_Shift") << quint32(XK_Eisu_Shift) << "EISUShift";
    QTest::newRow("Eisu_toggle") << quint32(XK_Eisu_toggle) << "英数";
    QTest::newRow("SingleCandidate") << quint32(XK_SingleCandidate) << "SingleCandidate";
    QTest::newRow("Hangul") << quint32(XK_Hangul) << "한/영";
    QTest::newRow("Hangul_Hanja") << quint32(XK_Hangul_Hanja) << "한자";
}

void LabelTableTest::inputMethodKeysSpeakTheirLanguage()
{
    QFETCH(quint32, keysym);
    QTEST(plainLabel(keysym), "label");
}

void LabelTableTest::deadKeysShowTheirAccent_data()
{
    QTest::addColumn<quint32>("keysym");
    QTest::addColumn<QString>("label");
    QTest::newRow("grave") << quint32(XK_dead_grave) << "`";
    QTest::newRow("acute") << quint32(XK_dead_acute) << "\u00B4";
    QTest::newRow("circumflex") << quint32(XK_dead_circumflex) << "^";
    QTest::newRow("tilde") << quint32(XK_dead_tilde) << "~";
    QTest::newRow("macron") << quint32(XK_dead_macron) << "\u00AF";
    QTest::newRow("breve") << quint32(XK_dead_breve) << "\u02D8";
    QTest::newRow("abovedot") << quint32(XK_dead_abovedot) << "\u02D9";
    QTest::newRow("diaeresis") << quint32(XK_dead_diaeresis) << "\u00A8";
    QTest::newRow("abovering") << quint32(XK_dead_abovering) << "\u02DA";
    QTest::newRow("doubleacute") << quint32(XK_dead_doubleacute) << "\u02DD";
    QTest::newRow("caron") << quint32(XK_dead_caron) << "\u02C7";
    QTest::newRow("cedilla") << quint32(XK_dead_cedilla) << "\u00B8";
    QTest::newRow("ogonek") << quint32(XK_dead_ogonek) << "\u02DB";
    QTest::newRow("iota") << quint32(XK_dead_iota) << "dead_iota";
    QTest::newRow("voiced_sound") << quint32(XK_dead_voiced_sound) << "\u309B";
    QTest::newRow("semivoiced_sound") << quint32(XK_dead_semivoiced_sound) << "\u309C";
    QTest::newRow("belowdot") << quint32(XK_dead_belowdot) << "\u0323";
    QTest::newRow("hook") << quint32(XK_dead_hook) << "\u0309";
    QTest::newRow("horn") << quint32(XK_dead_horn) << "\u031B";
    QTest::newRow("stroke") << quint32(XK_dead_stroke) << "\u0335";
    QTest::newRow("abovecomma") << quint32(XK_dead_abovecomma) << "\u0313";
    QTest::newRow("abovereversedcomma") << quint32(XK_dead_abovereversedcomma) << "\u0314";
    QTest::newRow("doublegrave") << quint32(XK_dead_doublegrave) << "\u0485";
}

void LabelTableTest::deadKeysShowTheirAccent()
{
    QFETCH(quint32, keysym);
    QTEST(plainLabel(keysym), "label");
}

void LabelTableTest::ofTwoRowsTheLaterOneWins_data()
{
    QTest::addColumn<quint32>("keysym");
    QTest::addColumn<QString>("label");
    QTest::newRow("Mode_switch") << quint32(XK_Mode_switch) << "ISO_Group_Shift";
    QTest::newRow("Codeinput") << quint32(XK_Codeinput) << "KanjiBangou";
    QTest::newRow("MultipleCandidate") << quint32(XK_MultipleCandidate) << "ZenKoho";
    QTest::newRow("PreviousCandidate") << quint32(XK_PreviousCandidate) << "MaeKoho";
}

void LabelTableTest::ofTwoRowsTheLaterOneWins()
{
    QFETCH(quint32, keysym);
    QTEST(plainLabel(keysym), "label");
}

void LabelTableTest::onlyTheIntendedKeysymsHaveTwoRows()
{
    QSet<quint32> seen;
    QSet<quint32> twice;
    for (const TextRow& row : textRows) {
        if (seen.contains(row.keysym))
            twice.insert(row.keysym);
        seen.insert(row.keysym);
    }
    QCOMPARE(twice,
        QSet<quint32>({XK_Mode_switch, XK_Codeinput, XK_MultipleCandidate, XK_PreviousCandidate}));
}

void LabelTableTest::aLayoutLabelsItsKeysInItsLanguage_data()
{
    QTest::addColumn<quint32>("keysym");
    QTest::addColumn<QString>("layout");
    QTest::addColumn<QString>("label");
    for (const NationalLabels& row : nationalLabels) {
        const std::pair<const char*, const char*> labels[] = {{"us", row.plain}, {"ca", row.ca},
            {"br", row.br}, {"es", row.es}, {"latam", row.es}, {"it", row.it}, {"de", row.de},
            {"fr", row.fr}, {"fi", row.fi}};
        for (const auto& [layout, label] : labels)
            QTest::addRow("%s in %s", row.name, layout)
                << row.keysym << QString(layout) << QString::fromUtf8(label ? label : row.plain);
    }
}

void LabelTableTest::aLayoutLabelsItsKeysInItsLanguage()
{
    QFETCH(quint32, keysym);
    QFETCH(QString, layout);
    QTEST(KbdLabelTable().label(keysym, layout, QString()), "label");
}

void LabelTableTest::noLanguageHasMoreLabelsThanTheseTestsKnow()
{
    QSet<NationalKey> keys;
    for (const NationalRow& row : nationalRows)
        keys.insert({row.keysym, row.language});
    const QSet<NationalKey> unknown = keys - expectedNationalKeys();
    for (const auto& [keysym, language] : unknown)
        QVERIFY2(
            false, qPrintable(QString("0x%1 in language %2").arg(keysym, 0, 16).arg(language)));
    QCOMPARE(keys, expectedNationalKeys());
}

void LabelTableTest::aVariantAloneGivesTheLanguage()
{
    const KbdLabelTable table;
    QCOMPARE(table.label(XK_Delete, QStringLiteral("ch"), QStringLiteral("fr")), "Suppr");
    QCOMPARE(table.label(XK_Delete, QString(), QStringLiteral("de")), "Entf");
}

void LabelTableTest::theLayoutSpeaksWhereTheVariantNamesAnotherLanguage()
{
    const KbdLabelTable table;
    QCOMPARE(table.label(XK_Delete, QStringLiteral("it"), QStringLiteral("de")), "Canc");
    QCOMPARE(table.label(XK_Control_L, QStringLiteral("it"), QStringLiteral("de")), "Ctrl");
}

void LabelTableTest::unknownNamesGiveTheDefault_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<QString>("variant");
    QTest::newRow("no names") << QString() << QString();
    QTest::newRow("unknown layout") << "gr" << QString();
    QTest::newRow("unknown variant") << "gr"
                                     << "polytonic";
    QTest::newRow("capital letters") << "DE"
                                     << "FR";
    QTest::newRow("layout without such a row") << "fi"
                                               << "nodeadkeys";
}

void LabelTableTest::unknownNamesGiveTheDefault()
{
    QFETCH(QString, layout);
    QFETCH(QString, variant);
    QCOMPARE(KbdLabelTable().label(XK_Delete, layout, variant), "Delete");
}

void LabelTableTest::aKeysymWithoutARowFallsBack_data()
{
    QTest::addColumn<quint32>("keysym");
    QTest::addColumn<QString>("label");
    const auto one = [](char16_t character) { return QString(QChar(character)); };
    QTest::newRow("control code") << quint32(0x1f) << "Key31";
    QTest::newRow("first printable") << quint32(0x21) << "!";
    QTest::newRow("Latin-1 letter") << quint32(0x41) << "A";
    QTest::newRow("end of Latin-1") << quint32(0xff) << one(0xff);
    QTest::newRow("legacy range, taken as Unicode") << quint32(0x100) << one(0x100);
    QTest::newRow("euro") << quint32(XK_EuroSign) << one(0x20ac);
    QTest::newRow("last of the legacy range") << quint32(0x20ff) << one(0x20ff);
    QTest::newRow("after the legacy range") << quint32(0x2100) << "Key8448";
    QTest::newRow("far after it") << quint32(0x2200) << "Key8704";
    QTest::newRow("before the Unicode range") << quint32(0x1000000) << "Key16777216";
    QTest::newRow("first of the Unicode range") << quint32(0x1000100) << one(0x100);
    QTest::newRow("beyond the basic plane") << quint32(0x101f600) << one(0xf600);
    QTest::newRow("last of the Unicode range") << quint32(0x110ffff) << one(0xffff);
    QTest::newRow("after the Unicode range") << quint32(0x1110000) << "Key17891328";
    QTest::newRow("largest number") << quint32(0xffffffff) << "Key4294967295";
}

void LabelTableTest::aKeysymWithoutARowFallsBack()
{
    QFETCH(quint32, keysym);
    QTEST(plainLabel(keysym), "label");
}

void LabelTableTest::aLabelOutlivesItsTable()
{
    QString label;
    {
        const KbdLabelTable table;
        label = table.label(XK_Scroll_Lock, QStringLiteral("fr"), QString());
    }
    label.append(QLatin1Char('!'));
    QCOMPARE(label, QStringLiteral("Arrét\nDéfil!"));
    QCOMPARE(KbdLabelTable().label(XK_Scroll_Lock, QStringLiteral("fr"), QString()),
        QStringLiteral("Arrét\nDéfil"));
}

QTEST_APPLESS_MAIN(LabelTableTest)

#include "tst_labeltable.moc"
