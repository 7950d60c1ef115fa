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

struct KnownLabel {
    quint32 keysym;
    const char* name;
    const char* label; // UTF-8
};

// Labels that are not what the headers' rule for their kind gives.
constexpr KnownLabel characterExceptions[] = {
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
constexpr KnownLabel typedExceptions[] = {
    {XK_leftanglebracket, "leftanglebracket", "\u2329"},
    {XK_rightanglebracket, "rightanglebracket", "\u232A"},
};

constexpr KnownLabel nameExceptions[] = {
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

constexpr KnownLabel specialKeys[] = {
    {0, "no symbol", "None"},
    {XK_VoidSymbol, "VoidSymbol", "Void"},
    {XK_BackSpace, "BackSpace", "\u21FD"},
    {XK_Tab, "Tab", "\u21E4"},
    {XK_KP_Tab, "KP_Tab", "\u21B9"},
    {XK_Linefeed, "Linefeed", "Linefeed"},
    {XK_Clear, "Clear", "Clear"},
    {XK_Multi_key, "Multi_key", "Multi"},
    {XK_Menu, "Menu", "\u2338"},
    {XK_Help, "Help", "Help"},
    {XK_Shift_L, "Shift_L", "\u21E7"},
    {XK_Shift_R, "Shift_R", "\u21E7"},
    {XK_Super_L, "Super_L", "\u2318"},
    {XK_Super_R, "Super_R", "\u2318"},
    {XK_Alt_L, "Alt_L", "Alt"},
    {XK_Alt_R, "Alt_R", "Alt"},
    {XK_Meta_L, "Meta_L", "Meta"},
    {XK_Meta_R, "Meta_R", "Meta"},
    {XK_Hyper_L, "Hyper_L", "Hyper"},
    {XK_Hyper_R, "Hyper_R", "Hyper"},
    {XK_Shift_Lock, "Shift_Lock", "Shift\nLock"},
    {XK_Left, "Left", "←"},
    {XK_Up, "Up", "↑"},
    {XK_Right, "Right", "→"},
    {XK_Down, "Down", "↓"},
    {XK_KP_Left, "KP_Left", "←"},
    {XK_KP_Up, "KP_Up", "↑"},
    {XK_KP_Right, "KP_Right", "→"},
    {XK_KP_Down, "KP_Down", "↓"},
    {XK_Begin, "Begin", "Begin"},
    {XK_Select, "Select", "Select"},
    {XK_Execute, "Execute", "Execute"},
    {XK_Undo, "Undo", "Undo"},
    {XK_Redo, "Redo", "Redo"},
    {XK_Find, "Find", "Find"},
    {XK_Cancel, "Cancel", "Cancel"},
    {XK_KP_Equal, "KP_Equal", "="},
    {XK_KP_Add, "KP_Add", "+"},
    {XK_KP_Separator, "KP_Separator", ","},
    {XK_KP_Subtract, "KP_Subtract", "-"},
    {XK_KP_Decimal, "KP_Decimal", "."},
    {XK_Terminate_Server, "Terminate_Server", "Terminate\nServer"},
    {XK_blank, "blank", " "},
};

constexpr KnownLabel inputMethodKeys[] = {
    {XK_Kanji, "Kanji", "漢字"},
    {XK_Muhenkan, "Muhenkan", "無変換"},
    {XK_Henkan_Mode, "Henkan_Mode", "変換"},
    {XK_Romaji, "Romaji", "ローマ字"},
    {XK_Hiragana, "Hiragana", "ひらがな"},
    {XK_Katakana, "Katakana", "カタカナ"},
    {XK_Hiragana_Katakana, "Hiragana_Katakana", "カタカナ\nひらがな"},
    {XK_Zenkaku, "Zenkaku", "全角"},
    {XK_Hankaku, "Hankaku", "半角"},
    {XK_Zenkaku_Hankaku, "Zenkaku_Hankaku", "半角/\n全角"},
    {XK_Touroku, "Touroku", "Touroku"},
    {XK_Massyo, "Massyo", "Massyo"},
    {XK_Kana_Lock, "Kana_Lock", "KanaLock"},
    {XK_Kana_Shift, "Kana_Shift", "KanaShift"},
    {XK_Eisu_Shift, "Eisu_Shift", "EISUShift"},
    {XK_Eisu_toggle, "Eisu_toggle", "英数"},
    {XK_SingleCandidate, "SingleCandidate", "SingleCandidate"},
    {XK_Hangul, "Hangul", "한/영"},
    {XK_Hangul_Hanja, "Hangul_Hanja", "한자"},
};

constexpr KnownLabel deadKeys[] = {
    {XK_dead_grave, "grave", "`"}, {XK_dead_acute, "acute", "\u00B4"},
    {XK_dead_circumflex, "circumflex", "^"}, {XK_dead_tilde, "tilde", "~"},
    {XK_dead_macron, "macron", "\u00AF"}, {XK_dead_breve, "breve", "\u02D8"},
    {XK_dead_abovedot, "abovedot", "\u02D9"}, {XK_dead_diaeresis, "diaeresis", "\u00A8"},
    {XK_dead_abovering, "abovering", "\u02DA"}, {XK_dead_doubleacute, "doubleacute", "\u02DD"},
    {XK_dead_caron, "caron", "\u02C7"}, {XK_dead_cedilla, "cedilla", "\u00B8"},
    {XK_dead_ogonek, "ogonek", "\u02DB"}, {XK_dead_iota, "iota", "dead_iota"},
    {XK_dead_voiced_sound, "voiced_sound", "\u309B"},
    {XK_dead_semivoiced_sound, "semivoiced_sound", "\u309C"},
    {XK_dead_belowdot, "belowdot", "\u0323"}, {XK_dead_hook, "hook", "\u0309"},
    {XK_dead_horn, "horn", "\u031B"}, {XK_dead_stroke, "stroke", "\u0335"},
    {XK_dead_abovecomma, "abovecomma", "\u0313"},
    {XK_dead_abovereversedcomma, "abovereversedcomma", "\u0314"},
    {XK_dead_doublegrave, "doublegrave", "\u0485"}, {XK_dead_belowring, "belowring", "˳"},
    {XK_dead_belowmacron, "belowmacron", "ˍ"}, {XK_dead_belowcircumflex, "belowcircumflex", "‸"},
    {XK_dead_belowtilde, "belowtilde", "˷"}, {XK_dead_belowbreve, "belowbreve", "‿"},
    {XK_dead_belowdiaeresis, "belowdiaeresis", "‥"}, {XK_dead_invertedbreve, "invertedbreve", "⁀"},
    {XK_dead_belowcomma, "belowcomma", "‚"}, {XK_dead_currency, "currency", "¤"},
    {XK_dead_lowline, "lowline", "_"}, {XK_dead_aboveverticalline, "aboveverticalline", "ˈ"},
    {XK_dead_belowverticalline, "belowverticalline", "ˌ"},
    {XK_dead_longsolidusoverlay, "longsolidusoverlay", "⁄"}, {XK_dead_a, "a", "dead_a"},
    {XK_dead_A, "A", "dead_A"}, {XK_dead_e, "e", "dead_e"}, {XK_dead_E, "E", "dead_E"},
    {XK_dead_i, "i", "dead_i"}, {XK_dead_I, "I", "dead_I"}, {XK_dead_o, "o", "dead_o"},
    {XK_dead_O, "O", "dead_O"}, {XK_dead_u, "u", "dead_u"}, {XK_dead_U, "U", "dead_U"},
    {XK_dead_small_schwa, "small_schwa", "dead_small_schwa"},
    {XK_dead_capital_schwa, "capital_schwa", "dead_capital_schwa"}, {XK_dead_greek, "greek", "µ"},
    {0xFE8D, "hamza", "\u0621"}, // dead_hamza
};

// Keysyms with two names and a row for each.
constexpr KnownLabel keysymsWithTwoRows[] = {
    {XK_Mode_switch, "Mode_switch", "ISO_Group_Shift"},
    {XK_Codeinput, "Codeinput", "KanjiBangou"},
    {XK_MultipleCandidate, "MultipleCandidate", "ZenKoho"},
    {XK_PreviousCandidate, "PreviousCandidate", "MaeKoho"},
};

// Keys that no rule and none of the lists above has.
constexpr KnownLabel otherKeys[] = {
    {XK_KP_Begin, "KP_Begin", "Begin"},
    {XK_ch, "ch", "ch"},
    {XK_Ch, "Ch", "Ch"},
    {XK_CH, "CH", "CH"},
    {XK_c_h, "c_h", "c’h"},
    {XK_C_h, "C_h", "C’h"},
    {XK_C_H, "C_H", "C’H"},
    {XK_topleftsummation, "topleftsummation", "topleftsummation"},
    {XK_botleftsummation, "botleftsummation", "botleftsummation"},
    {XK_topvertsummationconnector, "topvertsummationconnector", "topvertsummationconnector"},
    {XK_botvertsummationconnector, "botvertsummationconnector", "botvertsummationconnector"},
    {XK_toprightsummation, "toprightsummation", "toprightsummation"},
    {XK_botrightsummation, "botrightsummation", "botrightsummation"},
    {XK_rightmiddlesummation, "rightmiddlesummation", "rightmiddlesummation"},
    {XK_marker, "marker", "marker"},
    {XK_trademarkincircle, "trademarkincircle", "trademarkincircle"},
    {XK_hexagram, "hexagram", "hexagram"},
    {XK_cursor, "cursor", "cursor"},
    {XK_braille_dot_9, "braille_dot_9", "braille_dot_9"},
    {XK_braille_dot_10, "braille_dot_10", "braille_dot_10"},
    {XK_Hangul_Start, "Hangul_Start", "Hangul_Start"},
    {XK_Hangul_End, "Hangul_End", "Hangul_End"},
    {XK_Hangul_Jamo, "Hangul_Jamo", "Hangul_Jamo"},
    {XK_Hangul_Romaja, "Hangul_Romaja", "Hangul_Romaja"},
    {XK_Hangul_Jeonja, "Hangul_Jeonja", "Hangul_Jeonja"},
    {XK_Hangul_Banja, "Hangul_Banja", "Hangul_Banja"},
    {XK_Hangul_PreHanja, "Hangul_PreHanja", "Hangul_PreHanja"},
    {XK_Hangul_PostHanja, "Hangul_PostHanja", "Hangul_PostHanja"},
    {XK_Hangul_Special, "Hangul_Special", "Hangul_Special"},
    {SunXK_FA_Grave, "SunXK_FA_Grave", "`"},
    {SunXK_FA_Circum, "SunXK_FA_Circum", "^"},
    {SunXK_FA_Tilde, "SunXK_FA_Tilde", "~"},
    {SunXK_FA_Acute, "SunXK_FA_Acute", "´"},
    {SunXK_FA_Diaeresis, "SunXK_FA_Diaeresis", "¨"},
    {SunXK_FA_Cedilla, "SunXK_FA_Cedilla", "¸"},
    {SunXK_F36, "SunXK_F36", "F36"},
    {SunXK_F37, "SunXK_F37", "F37"},
    {SunXK_Sys_Req, "SunXK_Sys_Req", "SysRq"},
    {SunXK_Props, "SunXK_Props", "Props"},
    {SunXK_Front, "SunXK_Front", "Front"},
    {SunXK_Copy, "SunXK_Copy", "Copy"},
    {SunXK_Open, "SunXK_Open", "Open"},
    {SunXK_Paste, "SunXK_Paste", "Paste"},
    {SunXK_Cut, "SunXK_Cut", "Cut"},
    {SunXK_PowerSwitch, "SunXK_PowerSwitch", "PowerSwitch"},
    {SunXK_AudioLowerVolume, "SunXK_AudioLowerVolume", "AudioLowerVolume"},
    {SunXK_AudioMute, "SunXK_AudioMute", "AudioMute"},
    {SunXK_AudioRaiseVolume, "SunXK_AudioRaiseVolume", "AudioRaiseVolume"},
    {SunXK_VideoDegauss, "SunXK_VideoDegauss", "VideoDegauss"},
    {SunXK_VideoLowerBrightness, "SunXK_VideoLowerBrightness", "VideoLowerBrightness"},
    {SunXK_VideoRaiseBrightness, "SunXK_VideoRaiseBrightness", "VideoRaiseBrightness"},
    {SunXK_PowerSwitchShift, "SunXK_PowerSwitchShift", "PowerSwitchShift"},
    {0x1000FF6D, "hpSystem", "System"},
    {0x1000FF6F, "hpClearLine", "ClearLine"},
    {0x1000FF70, "hpInsertLine", "InsertLine"},
    {0x1000FF71, "hpDeleteLine", "DeleteLine"},
    {0x1000FF72, "hpInsertChar", "InsertChar"},
    {0x1000FF73, "hpDeleteChar", "DeleteChar"},
};

template <size_t N>
bool isIn(const KnownLabel (&labels)[N], quint32 keysym)
{
    return std::any_of(std::begin(labels), std::end(labels),
        [keysym](const KnownLabel& label) { return label.keysym == keysym; });
}

template <size_t N>
void addRowsOf(const KnownLabel (&labels)[N])
{
    QTest::addColumn<quint32>("keysym");
    QTest::addColumn<QString>("label");
    for (const KnownLabel& label : labels)
        QTest::newRow(label.name) << label.keysym << QString::fromUtf8(label.label);
}

bool isPrintable(char32_t character)
{
    return character >= 0x20 && character != 0x7f;
}

// The label of a key that is called by its own name; null for other keys.
QString ownName(const Definition& definition)
{
    static const QRegularExpression own(
        QStringLiteral("^(ISO_|Pointer_|\\w+_Virtual_Screen$|AccessX_|\\w+_Enable$)"));
    if (definition.name.startsWith(QLatin1String("3270_")))
        return definition.name.mid(5);
    return own.match(definition.name).hasMatch() ? definition.name : QString();
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

bool isFunctionKey(quint32 keysym)
{
    return (keysym >= XK_F1 && keysym <= XK_F35) || (keysym >= XK_KP_F1 && keysym <= XK_KP_F4);
}

// Of XF86keysym.h, also of a newer one than is installed.
bool isMultimediaKey(quint32 keysym)
{
    return (keysym >= 0x1008fe00 && keysym <= 0x1008ffff)
        || (keysym >= evdevKeysym(0) && keysym <= evdevKeysym(0xfff));
}

// Whether one of the lists above says what this keysym is labelled.
bool isListed(quint32 keysym)
{
    const bool isNational = std::any_of(std::begin(nationalLabels), std::end(nationalLabels),
        [keysym](const NationalLabels& row) { return row.keysym == keysym; });
    return isNational || isIn(specialKeys, keysym) || isIn(inputMethodKeys, keysym)
        || isIn(deadKeys, keysym) || isIn(keysymsWithTwoRows, keysym) || isIn(otherKeys, keysym)
        || isIn(characterExceptions, keysym) || isIn(nameExceptions, keysym);
}

enum Language { FrenchCanadian, Brazilian, Spanish, Italian, German, French, Finnish };
constexpr const char* languageNames[] = {
    "French Canadian", "Brazilian", "Spanish", "Italian", "German", "French", "Finnish"};

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
    void otherKeysCarryTheirLabels_data() { addRowsOf(otherKeys); }
    void otherKeysCarryTheirLabels();
    void everyRowHasATestOfItsText();

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
    for (const KnownLabel& exception : characterExceptions)
        QTest::newRow(exception.name) << exception.keysym << QString(exception.label);
    for (const KnownLabel& exception : typedExceptions)
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
        const QString name = ownName(definition);
        if (name.isNull() || isIn(nameExceptions, definition.keysym))
            continue;
        ++compared;
        if (plainLabel(definition.keysym) != name)
            wrong.append(message(definition, name));
    }
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1Char('\n'))));
    QVERIFY(compared > 105);
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
    addRowsOf(nameExceptions);
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
    addRowsOf(specialKeys);
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
    addRowsOf(inputMethodKeys);
}

