#include "app/description/ComponentNames.h"
#include "harness/FailurePictures.h"
#include "harness/KeyTargetProcess.h"
#include "harness/NestedServer.h"
#include "harness/PictureLocator.h"
#include "harness/ProgramRun.h"
#include "harness/SlowDisplay.h"
#include "harness/XProxy.h"
#include "harness/XTools.h"
#include "keys/KbdKey.h"
#include "model/KbdGeometry.h"
#include "x11/X11.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QApplication>
#include <QTest>

#include <array>
#include <chrono>
#include <memory>
#include <mutex>

namespace {

using namespace std::chrono_literals;

// Keycodes of the keymap "evdev".
constexpr KeyCode keyA = 38;
constexpr KeyCode keyS = 39;
constexpr KeyCode leftShift = 50;
constexpr KeyCode rightShift = 62; // stands for both when a key is typed

constexpr QRgb baseColour = qRgb(169, 169, 169); // "darkgrey"
constexpr unsigned int leftButton = 1;

constexpr auto oneWay = 20ms; // from the program to the server, and back
constexpr int clickLengthMs = 200; // as long as a finger takes
constexpr int repeatDelayMs = 660; // as servers have it
constexpr int repeatIntervalMs = 40;
constexpr int clicks = 10;
constexpr int answerLimitMs = 15000;

int opcodeOfXTest(Display* display)
{
    int opcode = 0;
    int event = 0;
    int error = 0;
    XQueryExtension(display, "XTEST", &opcode, &event, &error);
    return opcode;
}

// The keys that a program asks XTest for, as its requests come to a proxy.
class TypedKeys {
public:
    explicit TypedKeys(int xtestOpcode)
        : opcode(xtestOpcode)
    {
    }

    // Called in the proxy's thread. XTEST protocol, "FakeInput".
    void look(const QByteArray& request)
    {
        constexpr char fakeInput = 2;
        if (static_cast<unsigned char>(request.at(0)) != opcode || request.at(1) != fakeInput)
            return;
        const std::lock_guard lock(mutex);
        (request.at(4) == x11::keyPress ? pressed : released)
            << static_cast<unsigned char>(request.at(5));
    }

    QList<int> presses() const { return copy(pressed); }
    QList<int> releases() const { return copy(released); }

private:
    QList<int> copy(const QList<int>& keycodes) const
    {
        const std::lock_guard lock(mutex);
        return keycodes;
    }

    int opcode;
    mutable std::mutex mutex;
    QList<int> pressed;
    QList<int> released;
};

// Of a display that is far away: no memory is shared with its server.
XProxyManners watching(TypedKeys& typed)
{
    const auto hide = hidingExtension("MIT-SHM").changeRequest;
    return {{}, [&typed, hide](QByteArray& request) {
                hide(request);
                typed.look(request);
            }};
}

} // namespace

// The program on one machine and the screen on another: every question to the server takes a while.
// The user's own keys come from a real device, those that are clicked from XTest's.
class RemoteTest : public QObject {
    Q_OBJECT

public:
    RemoteTest(const QByteArray& outerDisplay, QByteArray innerDisplay)
        : inner(std::move(innerDisplay))
        , outside(openDisplay(outerDisplay))
        , inside(openDisplay(inner))
    {
    }

private slots:
    void initTestCase();
    void cleanup();

    void aClickTypesItsLetterOnceWhileRealKeysTakeTurns();
    void aClickWaitsForNoAnswer_data();
    void aClickWaitsForNoAnswer();

private:
    bool start(const QByteArray& display);
    QPoint placeOf(KeyCode keycode) const;
    void moveTo(const QPoint& place) const;
    void button(bool down) const;
    void clickFor(KeyCode keycode, int milliseconds) const;
    bool strikeRealKey(KeyCode keycode);
    QImage shown() const;
    bool programIsIdle() const;
    QList<int> pressesAtTarget();

    QByteArray inner;
    XConnection outside;
    XConnection inside;
    std::unique_ptr<KbdGeometry> likeness;
    std::unique_ptr<ProgramRun> program;
    Window window = x11::none;
    QImage atRest; // the window, with nothing pressed
    std::unique_ptr<PictureLocator> locator;
    std::unique_ptr<KeyTargetProcess> target;
};

// The keys' own repetition: the outer server's would reach the inner one as strokes.
void RemoteTest::initTestCase()
{
    XAutoRepeatOff(outside.get());
    XSync(outside.get(), x11::xFalse);
    QVERIFY(setKeyboard(inner, {"-model", "pc105", "-layout", "us"}));
    XAutoRepeatOn(inside.get());
    XkbSetAutoRepeatRate(inside.get(), x11::coreKeyboard, repeatDelayMs, repeatIntervalMs);
    XSync(inside.get(), x11::xFalse);

    XkbComponentNamesRec names{};
    const ComponentNamesGuard guard(&names);
    QVERIFY(queryComponentNames(&names, toolkitDisplay(), {}));
    likeness = std::make_unique<KbdGeometry>(KeyboardSettings{}, names, false, nullptr);
}

// display: through which the program reaches the server.
bool RemoteTest::start(const QByteArray& display)
{
    program = std::make_unique<ProgramRun>(KBD_PROGRAM, display);
    program->start({"--tofocus"});
    window = program->waitForWindow(inside.get());
    if (window == x11::none)
        return false;
    locator = std::make_unique<PictureLocator>(
        inside.get(), window, PictureLocator::groundOf(likeness->sceneRect()), baseColour);
    target = std::make_unique<KeyTargetProcess>(inner, QRect(0, 0, 100, 100));
    if (!locator->waitForPicture() || !target->waitForReady())
        return false;
    moveTo(placeOf(leftShift));
    atRest = shown();
    return programIsIdle();
}

