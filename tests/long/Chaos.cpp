#include "tests/long/Chaos.h"

#include "harness/KeyTargetProcess.h"
#include "harness/ProgramRun.h"
#include "harness/ProgramWindows.h"
#include "harness/WaitUntil.h"
#include "harness/XErrors.h"
#include "model/KbdGeometry.h"
#include "tests/long/LongRun.h"
#include "tests/long/PictureTruth.h"
#include "ui/MainWindow.h"
#include "ui/specs/KbdSpec.h"
#include "x11/CoreKeyboard.h"
#include "x11/Queries.h"
#include "x11/X11.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QTest>

namespace {

constexpr int actionsOfOneStart = 1000;
constexpr int actionsBetweenLooks = 25;
constexpr int firstKey = 10; // "1"; evdev key codes from here on
constexpr int firstKeypadKey = 79; // "7"; those with "*" and "/" move no pointer
constexpr int lastKey = 91; // keypad decimal
constexpr int lastButton = 3;
constexpr int pressMs = 200; // as long as a press lasts at the most before the program is killed
constexpr int dropMs = 1000; // that a picture may show no locks, if nothing else goes on
constexpr int workspaces = 2;
constexpr unsigned char locks = 2 | 16; // Caps Lock and Num Lock in the usual keymaps
constexpr unsigned char noLock = 32; // a modifier that no key of the usual keymaps locks

const QStringList layouts{"us", "de", "us,ru", "fr", "il", "us,gr,ru", "jp"};

} // namespace

const std::array<Chaos::Row, 17> Chaos::rows{{
    {30, "button down", &Chaos::pressButton},
    {30, "button up", &Chaos::releaseButton},
    {20, "move", &Chaos::move},
    {20, "touch", &Chaos::touch},
    {15, "lift", &Chaos::lift},
    {20, "key down", &Chaos::pressKey},
    {20, "key up", &Chaos::releaseKey},
    {30, "click", &Chaos::click},
    {6, "lock", &Chaos::lockByTool},
    {4, "group", &Chaos::groupByTool},
    {3, "mouse keys", &Chaos::switchMouseKeys},
    {1, "setxkbmap", &Chaos::setKeymap},
    {1, "layout choice", &Chaos::chooseLayout},
    {1, "minimise", &Chaos::minimise},
    {2, "workspace", &Chaos::changeWorkspace},
    {2, "focus to us", &Chaos::takeFocus},
    {2, "focus to the other", &Chaos::giveFocus},
}};

Chaos::Chaos(Display* testDisplay, Hands& usersHands, LongRun& longRun)
    : display(testDisplay)
    , name(XDisplayString(display))
    , hands(usersHands)
    , run(longRun)
    , program(testDisplay)
    , chance(run.seed())
{
}

Chaos::~Chaos() = default;

void Chaos::live(const QByteArray& programOption)
{
    option = programOption;
    isBroken = false;
    mayDropLocks = false;
    if (start())
        goOn();
    end();
}

void Chaos::goOn()
{
    const ExpectedXErrors errors;
    look(); // what was killed has left nothing down
    for (int i = 1; i <= actionsOfOneStart && run.goesOn() && !isBroken; ++i) {
        act();
        ++actionCount;
        if (i % actionsBetweenLooks == 0)
            look();
    }
    look();
    for (const QString& error : ExpectedXErrors::seen())
        run.broken(error);
}

bool Chaos::start()
{
    const bool isShown = program.start(option, {"-layout", "us"}, [this] { killOne(); });
    if (!isShown) {
        doesNotStart(QStringLiteral("the program does not start"));
        return false;
    }
    target = std::make_unique<KeyTargetProcess>(name);
    const bool isReady = target->waitForReady();
    if (!isReady)
        doesNotStart(QStringLiteral("no focus for a target"));
    return isReady;
}

// A window manager that crashes takes windows and focus with it.
void Chaos::doesNotStart(const QString& what)
{
    if (x11::hasWindowManager(display))
        run.broken(what);
}

