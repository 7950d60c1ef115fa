#include "app/KbdApp.h"
#include "harness/FailurePictures.h"
#include "harness/KeyTargetProcess.h"
#include "harness/NestedServer.h"
#include "harness/PictureKeys.h"
#include "harness/TopLevelWindow.h"
#include "harness/XErrors.h"
#include "harness/XTools.h"
#include "keys/KbdDoodad.h"
#include "keys/KbdKey.h"
#include "model/KbdGeometry.h"
#include "ui/MainWindow.h"
#include "x11/X11.h"

#include <QLineEdit>
#include <QTest>

#include <algorithm>
#include <array>
#include <memory>
#include <span>
#include <utility>

namespace {

constexpr int waitLimitMs = 5000;
constexpr int repeatDelayMs = 100;
constexpr int repeatIntervalMs = 20;
constexpr int someRepeats = 10;

// The user's keyboard: keys pressed on the outer server. What a test holds down goes up with it.
class Keyboard {
public:
    Keyboard(const QByteArray& outerDisplay, const QByteArray& innerDisplay)
        : outside(openDisplay(outerDisplay))
        , inside(openDisplay(innerDisplay))
    {
    }
    ~Keyboard()
    {
        for (const KeyCode keycode : std::as_const(held))
            send(keycode, false);
    }
    Keyboard(const Keyboard&) = delete;
    Keyboard& operator=(const Keyboard&) = delete;

    // True once the inner server has taken the key; false when the deadline is over.
    bool press(KeyCode keycode)
    {
        held << keycode;
        return send(keycode, true);
    }

    bool release(KeyCode keycode)
    {
        held.removeOne(keycode);
        return send(keycode, false);
    }

    bool strike(KeyCode keycode) { return press(keycode) && release(keycode); }

private:
    // The nested server can leave an event lying until somebody speaks to it: the questions here
    // also wake it.
    bool send(KeyCode keycode, bool down)
    {
        XTestFakeKeyEvent(outside.get(), keycode, down, CurrentTime);
        XSync(outside.get(), x11::xFalse);
        return QTest::qWaitFor([&] { return isDown(keycode) == down; }, waitLimitMs);
    }

    bool isDown(KeyCode keycode) const
    {
        std::array<char, 32> keys{};
        XQueryKeymap(inside.get(), keys.data());
        return (keys.at(keycode / 8) >> (keycode % 8)) & 1;
    }

    XConnection outside;
    XConnection inside;
    QList<KeyCode> held;
};

struct FreeDevices {
    void operator()(XIDeviceInfo* devices) const { XIFreeDeviceInfo(devices); }
};

// Counts how often a key of the picture is shown going down and up.
struct Strokes {
    explicit Strokes(const KbdKey* key)
    {
        QObject::connect(key, &KbdKey::virtualKeyPress, &context, [this] { ++presses; });
        QObject::connect(key, &KbdKey::virtualKeyRelease, &context, [this] { ++releases; });
    }

    QObject context;
    int presses = 0;
    int releases = 0;
};

// Makes the server take the user's keyboard for one of XTest's, or for an ordinary one again.
void markKeyboards(Display* display, bool asXTests)
{
    const Atom mark = XInternAtom(display, "XTEST Device", x11::xFalse);
    const Atom integer = XInternAtom(display, "INTEGER", x11::xFalse);
    unsigned char on = 1;
    int count = 0;
    const std::unique_ptr<XIDeviceInfo, FreeDevices> devices(
        XIQueryDevice(display, XIAllDevices, &count));
    for (const XIDeviceInfo& device : std::span(devices.get(), static_cast<std::size_t>(count))) {
        if (device.use != XISlaveKeyboard || QByteArrayView(device.name).contains("XTEST"))
            continue;
        if (asXTests)
            XIChangeProperty(display, device.deviceid, mark, integer, 8, PropModeReplace, &on, 1);
        else
            XIDeleteProperty(display, device.deviceid, mark);
    }
    XSync(display, x11::xFalse);
}

// Another pointer and keyboard come, with devices of their own, and go.
void addAndRemoveMaster(Display* display)
{
    QByteArray name("passing");
    XIAnyHierarchyChangeInfo change{};
    change.add = {XIAddMaster, name.data(), x11::xTrue, x11::xTrue};
    XIChangeHierarchy(display, &change, 1);
    int count = 0;
    const std::unique_ptr<XIDeviceInfo, FreeDevices> devices(
        XIQueryDevice(display, XIAllMasterDevices, &count));
    change.remove = {XIRemoveMaster, devices.get()[count - 1].deviceid, XIFloating, 0, 0};
    XIChangeHierarchy(display, &change, 1);
    XSync(display, x11::xFalse);
}

bool isPressOf(const KeyTargetLine& line, int keycode)
{
    return line.kind == KeyTargetLine::Kind::Press && line.keycode == keycode;
}

} // namespace

