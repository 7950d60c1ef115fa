#include "LineTyper.h"

#include "harness/PictureKeys.h"
#include "keys/KbdKey.h"
#include "keys/KbdLabelTable.h"
#include "keys/KeyColours.h"
#include "model/KbdGeometry.h"
#include "x11/X11.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTest>

#include <array>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

// Levels of a key with four symbols: the third needs AltGr, the fourth Shift as well.
constexpr int thirdLevel = 2;
constexpr int levels = 4;

constexpr char words[] = "Hello Keyboard ";
constexpr char thirdLevelCandidates[] = "@{[|~\\";

constexpr KeySym firstDeadKeysym = 0xfe50;
constexpr KeySym lastDeadKeysym = 0xfeff;

bool needsShift(int level)
{
    return level % 2 == 1;
}

QImage grab(const QRect& area)
{
    return QGuiApplication::primaryScreen()
        ->grabWindow(0, area.x(), area.y(), area.width(), area.height())
        .toImage();
}

// What the program types into itself comes back to the picture as a key press.
bool isLit(const QImage& cap)
{
    const QRgb lit = keyColour(KeyColour::BodyPressed, ColourScheme::OnScreen).rgb();
    for (int y = 0; y < cap.height(); ++y) {
        for (int x = 0; x < cap.width(); ++x) {
            if (cap.pixel(x, y) == lit)
                return true;
        }
    }
    return false;
}

// Releases of every key, XTest's too, whatever window has the focus.
void selectKeyReleases(Display* display)
{
    std::array<unsigned char, XIMaskLen(XI_LASTEVENT)> bits{};
    XISetMask(bits.data(), XI_RawKeyRelease);
    XIEventMask mask{XIAllMasterDevices, static_cast<int>(bits.size()), bits.data()};
    XISelectEvents(display, DefaultRootWindow(display), &mask, 1);
}

} // namespace

LineTyper::LineTyper(Display* xDisplay, const KbdGeometry& samePicture, const PictureLocator& place,
    Target typedInto)
    : display(xDisplay)
    , picture(samePicture)
    , locator(place)
    , target(typedInto)
{
    int major = 2;
    int minor = 2;
    XIQueryVersion(display, &major, &minor);
    selectKeyReleases(display);
}

QString LineTyper::characterAt(const KbdKey& key, int level) const
{
    static const KbdLabelTable table;
    const KeySym keysym = XkbKeycodeToKeysym(display, key.x11Keycode(), 0, level);
    if (keysym == x11::none || key.symbols().keyType() != 0
        || (keysym >= firstDeadKeysym && keysym <= lastDeadKeysym))
        return {};
    if (keysym == XK_space)
        return u" "_s;
    const QString label = table.label(static_cast<quint32>(keysym), QString(), QString());
    return label.size() == 1 && (keysym < 0xff00 || keysym > 0xffff) ? label : QString();
}

LineTyper::Stroke LineTyper::strokeFor(QChar character) const
{
    for (int level = 0; level < levels; ++level) {
        if (level >= thirdLevel && !thirdLevelKey())
            break;
        const auto hasIt = [&](const KbdKey& key) { return characterAt(key, level) == character; };
        if (const KbdKey* key = keyThat(picture, hasIt))
            return {key, level};
    }
    return {};
}

const KbdKey* LineTyper::thirdLevelKey() const
{
    return modifierKey(picture, u"LevelThree"_s);
}

// The letters of a keyboard that has no Latin ones, with a capital at the beginning.
QString LineTyper::lettersOfThirdRow() const
{
    QString letters;
    for (const char* name : {"AC01", "AC02", "AC03", "AC04", "AC05", "AC06"}) {
        if (const KbdKey* key = keyNamed(picture, QString::fromLatin1(name)))
            letters += characterAt(*key, letters.isEmpty() ? 1 : 0);
    }
    return letters + u' ';
}

QString LineTyper::suggestLine() const
{
    QString line = strokeFor(u'H').key ? QString::fromLatin1(words) : lettersOfThirdRow();
    for (const char candidate : thirdLevelCandidates) {
        const Stroke stroke = strokeFor(QLatin1Char(candidate));
        if (candidate != '\0' && stroke.key && stroke.level == thirdLevel)
            return line + QLatin1Char(candidate);
    }
    return line.trimmed();
}

void LineTyper::typeLine(const QString& line)
{
    for (const QChar character : line)
        typeStroke(strokeFor(character));
}

void LineTyper::typeReturn()
{
    click(keyNamed(picture, u"RTRN"_s));
}

void LineTyper::typeStroke(const Stroke& stroke)
{
    const KbdKey* shift = needsShift(stroke.level) ? keyNamed(picture, u"LFSH"_s) : nullptr;
    const KbdKey* third = stroke.level >= thirdLevel ? thirdLevelKey() : nullptr;
    for (const KbdKey* key : {shift, third, stroke.key, third, shift})
        click(key);
}

QRect LineTyper::capOnScreen(const KbdKey* key) const
{
    return locator.fromScene(key->mapRectToScene(key->boundingRect())).toRect();
}

// A window manager holds the pointer at each click until it has seen it: what comes before that is
// over would go astray. So each click waits for its effect.
void LineTyper::click(const KbdKey* key)
{
    if (!key)
        return;
    const QRect cap = capOnScreen(key);
    const QImage before = grab(cap);
    // To the right of the middle: that is cap on an L-shaped Return, too.
    XTestFakeMotionEvent(
        display, -1, cap.x() + cap.width() * 7 / 10, cap.y() + cap.height() * 6 / 10, CurrentTime);
    const bool typesHere = target == Target::OwnLine && key->symbols().keyType() == 0;
    setButton(true);
    bool done = !typesHere || QTest::qWaitFor([&] { return isLit(grab(cap)); });
    setButton(false);
    done = done && QTest::qWaitFor([&] {
        if (key->symbols().keyType() != 0)
            return grab(cap) != before;
        return typesHere ? !isLit(grab(cap)) : keyWasReleased(key->x11Keycode());
    });
    if (!done)
        throw std::runtime_error("a click on " + key->name().toStdString() + " has no effect");
}

void LineTyper::setButton(bool down)
{
    XTestFakeButtonEvent(display, Button1, down ? x11::xTrue : x11::xFalse, CurrentTime);
    XFlush(display);
}

bool LineTyper::keyWasReleased(KeyCode keycode)
{
    while (XPending(display) > 0) {
        XEvent event{};
        XNextEvent(display, &event);
        XGenericEventCookie& cookie = event.xcookie;
        if (cookie.type != GenericEvent || !XGetEventData(display, &cookie))
            continue;
        const int released = static_cast<const XIRawEvent*>(cookie.data)->detail;
        XFreeEventData(display, &cookie);
        if (released == keycode)
            return true;
    }
    return false;
}