// With a key down, if there is one at that place.
void Chaos::killOne()
{
    ProgramRun victim(QStringLiteral(KBD_PROGRAM), name);
    victim.start({QString::fromLatin1(option)});
    const auto shown = pictureOf(victim);
    if (!shown)
        return;
    const QSize size = shown->image.size();
    hands.moveTo(shown->topLeft + QPoint(below(size.width()), below(size.height() * 2 / 3)));
    hands.button(1, true);
    XSync(display, x11::xFalse);
    const bool holds =
        QTest::qWaitFor([this] { return !pressedKeys(name).isEmpty(); }, below(pressMs));
    killCount += holds ? 1 : 0;
    victim.kill();
    hands.button(1, false);
    XSync(display, x11::xFalse);
}

// Of a window that a manager is about to frame there may be none for a moment.
std::optional<WindowImage> Chaos::pictureOf(ProgramRun& victim)
{
    const Window window = victim.waitForWindow(display);
    std::optional<WindowImage> shown;
    const auto hasPicture = [&] { return (shown = grabWindow(display, window)).has_value(); };
    if (window == x11::none || !waitUntil(hasPicture)) {
        const char* const state = victim.isRunning() ? "runs" : "has ended";
        doesNotStart(QStringLiteral("the program that is to be killed %1 without a window: %2")
                .arg(QLatin1StringView(state), QString::fromLocal8Bit(victim.errors())));
    }
    return shown;
}

void Chaos::end()
{
    target.reset();
    program.end();
    setMouseKeys(false);
    XkbLockModifiers(display, x11::coreKeyboard, 0xff, 0);
    XkbLockGroup(display, x11::coreKeyboard, 0);
    for (const int key : pressedKeys(name))
        XTestFakeKeyEvent(display, static_cast<unsigned>(key), x11::xFalse, CurrentTime);
    XSync(display, x11::xFalse);
}

void Chaos::act()
{
    int sum = 0;
    for (const Row& row : rows)
        sum += row.weight;
    int at = below(sum);
    for (const Row& row : rows) {
        if ((at -= row.weight) >= 0)
            continue;
        since << QLatin1StringView(row.word);
        (this->*row.action)();
        break;
    }
    XFlush(display);
    QCoreApplication::processEvents();
}

int Chaos::oneOf(const QSet<int>& numbers)
{
    QList<int> sorted = numbers.values(); // the same for the same seed
    std::sort(sorted.begin(), sorted.end());
    return sorted.at(below(static_cast<int>(sorted.size())));
}

// Most of the picture is keys.
QPoint Chaos::somewhere()
{
    const QRect area(
        program.picture().viewport()->mapToGlobal(QPoint()), program.picture().viewport()->size());
    return {area.x() + below(area.width()), area.y() + below(area.height())};
}

void Chaos::move()
{
    hands.moveTo(somewhere());
}

void Chaos::pressButton()
{
    if (below(2) == 0)
        move();
    const int button = 1 + below(lastButton);
    if (buttonsDown.contains(button))
        return;
    note(button);
    hands.button(button, true);
    buttonsDown << button;
}

void Chaos::releaseButton()
{
    if (buttonsDown.isEmpty())
        return;
    const int button = oneOf(buttonsDown);
    note(button);
    hands.button(button, false);
    buttonsDown.remove(button);
}

void Chaos::click()
{
    if (buttonsDown.contains(1))
        return;
    move();
    hands.button(1, true);
    hands.button(1, false);
}

void Chaos::touch()
{
    if (hands.fingers() == 0)
        return;
    const int finger = below(hands.fingers());
    note(finger);
    hands.touch(finger, somewhere());
    fingersDown << finger;
}

void Chaos::lift()
{
    if (fingersDown.isEmpty())
        return;
    const int finger = oneOf(fingersDown);
    note(finger);
    hands.lift(finger);
    fingersDown.remove(finger);
}

void Chaos::pressKey()
{
    const int key = firstKey + below(lastKey - firstKey);
    if (keysDown.contains(key))
        return;
    note(key);
    if (hasMouseKeys && key >= firstKeypadKey)
        return strikeMouseKey(key);
    hands.key(key, true);
    keysDown << key;
}

// While such a key is down the server gives the events of other keys to no one, so nothing else may
// be going on.
void Chaos::strikeMouseKey(int key)
{
    QCoreApplication::processEvents();
    XSync(toolkitDisplay(), x11::xFalse);
    hands.key(key, true);
    hands.key(key, false);
    XSync(display, x11::xFalse);
}