// Beside another program's window the picture follows the user's own keyboard. The program runs on
// a server in a window, where keys that XTest presses outside come from a real device.
class PhysicalKeysTest : public QObject {
    Q_OBJECT

public:
    PhysicalKeysTest(QByteArray outerDisplay, QByteArray innerDisplay)
        : outer(std::move(outerDisplay))
        , inner(std::move(innerDisplay))
    {
    }

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void aKeyLightsWhileItIsDown();
    void aKeyLightsWhereNoWindowHasTheFocus();
    void aKeyIsToldOnceWhereTheFocusFollowsThePointerOntoThePicture();
    void shiftChangesTheLabelsWhileItIsDown();
    void capsLockLightsItsLampOnceForEachStroke();
    void keysOfOtherProgramsDoNotLight();
    void aDeviceThatComesIsToldAnewFromTheOthers();
    void aClickedKeyDoesNotLight();
    void aHeldKeyThatRepeatsStaysLit();
    void everyKeyThatIsDownIsLit();
    void aKeyTypedIntoADialogOfOursCountsOnce();
    void aKeymapThatReallyChangesIsTypedByQt();

private:
    MainWindow* mainWindow() const { return topLevelWindow<MainWindow>(); }
    KbdGeometry& picture() const { return *mainWindow()->picture(); }
    KbdKey* key(const QString& name) const;
    KeyCode code(const QString& name) const { return key(name)->x11Keycode(); }
    QStringList litKeys() const;
    int lampsAlight() const;
    ShiftMask_t lockedModifiers() const;
    qsizetype pressesAtTarget(const QString& name);

    QByteArray outer;
    QByteArray inner;
    std::array<QByteArray, 2> arguments{"tst_physicalkeys", "--tofocus"};
    std::array<char*, 3> argumentVector{};
    std::unique_ptr<KbdApp> application;
    std::unique_ptr<KeyTargetProcess> target;
    std::unique_ptr<Keyboard> keyboard;
};

// The keys' own repetition: the outer server's would reach the inner one as strokes.
void PhysicalKeysTest::initTestCase()
{
    const XConnection outside = openDisplay(outer);
    QVERIFY(outside);
    XAutoRepeatOff(outside.get());
    XSync(outside.get(), x11::xFalse);

    int count = 1;
    argumentVector = {arguments[0].data(), arguments[1].data(), nullptr};
    const QCoreApplication forTheTool(count, argumentVector.data());
    QVERIFY(setKeyboard(inner, {"-model", "pc105", "-layout", "us"}));
}

void PhysicalKeysTest::init()
{
    argumentVector = {arguments[0].data(), arguments[1].data(), nullptr};
    application = std::make_unique<KbdApp>(2, argumentVector.data());
    failOnXErrors();
    QVERIFY(QTest::qWaitForWindowExposed(mainWindow()));
    target = std::make_unique<KeyTargetProcess>(inner);
    QVERIFY(target->waitForReady());
    keyboard = std::make_unique<Keyboard>(outer, inner);
}

void PhysicalKeysTest::cleanup()
{
    keyboard.reset();
    target.reset();
    application.reset();
    QTRY_COMPARE(pressedKeys(inner), QList<int>());
    const XConnection inside = openDisplay(inner);
    XkbLockModifiers(inside.get(), x11::coreKeyboard, 0xff, 0);
    XSync(inside.get(), x11::xFalse);
}

KbdKey* PhysicalKeysTest::key(const QString& name) const
{
    return keyNamed(picture(), name);
}

QStringList PhysicalKeysTest::litKeys() const
{
    QStringList lit;
    const QList<KbdKey*> keys = picture().keyItems();
    for (const KbdKey* each : keys) {
        if (each->isPhysicallyDown())
            lit << each->name();
    }
    return lit;
}

int PhysicalKeysTest::lampsAlight() const
{
    const QList<KbdDoodad*> doodads = picture().doodadItems();
    return static_cast<int>(std::count_if(doodads.begin(), doodads.end(),
        [](const KbdDoodad* doodad) { return doodad->isIndicator() && doodad->isActive(); }));
}

ShiftMask_t PhysicalKeysTest::lockedModifiers() const
{
    const XConnection inside = openDisplay(inner);
    XkbStateRec state{};
    XkbGetState(inside.get(), x11::coreKeyboard, &state);
    return state.locked_mods;
}

qsizetype PhysicalKeysTest::pressesAtTarget(const QString& name)
{
    const QList<KeyTargetLine> lines = target->keys();
    const int keycode = code(name);
    return std::count_if(lines.begin(), lines.end(),
        [=](const KeyTargetLine& line) { return isPressOf(line, keycode); });
}

