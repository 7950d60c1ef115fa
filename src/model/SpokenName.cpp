#include "model/SpokenName.h"

#include "x11/Keysyms.h"
#include "x11/X11.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

struct SpokenRow {
    KeySym keysym;
    const char* text;
};

constexpr SpokenRow rows[] = {
#include "model/spokennames.inc"
};

constexpr bool isBefore(const SpokenRow& a, const SpokenRow& b)
{
    return a.keysym < b.keysym;
}
static_assert(std::is_sorted(std::begin(rows), std::end(rows), isBefore));

// Blocks of Unicode whose characters most speech programs cannot read.
struct SignBlock {
    char16_t first;
    char16_t last;
};

constexpr SignBlock signBlocks[] = {
    {0x2190, 0x21ff}, // arrows
    {0x2300, 0x243f}, // technical signs, control pictures
    {0x27f0, 0x27ff}, // more arrows
    {0x2900, 0x297f}, // more arrows
    {0x2b00, 0x2bff}, // more arrows
};

QString translated(const char* text)
{
    return QCoreApplication::translate("SpokenName", text);
}

const SpokenRow* rowOf(KeySym keysym)
{
    const auto* row =
        std::lower_bound(std::begin(rows), std::end(rows), SpokenRow{keysym, nullptr}, isBefore);
    return row != std::end(rows) && row->keysym == keysym ? row : nullptr;
}

bool isSign(QChar character)
{
    return std::any_of(std::begin(signBlocks), std::end(signBlocks), [&](const SignBlock& block) {
        return character.unicode() >= block.first && character.unicode() <= block.last;
    });
}

// A visible character that is no combining mark.
bool standsAlone(QChar character)
{
    return character.isPrint() && !character.isSpace() && !character.isMark();
}

// What the label table answers for a keysym that it does not know.
QString numbered(KeySym keysym)
{
    return u"Key%1"_s.arg(keysym);
}

bool canBeSaid(const QString& label)
{
    return std::none_of(label.begin(), label.end(), isSign)
        && std::any_of(label.begin(), label.end(), standsAlone);
}

// A screen reader reads "dead a" and "Audio Raise Volume" better than X11's spelling of them.
QString inWords(QString name)
{
    static const QRegularExpression wordEnd(u"([a-z])([A-Z])"_s);
    return name.replace(u'_', u' ').replace(wordEnd, u"\\1 \\2"_s).simplified();
}

// X protocol, appendix "Keysym Encoding". XKeysymToString leaks memory for these.
bool isUnicode(KeySym keysym)
{
    return keysym >= 0x1000000 && keysym <= 0x110ffff;
}

QString x11Name(KeySym keysym)
{
    if (isUnicode(keysym))
        return u"U%1"_s.arg(keysym & 0xffffff, 4, 16, '0'_L1).toUpper();
    QString name = QString::fromLatin1(XKeysymToString(keysym));
    if (name.startsWith("XF86"_L1))
        name.remove(0, 4);
    return inWords(name);
}

} // namespace

QString spokenName(KeySym keysym, const QString& label)
{
    if (keysym == x11::none || keysym == XK_VoidSymbol)
        return translated(QT_TRANSLATE_NOOP("SpokenName", "blank"));
    if (const SpokenRow* row = rowOf(keysym))
        return translated(row->text);
    if (canBeSaid(label) && label != numbered(keysym))
        return label.size() > 1 ? inWords(label) : label;
    const QString name = x11Name(keysym);
    return name.isEmpty() ? numbered(keysym) : name;
}
