#include "keys/KbdLabelTable.h"

#include "x11/Keysyms.h"

#include <algorithm>
#include <bit>
#include <iterator>
#include <string_view>

using namespace Qt::StringLiterals;

namespace {

// The bits by which rows and layouts name a language.
enum Language : quint32 {
    FrenchCanadian = 64,
    Brazilian = 128,
    Spanish = 256,
    Italian = 512,
    German = 1024,
    Finnish = 2048,
    French = 4096,
};

struct LanguageRow {
    std::u16string_view layout;
    Language language;
};

struct GlyphRow {
    quint32 keysym;
    char16_t glyph;
};

struct TextRow {
    quint32 keysym;
    std::u16string_view text;
};

struct NationalRow {
    quint32 keysym;
    Language language;
    std::u16string_view text;
};

// The keysym that X gives a key of this Linux key code. XF86keysym.h forms these keysyms with a
// macro that it undefines at its end.
constexpr quint32 evdevKeysym(quint32 code)
{
    return 0x10081000 + code;
}

constexpr LanguageRow languageRows[] = {
#include "keys/labels/languages.inc"
};

// Ascending by keysym over all files.
constexpr GlyphRow glyphRows[] = {
#include "keys/labels/latin.inc"

#include "keys/labels/kana.inc"

#include "keys/labels/arabic.inc"

#include "keys/labels/cyrillic.inc"

#include "keys/labels/greek.inc"

#include "keys/labels/technical.inc"

#include "keys/labels/special.inc"

#include "keys/labels/publishing.inc"

#include "keys/labels/apl.inc"

#include "keys/labels/hebrew.inc"

#include "keys/labels/thai.inc"

#include "keys/labels/korean.inc"

#include "keys/labels/latin9.inc"

#include "keys/labels/keypad.inc"

#include "keys/labels/braille.inc"

#include "keys/labels/unicode.inc"
};

// Where a keysym has two rows, the later one wins.
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

constexpr NationalRow nationalRows[] = {
#include "keys/labels/national.inc"

};

// Wrong rows do not compile. The compiler prints the keysym of the row, but in decimal: where "the
// comparison reduces to '(65307 == 0)'" it is 0xff1b, XK_Escape.
constexpr quint32 firstMisplacedGlyph()
{
    for (std::size_t i = 1; i < std::size(glyphRows); ++i) {
        if (glyphRows[i - 1].keysym >= glyphRows[i].keysym)
            return glyphRows[i].keysym;
    }
    return 0;
}
static_assert(
    firstMisplacedGlyph() == 0, "a keysym has two rows, or a row stands in the wrong place");

constexpr quint32 firstGlyphWithText()
{
    for (const TextRow& row : textRows) {
        if (std::ranges::binary_search(glyphRows, row.keysym, {}, &GlyphRow::keysym))
            return row.keysym;
    }
    return 0;
}
static_assert(firstGlyphWithText() == 0, "a keysym has a row for a character and one for a text");

constexpr quint32 firstNationalDuplicate()
{
    for (const NationalRow* row = std::begin(nationalRows); row != std::end(nationalRows); ++row) {
        const auto isSame = [row](const NationalRow& other) {
            return other.keysym == row->keysym && other.language == row->language;
        };
        if (std::any_of(row + 1, std::end(nationalRows), isSame))
            return row->keysym;
    }
    return 0;
}
static_assert(firstNationalDuplicate() == 0, "a keysym has two rows in one language");

constexpr bool layoutsDiffer()
{
    for (const LanguageRow* row = std::begin(languageRows); row != std::end(languageRows); ++row) {
        const auto isSame = [row](const LanguageRow& other) { return other.layout == row->layout; };
        if (std::any_of(row + 1, std::end(languageRows), isSame))
            return false;
    }
    return true;
}
static_assert(layoutsDiffer(), "a layout has two rows in languages.inc");

// label() joins the languages of layout and variant: two must not pass for a third.
static_assert(
    std::all_of(std::begin(nationalRows), std::end(nationalRows),
        [](const NationalRow& row) { return std::has_single_bit<quint32>(row.language); }),
    "a language is not a bit of its own");

// The rows live as long as the program: the QString refers to the text instead of copying it.
QString textOf(std::u16string_view text)
{
    return QString::fromRawData(
        reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

QString character(quint32 keysym)
{
    return {QChar(static_cast<char16_t>(keysym & 0xffff))};
}

// Simple on purpose: a keysym of a legacy set above 0xff gives the Unicode character of the same
// number, and a character beyond the basic plane is cut to its lower 16 bits.
QString labelWithoutRow(quint32 keysym)
{
    if (keysym >= 0x20 && keysym <= 0x20ff)
        return character(keysym);
    if (keysym >= 0x1000100 && keysym <= 0x110ffff)
        return character(keysym);
    return u"Key%1"_s.arg(keysym);
}

} // namespace

// Filled for the first table; all later ones share the same rows.
KbdLabelTable::KbdLabelTable()
{
    static const Languages allLanguages = filledLanguages();
    static const Labels allLabels = filledLabels();
    languages = allLanguages;
    labels = allLabels;
}

QString KbdLabelTable::label(
    quint32 keysym, const QString& layoutName, const QString& variantName) const
{
    const Key plain{keysym, 0};
    const Key ofLayout = plain | languages.value(layoutName);
    const Key ofVariant = ofLayout | languages.value(variantName);
    for (const Key& key : {ofVariant, ofLayout, plain}) {
        const auto row = labels.constFind(key);
        if (row != labels.cend())
            return *row;
    }
    return labelWithoutRow(keysym);
}

KbdLabelTable::Languages KbdLabelTable::filledLanguages()
{
    Languages filled;
    for (const LanguageRow& row : languageRows)
        filled.insert(textOf(row.layout), {0, row.language});
    return filled;
}

KbdLabelTable::Labels KbdLabelTable::filledLabels()
{
    Labels filled;
    filled.reserve(std::size(glyphRows) + std::size(textRows) + std::size(nationalRows));
    for (const GlyphRow& row : glyphRows)
        filled.insert({row.keysym, 0}, textOf({&row.glyph, 1}));
    for (const TextRow& row : textRows)
        filled.insert({row.keysym, 0}, textOf(row.text));
    for (const NationalRow& row : nationalRows)
        filled.insert({row.keysym, row.language}, textOf(row.text));
    return filled;
}