void PhysicalKeysTest::aKeyLightsWhileItIsDown()
{
    QVERIFY(keyboard->press(code("AC01")));
    QTRY_COMPARE(litKeys(), QStringList{"AC01"});
    QTRY_COMPARE(pressesAtTarget("AC01"), 1);
    QVERIFY(keyboard->release(code("AC01")));
    QTRY_COMPARE(litKeys(), QStringList());
    QVERIFY(!mainWindow()->isActiveWindow());
}

void PhysicalKeysTest::aKeyLightsWhereNoWindowHasTheFocus()
{
    const XConnection inside = openDisplay(inner);
    XSetInputFocus(inside.get(), x11::none, RevertToPointerRoot, CurrentTime);
    XSync(inside.get(), x11::xFalse);
    QVERIFY(keyboard->press(code("AC01")));
    QTRY_COMPARE(litKeys(), QStringList{"AC01"});
    QVERIFY(keyboard->release(code("AC01")));
    QTRY_COMPARE(litKeys(), QStringList());
    QCOMPARE(pressesAtTarget("AC01"), 0);
}

void PhysicalKeysTest::aKeyIsToldOnceWhereTheFocusFollowsThePointerOntoThePicture()
{
    const XConnection inside = openDisplay(inner);
    const QPoint place = picture().mapToGlobal(picture().rect().center());
    XWarpPointer(
        inside.get(), x11::none, DefaultRootWindow(inside.get()), 0, 0, 0, 0, place.x(), place.y());
    XSetInputFocus(inside.get(), PointerRoot, RevertToPointerRoot, CurrentTime);
    XSync(inside.get(), x11::xFalse);

    const Strokes strokes(key("AC01"));
    const Strokes barrier(key("AC02"));
    QVERIFY(keyboard->strike(code("AC01")));
    QVERIFY(keyboard->strike(code("AC02")));
    QTRY_COMPARE(barrier.releases, 1);
    QCOMPARE(strokes.presses, 1);
    QCOMPARE(strokes.releases, 1);
    QCOMPARE(litKeys(), QStringList());
}

void PhysicalKeysTest::shiftChangesTheLabelsWhileItIsDown()
{
    QCOMPARE(key("AC01")->activeLabel(), "a");
    QVERIFY(keyboard->press(code("LFSH")));
    QTRY_COMPARE(key("AC01")->activeLabel(), "A");
    QCOMPARE(key("AE02")->activeLabel(), "@");
    QCOMPARE(litKeys(), QStringList{"LFSH"});
    QVERIFY(keyboard->release(code("LFSH")));
    QTRY_COMPARE(key("AC01")->activeLabel(), "a");
    QCOMPARE(litKeys(), QStringList());
}

void PhysicalKeysTest::capsLockLightsItsLampOnceForEachStroke()
{
    QCOMPARE(lampsAlight(), 0);
    const Strokes barrier(key("AC01"));
    for (int stroke = 1; stroke <= 4; ++stroke) {
        QVERIFY(keyboard->press(code("CAPS")));
        QTRY_COMPARE(litKeys(), QStringList{"CAPS"});
        QVERIFY(keyboard->release(code("CAPS")));
        QTRY_COMPARE(litKeys(), QStringList());

        // Whatever the lock has set off is over when a later key arrives.
        QVERIFY(keyboard->strike(code("AC01")));
        QTRY_COMPARE(barrier.releases, stroke);
        const bool isOn = stroke % 2 == 1;
        QCOMPARE(lampsAlight(), isOn ? 1 : 0);
        QCOMPARE(key("AC01")->activeLabel(), isOn ? "A" : "a");
        QCOMPARE(lockedModifiers(), isOn ? x11::lockMask : 0);
    }
}

void PhysicalKeysTest::keysOfOtherProgramsDoNotLight()
{
    const Strokes synthetic(key("AC01"));
    const Strokes physical(key("AC02"));
    const XConnection otherProgram = openDisplay(inner);
    XTestFakeKeyEvent(otherProgram.get(), code("AC01"), x11::xTrue, CurrentTime);
    XTestFakeKeyEvent(otherProgram.get(), code("AC01"), x11::xFalse, CurrentTime);
    XSync(otherProgram.get(), x11::xFalse);
    QTRY_COMPARE(pressesAtTarget("AC01"), 1);
    QVERIFY(keyboard->strike(code("AC02")));
    QTRY_COMPARE(physical.releases, 1);
    QCOMPARE(synthetic.presses, 0);
    QCOMPARE(synthetic.releases, 0);
}