void Chaos::releaseKey()
{
    if (keysDown.isEmpty())
        return;
    const int key = oneOf(keysDown);
    note(key);
    hands.key(key, false);
    keysDown.remove(key);
}

void Chaos::lockByTool()
{
    const int locked = below(256) & locks;
    note(locked);
    XkbLockModifiers(display, x11::coreKeyboard, locks, static_cast<unsigned>(locked));
}

void Chaos::groupByTool()
{
    const int group = below(3);
    note(group);
    XkbLockGroup(display, x11::coreKeyboard, static_cast<unsigned>(group));
}

void Chaos::switchMouseKeys()
{
    const int on = below(2);
    note(on);
    setMouseKeys(on != 0);
}

void Chaos::setMouseKeys(bool on)
{
    hasMouseKeys = on;
    CoreKeyboard(display).setMouseKeys(on);
}

void Chaos::setKeymap()
{
    const int layout = below(static_cast<int>(layouts.size()));
    note(layout);
    setKeyboard(name, {"-layout", layouts.at(layout)});
}

// Beside other programs there is no list of layouts.
void Chaos::chooseLayout()
{
    if (option != "--standalone")
        return;
    const QString& layout = layouts.at(below(static_cast<int>(layouts.size())));
    since.last() += QLatin1Char(' ') + layout;
    kbdSpec_t spec{layout, layout, QString(), {"pc105"}, {layout}, {QString()}};
    program.window().newKbdSelected(&spec);
    mayDropLocks = true;
}

void Chaos::minimise()
{
    XIconifyWindow(display, program.window().winId(), XDefaultScreen(display));
}

void Chaos::goToWorkspace(long workspace)
{
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = XDefaultRootWindow(display);
    event.xclient.message_type = XInternAtom(display, "_NET_CURRENT_DESKTOP", x11::xFalse);
    event.xclient.format = 32;
    event.xclient.data.l[0] = workspace;
    XSendEvent(display, event.xclient.window, x11::xFalse,
        SubstructureRedirectMask | SubstructureNotifyMask, &event);
}

void Chaos::changeWorkspace()
{
    goToWorkspace(below(workspaces));
}

// A window that cannot be seen cannot have the focus.
void Chaos::takeFocus()
{
    if (option == "--standalone")
        program.window().activateWindow();
}

// The grab keeps the window manager from hiding the window in between.
void Chaos::giveFocus()
{
    XGrabServer(display);
    XWindowAttributes attributes{};
    if (XGetWindowAttributes(display, target->windowId(), &attributes)
        && attributes.map_state == IsViewable)
        XSetInputFocus(display, target->windowId(), RevertToParent, CurrentTime);
    XUngrabServer(display);
    XSync(display, x11::xFalse);
}

// Everything that is held is let go of, and the window is there to be looked at.
void Chaos::settle()
{
    while (!buttonsDown.isEmpty())
        releaseButton();
    while (!fingersDown.isEmpty())
        lift();
    while (!keysDown.isEmpty())
        releaseKey();
    setMouseKeys(false);
    releaseLockedButtons();
    goToWorkspace(0);
    XMapWindow(display, program.window().winId());
    XSync(display, x11::xFalse);
}

// Mouse keys press and lock the buttons of XTest's pointer.
void Chaos::releaseLockedButtons()
{
    for (unsigned int button = 1; button <= lastButton; ++button)
        XTestFakeButtonEvent(display, button, x11::xFalse, CurrentTime);
}

// It is given that a new picture drops the server's locks at its first modifier key, until the
// server reports them.
void Chaos::haveStateReported()
{
    XkbLockModifiers(display, x11::coreKeyboard, noLock, noLock);
    XkbLockModifiers(display, x11::coreKeyboard, noLock, 0);
    mayDropLocks = false;
}

void Chaos::look()
{
    since << QStringLiteral("settle");
    settle();
    ++lookCount;
    const auto fault = [this] { return faultOf(program.picture(), display, name); };
    const auto isFine = [&] { return fault().isEmpty(); };
    if (mayDropLocks && !QTest::qWaitFor(isFine, dropMs))
        haveStateReported();
    if (!isBroken && !waitUntil(isFine)) {
        isBroken = true;
        run.broken(QStringLiteral("%1: %2, after %3")
                .arg(QString::fromLatin1(option), fault(), since.join(QLatin1String(", "))));
    }
    since.clear();
}