void RemoteTest::cleanup()
{
    button(false);
    program.reset();
    target.reset();
    QTRY_COMPARE(pressedKeys(inner), QList<int>());
}

QPoint RemoteTest::placeOf(KeyCode keycode) const
{
    const QList<KbdKey*> keys = likeness->keyItems();
    for (const KbdKey* key : keys) {
        if (key->x11Keycode() == keycode)
            return locator->fromScene(key->mapRectToScene(key->boundingRect()).center());
    }
    return {};
}

void RemoteTest::moveTo(const QPoint& place) const
{
    XTestFakeMotionEvent(inside.get(), -1, place.x(), place.y(), CurrentTime);
    XSync(inside.get(), x11::xFalse);
}

void RemoteTest::button(bool down) const
{
    XTestFakeButtonEvent(inside.get(), leftButton, down, CurrentTime);
    XSync(inside.get(), x11::xFalse);
}

void RemoteTest::clickFor(KeyCode keycode, int milliseconds) const
{
    moveTo(placeOf(keycode));
    button(true);
    QTest::qWait(milliseconds);
    button(false);
}

// The nested server can leave an event lying until somebody speaks to it: the question wakes it.
bool RemoteTest::strikeRealKey(KeyCode keycode)
{
    for (const bool down : {true, false}) {
        XTestFakeKeyEvent(outside.get(), keycode, down, CurrentTime);
        XSync(outside.get(), x11::xFalse);
        const auto hasArrived = [&] { return pressedKeys(inner).contains(keycode) == down; };
        if (!QTest::qWaitFor(hasArrived))
            return false;
    }
    return true;
}

QImage RemoteTest::shown() const
{
    const auto seen = grabWindow(inside.get(), window);
    return seen ? seen->image : QImage();
}

// Has Shift of the picture clicked on and off: what the program had to do before is done then.
bool RemoteTest::programIsIdle() const
{
    clickFor(leftShift, 0);
    const bool isOn = QTest::qWaitFor([&] { return shown() != atRest; }, answerLimitMs);
    clickFor(leftShift, 0);
    return isOn && QTest::qWaitFor([&] { return shown() == atRest; }, answerLimitMs);
}

QList<int> RemoteTest::pressesAtTarget()
{
    QList<int> keycodes;
    const QList<KeyTargetLine> keys = target->keys();
    for (const KeyTargetLine& key : keys) {
        if (key.kind == KeyTargetLine::Kind::Press)
            keycodes << key.keycode;
    }
    return keycodes;
}

void RemoteTest::aClickTypesItsLetterOnceWhileRealKeysTakeTurns()
{
    const SlowDisplay line(inner, oneWay);
    QVERIFY(start(line.display()));
    for (int i = 0; i < clicks; ++i) {
        target->clear();
        clickFor(keyA, clickLengthMs);
        QTRY_VERIFY(pressedKeys(inner).isEmpty() && !target->keys().isEmpty());
        QVERIFY(strikeRealKey(keyS));
        QTRY_VERIFY(pressesAtTarget().contains(keyS));
        QCOMPARE(pressesAtTarget(), QList<int>({keyA, keyS}));
        QVERIFY(programIsIdle());
    }
}

void RemoteTest::aClickWaitsForNoAnswer_data()
{
    QTest::addColumn<bool>("withShift");
    QTest::addColumn<QList<int>>("presses");
    QTest::addColumn<QList<int>>("releases");
    QTest::newRow("a letter") << false << QList<int>{keyA} << QList<int>{keyA};
    QTest::newRow("a letter with Shift")
        << true << QList<int>{rightShift, keyA} << QList<int>{keyA, rightShift};
}

// The server hears of the stroke only after the program has asked for it, and of what the program
// asks when the key goes down (a new keyboard is announced) only after its release.
void RemoteTest::aClickWaitsForNoAnswer()
{
    QFETCH(bool, withShift);
    QFETCH(QList<int>, presses);
    QFETCH(QList<int>, releases);
    TypedKeys typed(opcodeOfXTest(inside.get()));
    XProxy proxy(inner, watching(typed));
    QVERIFY(start(proxy.display()));
    if (withShift) {
        clickFor(leftShift, 0);
        QTRY_VERIFY(shown() != atRest);
    }

    proxy.holdRequests();
    moveTo(placeOf(keyA));
    button(true);
    QTRY_COMPARE_WITH_TIMEOUT(typed.presses(), presses, answerLimitMs);
    proxy.passHeldRequests();
    QTRY_VERIFY(pressedKeys(inner).contains(keyA));
    button(false);
    QTRY_COMPARE_WITH_TIMEOUT(typed.releases(), releases, answerLimitMs);
    proxy.passRequests();
    QTRY_COMPARE(pressedKeys(inner), QList<int>());
    QCOMPARE(typed.presses(), presses);
}

int main(int argc, char** argv)
{
    const PrivateServer outer;
    const NestedServer inner(outer);
    inner.useForThisProcess();
    QApplication application(argc, argv);
    RemoteTest test(outer.display(), inner.display());
    return runWithFailurePictures(test, inner.display(), argc, argv);
}

#include "tst_remote.moc"