// The id of a device that has gone is given to the next: here the device behind the user's id
// becomes one of XTest's kind, and an ordinary one again.
void PhysicalKeysTest::aDeviceThatComesIsToldAnewFromTheOthers()
{
    const Strokes ordinary(key("AC01"));
    const Strokes marked(key("AC02"));
    QVERIFY(keyboard->strike(code("AC01")));
    QTRY_COMPARE(ordinary.releases, 1);

    const XConnection otherProgram = openDisplay(inner);
    markKeyboards(otherProgram.get(), true);
    addAndRemoveMaster(otherProgram.get());
    QVERIFY(keyboard->strike(code("AC02")));
    // What comes after the stroke is seen after it.
    XkbLockModifiers(otherProgram.get(), x11::coreKeyboard, x11::lockMask, x11::lockMask);
    XSync(otherProgram.get(), x11::xFalse);
    QTRY_COMPARE(lampsAlight(), 1);
    markKeyboards(otherProgram.get(), false);
    addAndRemoveMaster(otherProgram.get());

    QVERIFY(keyboard->strike(code("AC01")));
    QTRY_COMPARE(ordinary.releases, 2);
    QCOMPARE(marked.presses, 0);
}

void PhysicalKeysTest::aClickedKeyDoesNotLight()
{
    const QPoint place = picture().mapFromScene(key("AC01")->sceneBoundingRect().center());
    const Strokes clicked(key("AC01"));
    const Strokes physical(key("AC02"));
    QTest::mousePress(picture().viewport(), Qt::LeftButton, {}, place);
    QTRY_COMPARE(pressesAtTarget("AC01"), 1);
    QCOMPARE(litKeys(), QStringList());
    QTest::mouseRelease(picture().viewport(), Qt::LeftButton, {}, place);
    QVERIFY(keyboard->strike(code("AC02")));
    QTRY_COMPARE(physical.releases, 1);
    QCOMPARE(clicked.presses, 1);
    QCOMPARE(clicked.releases, 1);
    QCOMPARE(litKeys(), QStringList());
}

void PhysicalKeysTest::aHeldKeyThatRepeatsStaysLit()
{
    const XConnection inside = openDisplay(inner);
    XkbSetAutoRepeatRate(inside.get(), x11::coreKeyboard, repeatDelayMs, repeatIntervalMs);
    XSync(inside.get(), x11::xFalse);

    const Strokes strokes(key("AC01"));
    QVERIFY(keyboard->press(code("AC01")));
    QTRY_VERIFY(pressesAtTarget("AC01") >= someRepeats);
    QCOMPARE(litKeys(), QStringList{"AC01"});
    QCOMPARE(strokes.presses, 1);
    QCOMPARE(strokes.releases, 0);
    QVERIFY(keyboard->release(code("AC01")));
    QTRY_COMPARE(litKeys(), QStringList());
    QCOMPARE(strokes.presses, 1);
    QCOMPARE(strokes.releases, 1);
}

void PhysicalKeysTest::everyKeyThatIsDownIsLit()
{
    QVERIFY(keyboard->press(code("AC01")));
    QVERIFY(keyboard->press(code("AC02")));
    QTRY_COMPARE(litKeys(), QStringList({"AC01", "AC02"}));
    QVERIFY(keyboard->release(code("AC01")));
    QTRY_COMPARE(litKeys(), QStringList{"AC02"});
    QVERIFY(keyboard->release(code("AC02")));
    QTRY_COMPARE(litKeys(), QStringList());
}

void PhysicalKeysTest::aKeyTypedIntoADialogOfOursCountsOnce()
{
    QLineEdit dialog;
    dialog.show();
    dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    const Strokes strokes(key("AC01"));
    QVERIFY(keyboard->strike(code("AC01")));
    QTRY_COMPARE(dialog.text(), "a");
    QTRY_COMPARE(strokes.releases, 1);
    QCOMPARE(strokes.presses, 1);
}

void PhysicalKeysTest::aKeymapThatReallyChangesIsTypedByQt()
{
    QLineEdit dialog;
    dialog.show();
    dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    const auto typed = [&] {
        dialog.clear();
        const bool isStruck = keyboard->strike(code("AD01"));
        return isStruck && QTest::qWaitFor([&] { return !dialog.text().isEmpty(); }) ? dialog.text()
                                                                                     : QString();
    };
    QTRY_COMPARE(typed(), "q");
    QVERIFY(setKeyboard(inner, {"-model", "pc105", "-layout", "fr"}));
    QTRY_COMPARE(typed(), "a");
    QVERIFY(setKeyboard(inner, {"-model", "pc105", "-layout", "us"}));
    QTRY_COMPARE(typed(), "q");
}

int main(int argc, char** argv)
{
    const PrivateServer outer;
    const NestedServer inner(outer);
    inner.useForThisProcess();
    PhysicalKeysTest test(outer.display(), inner.display());
    return runWithFailurePictures(test, inner.display(), argc, argv);
}

#include "tst_physicalkeys.moc"
