#include "tests/long/CapJudge.h"

#include "harness/PaintRecorder.h"
#include "keys/KbdKey.h"
#include "tests/long/LongRun.h"
#include "tests/long/ServerKeymap.h"
#include "tests/long/XkbRules.h"

#include <QPainter>

#include <array>

namespace {

constexpr quint32 voidSymbol = 0xffffff; // VoidSymbol (X keysyms)

// What the keyboard data bind to the fifth level (Mod3), where they bind anything.
constexpr ShiftMask_t fifthLevelMask = 32;

constexpr std::array<const char*, 8> modifierNames{
    "Shift", "Lock", "Control", "Mod1", "Mod2", "Mod3", "Mod4", "Mod5"};

QString namesOf(ShiftMask_t modifiers)
{
    QStringList names;
    for (std::size_t bit = 0; bit < modifierNames.size(); ++bit) {
        if (modifiers & (1U << bit))
            names << QLatin1StringView(modifierNames[bit]);
    }
    return names.join(QLatin1Char('+'));
}

bool haveSameLetters(const QString& one, const QString& other)
{
    return one.toCaseFolded() == other.toCaseFolded() || one.toUpper() == other.toUpper();
}

} // namespace

QString drawnOn(KbdKey& key)
{
    PaintRecorder recorder;
    {
        QPainter painter(&recorder);
        key.paint(&painter, nullptr, nullptr);
    }
    QString text;
    for (const PaintedText& run : recorder.texts())
        text += run.text;
    return text;
}

CapJudge::CapJudge(LongRun& longRun)
    : run(longRun)
    , ordered(OrderedDifferences::read(QStringLiteral(KBD_DIFFERENCES)))
{
    if (ordered.isEmpty())
        run.broken(QStringLiteral("there are no rows in " KBD_DIFFERENCES));
}

void CapJudge::setKeyboard(const KeyboardSettings& settings, const ServerKeymap* serverKeymap)
{
    keyboard = settings;
    keymap = serverKeymap;
}

void CapJudge::judge(const Place& place, const QString& drawn, quint32 keysym)
{
    const QString expected = labelOf(keysym, place.group);
    if (drawn == expected)
        return judgeSign(drawn, keysym);
    const bool isCase =
        (place.modifiers & x11::lockMask) && drawn.size() == 1 && haveSameLetters(drawn, expected);
    differs(place, isCase ? QStringLiteral("case") : QStringLiteral("level"), drawn, expected);
}

void CapJudge::judgeCorners(
    const Place& place, const QString& drawn, const QList<quint32>& keysyms, quint32 keysym)
{
    QString corners;
    for (const quint32 each : keysyms)
        corners += labelOf(each, place.group);
    const bool isPlain = place.modifiers == 0;
    if (isPlain ? drawn == corners : haveSameLetters(drawn, corners))
        return;
    if (isPlain || !haveSameLetters(drawn, labelOf(keysym, place.group)))
        differs(place, QStringLiteral("corner"), drawn, corners);
}

void CapJudge::judgeSign(const QString& drawn, quint32 keysym)
{
    const char32_t character = characterOf(keysym);
    const QString name = keysymName(keysym);
    if (character == 0 || drawn == QString::fromUcs4(&character, 1)
        || ordered.allow(QStringLiteral("sign"), name, QString()))
        return;
    unexplained[{QStringLiteral("sign"), name, QString()}].add(
        QStringLiteral("%1: \"%2\" for \"%3\"")
            .arg(textOf(keyboard), drawn, QString::fromUcs4(&character, 1)));
}

// As the label table has it, and as it is drawn: in one line, and nothing for a keysym that stands
// for nothing.
QString CapJudge::labelOf(quint32 keysym, int group) const
{
    if (keysym == voidSymbol || keysym == x11::none)
        return {};
    const QString layout = keyboard.layout.split(QLatin1Char(',')).value(group);
    const QString variant = keyboard.variant.split(QLatin1Char(',')).value(group);
    return labels.label(keysym, layout, variant).remove(QLatin1Char('\n'));
}

void CapJudge::differs(
    const Place& place, const QString& kind, const QString& drawn, const QString& expected)
{
    const KeyCode keycode = place.key.x11Keycode();
    const int shownGroup = keymap->keptGroup(keycode, place.group);
    const QString type = keymap->typeName(keycode, shownGroup);
    const ShiftMask_t relevant = kind == QLatin1StringView("case")
        ? x11::shiftMask | x11::lockMask
        : keymap->typeModifiers(keycode, shownGroup);
    QString when = namesOf(place.modifiers & relevant);
    if (type.contains(QLatin1StringView("EIGHT_LEVEL")) && !(relevant & fifthLevelMask))
        when += QLatin1StringView(" without a fifth level");
    if (ordered.allow(kind, type, when))
        return;
    unexplained[{kind, type, when}].add(QStringLiteral("%1, group %2, key %3: \"%4\", not \"%5\"")
            .arg(textOf(keyboard))
            .arg(place.group)
            .arg(place.key.name(), drawn, expected));
}

void CapJudge::Unexplained::add(const QString& example)
{
    if (++count == 1)
        first = example;
}

void CapJudge::report()
{
    for (auto each = unexplained.cbegin(); each != unexplained.cend(); ++each)
        run.broken(QStringLiteral("%1 caps differ without a row \"%2\", first %3")
                .arg(each->count)
                .arg(each.key().join(QLatin1Char('\t')), each->first));
}
