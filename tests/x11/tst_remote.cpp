#include "app/description/ComponentNames.h"
#include "harness/FailurePictures.h"
#include "harness/KeyTargetProcess.h"
#include "harness/NestedServer.h"
#include "harness/PictureLocator.h"
#include "harness/ProgramRun.h"
#include "harness/SlowDisplay.h"
#include "harness/XTools.h"
#include "keys/KbdKey.h"
#include "model/KbdGeometry.h"
#include "x11/X11.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QApplication>
#include <QTest>

#include <algorithm>
#include <chrono>
#include <memory>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

// Keycodes of the keymap "evdev".
constexpr KeyCode keyA = 38;
constexpr KeyCode keyS = 39;
constexpr KeyCode leftShift = 50;

constexpr QRgb baseColour = qRgb(169, 169, 169); // "darkgrey"
constexpr unsigned int leftButton = 1;

constexpr auto oneWay = 20ms; // from the program to the server, and back
constexpr auto roundTrip = 2 * oneWay;
constexpr int clickLengthMs = 200; // as long as a finger takes
constexpr int repeatDelayMs = 300; // the shortest that desktops offer
constexpr int repeatIntervalMs = 30;
constexpr int clicks = 10;
constexpr int answerLimitMs = 15000;

} // namespace

// The program on one machine and the screen on another: every question to the server takes a while.
// The user's own keys come from a real device, those that are clicked from XTest's.
class RemoteTest : public QObject {
    Q_OBJECT

public:
    RemoteTest(const QByteArray& outerDisplay, QByteArray innerDisplay)
        : inner(std::move(innerDisplay))
        , line(inner, oneWay)
        , outside(openDisplay(outerDisplay))
        , inside(openDisplay(inner))
    {
    }

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void aClickTypesItsLetterOnceWhileRealKeysTakeTurns();
    void aClickIsTypedAfterOneRoundTrip_data();
    void aClickIsTypedAfterOneRoundTrip();

private:
    QPoint placeOf(KeyCode keycode) const;
    void moveTo(const QPoint& place) const;
    void button(bool down) const;
    void clickFor(KeyCode keycode, int milliseconds) const;
    bool strikeRealKey(KeyCode keycode);
    QImage shown() const;
    bool programIsIdle() const;
    QList<int> pressesAtTarget();
    std::chrono::duration<double, std::milli> clickTillPress(KeyCode keycode);

    QByteArray inner;
    SlowDisplay line;
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

void RemoteTest::init()
{
    program = std::make_unique<ProgramRun>(KBD_PROGRAM, line.display());
    program->start({"--tofocus"});
    window = program->waitForWindow(inside.get());
    QVERIFY2(window != x11::none, program->errors().constData());
    locator = std::make_unique<PictureLocator>(
        inside.get(), window, PictureLocator::groundOf(likeness->sceneRect()), baseColour);
    QVERIFY(locator->waitForPicture());
    target = std::make_unique<KeyTargetProcess>(inner, QRect(0, 0, 100, 100));
    QVERIFY(target->waitForReady());
    moveTo(placeOf(leftShift));
    atRest = shown();
    QVERIFY(programIsIdle());
}

void RemoteTest::cleanup()
{
    button(false);
    program.reset();
    target.reset();
    QCOMPARE(pressedKeys(inner), QList<int>());
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

std::chrono::duration<double, std::milli> RemoteTest::clickTillPress(KeyCode keycode)
{
    target->clear();
    moveTo(placeOf(keycode));
    const auto begin = Clock::now();
    button(true);
    while (!pressedKeys(inner).contains(keycode) && Clock::now() - begin < 5s) { }
    const auto end = Clock::now();
    button(false);
    [[maybe_unused]] const bool isReleased =
        QTest::qWaitFor([&] { return pressedKeys(inner).isEmpty(); });
    return end - begin;
}

void RemoteTest::aClickTypesItsLetterOnceWhileRealKeysTakeTurns()
{
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

void RemoteTest::aClickIsTypedAfterOneRoundTrip_data()
{
    QTest::addColumn<bool>("withShift");
    QTest::newRow("a letter") << false;
    QTest::newRow("a letter with Shift") << true;
}

// The quickest of them: another program may take the processor from any of them.
void RemoteTest::aClickIsTypedAfterOneRoundTrip()
{
    QFETCH(bool, withShift);
    if (withShift)
        clickFor(leftShift, 0);
    auto quickest = clickTillPress(keyA);
    for (int i = 1; i < clicks; ++i)
        quickest = std::min(quickest, clickTillPress(keyA));
    QVERIFY2(quickest < 1.5 * roundTrip, QByteArray::number(quickest.count()).constData());
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