void LabelTableTest::inputMethodKeysSpeakTheirLanguage()
{
    QFETCH(quint32, keysym);
    QTEST(plainLabel(keysym), "label");
}

void LabelTableTest::deadKeysShowTheirAccent_data()
{
    addRowsOf(deadKeys);
}

void LabelTableTest::deadKeysShowTheirAccent()
{
    QFETCH(quint32, keysym);
    QTEST(plainLabel(keysym), "label");
}

void LabelTableTest::ofTwoRowsTheLaterOneWins_data()
{
    addRowsOf(keysymsWithTwoRows);
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
    QSet<quint32> intended;
    for (const KnownLabel& label : keysymsWithTwoRows)
        intended.insert(label.keysym);
    QCOMPARE(twice, intended);
}

void LabelTableTest::otherKeysCarryTheirLabels()
{
    QFETCH(quint32, keysym);
    QTEST(plainLabel(keysym), "label");
}

// A keysym that this test names gets a row in one of the lists above, otherKeys if no other fits.
void LabelTableTest::everyRowHasATestOfItsText()
{
    QSet<quint32> named;
    for (const Definition& definition : definitionsIn("keysymdef.h")) {
        if (!ownName(definition).isNull())
            named.insert(definition.keysym);
    }
    QStringList untested;
    for (const TextRow& row : textRows) {
        if (!named.contains(row.keysym) && !isFunctionKey(row.keysym)
            && !isMultimediaKey(row.keysym) && !isListed(row.keysym))
            untested.append(QStringLiteral("0x%1 \"%2\"").arg(row.keysym, 0, 16).arg(row.text));
    }
    QVERIFY2(untested.isEmpty(), qUtf8Printable(untested.join(QLatin1String(", "))));
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
        QFAIL(qPrintable(QString("nationalLabels has no label of 0x%1 in %2")
                .arg(keysym, 0, 16)
                .arg(languageNames[language])));
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
