#include "app/KbdApp.h"
#include "harness/FailurePictures.h"
#include "harness/KeyTargetProcess.h"
#include "harness/RealServer.h"
#include "harness/WindowManager.h"
#include "harness/XErrors.h"
#include "harness/XTools.h"
#include "keys/KbdKey.h"
#include "model/KbdGeometry.h"
#include "ui/MainWindow.h"
#include "ui/TypingArea.h"

#include <QComboBox>
#include <QTest>

#include <algorithm>
#include <array>
#include <memory>
#include <span>

namespace {

constexpr int someRepeats = 5;
constexpr int repeatDelayMs = 150;
constexpr int repeatIntervalMs = 30;

constexpr QRect besideTheWindow(0, 800, 300, 200); // which stands at the top of the screen

constexpr QRgb pressedTop = 0xcc6666; // what a cap that is down is painted with

struct FreeDevices {
    void operator()(XIDeviceInfo* devices) const { XIFreeDeviceInfo(devices); }
};

// 0 where there is no such device.
int deviceNamed(Display* display, QByteArrayView name)
{
    int count = 0;
    const std::unique_ptr<XIDeviceInfo, FreeDevices> devices(
        XIQueryDevice(display, XIAllDevices, &count));
    for (const XIDeviceInfo& device : std::span(devices.get(), static_cast<std::size_t>(count))) {
        if (name == device.name)
            return device.deviceid;
    }
    return 0;
}

// From the pointer that all windows know, or to it again.
void detach(Display* display, int device)
{
    XIAnyHierarchyChangeInfo change{};
    change.detach = {XIDetachSlave, device};
    XIChangeHierarchy(display, &change, 1);
    XSync(display, x11::xFalse);
}

void attach(Display* display, int device)
{
    int pointer = 0;
    XIGetClientPointer(display, x11::none, &pointer);
    XIAnyHierarchyChangeInfo change{};
    change.attach = {XIAttachSlave, device, pointer};
    XIChangeHierarchy(display, &change, 1);
    XSync(display, x11::xFalse);
}

} // namespace

// The program on a server with a user's devices: keys that XTest does not press, and fingers.
class RealDevicesTest : public QObject {
    Q_OBJECT

public:
    explicit RealDevicesTest(RealServer& realServer)
        : server(realServer)
        , connection(openDisplay(realServer.display()))
    {
    }

private slots:
    void cleanup();

    void twoThumbsTypeInTheOrderOfTheirTouches();
    void twoThumbsTypeIntoTheTextLine();
    void twoThumbsThatBringTheFocusTypeIntoTheTextLine_data();
    void twoThumbsThatBringTheFocusTypeIntoTheTextLine();
    void twoFingersOnOneKeyTypeItTwice();
    void aFingerThatSlidesOffItsKeyReleasesIt();
    void aHeldFingerRepeatsItsKey();
    void aModifierThatIsTouchedActsOnTheNextKey();
    void twoThumbsTypeWithAModifierThatIsHeldOnThePicture();
    void aTouchLeavesTheFocusWhereItIs();
    void aTouchPressesOnceEvenWhereQtMakesAMousePressOfIt();
    void aTouchOnAControlIsAClickOnIt();
    void aTouchScreenThatGoesReleasesItsKeys();
    void aKeyLooksPressedWhileAFingerOrAButtonHoldsIt();
    void aPhysicalKeyIsLitUntilItIsReleased();
    void aKeyboardOfAnotherLayoutLightsTheSameKeysAndLeavesThePicture();

private:
    bool start(const QByteArray& option);
    bool startWithTarget();
    MainWindow* mainWindow() const;
    KbdGeometry& picture() const { return *mainWindow()->picture(); }
    KbdKey* key(const QString& name) const;
    QPointF place(const QString& name) const;
    void touch(int finger, const QString& name) const
    {
        server.touchScreen().touch(finger, place(name));
    }
    void lift(int finger) const { server.touchScreen().lift(finger); }
    void tap(const QString& name) const;
    void rollOverThreeKeys() const;
    bool looksPressed(const QString& name) const;
    QStringList presses() const { return keysyms(KeyTargetLine::Kind::Press); }
    QStringList releases() const { return keysyms(KeyTargetLine::Kind::Release); }
    QStringList keysyms(KeyTargetLine::Kind kind) const;

    RealServer& server;
    XConnection connection;
    std::array<QByteArray, 2> arguments{"tst_realdevices", ""};
    std::array<char*, 3> argumentVector{};
    std::unique_ptr<WindowManager> manager;
    std::unique_ptr<KbdApp> application;
    std::unique_ptr<KeyTargetProcess> target;
};

bool RealDevicesTest::start(const QByteArray& option)
{
    arguments[1] = option;
    argumentVector = {arguments[0].data(), arguments[1].data(), nullptr};
    int count = 1;
    {
        const QCoreApplication forTheTool(count, argumentVector.data());
        if (!setKeyboard(server.display(), {"-model", "pc105", "-layout", "us"}))
            return false;
    }
    application = std::make_unique<KbdApp>(2, argumentVector.data());
    failOnXErrors();
    return QTest::qWaitForWindowExposed(mainWindow());
}

bool RealDevicesTest::startWithTarget()
{
    if (!start("--tofocus"))
        return false;
    target = std::make_unique<KeyTargetProcess>(server.display());
    return target->waitForReady();
}

void RealDevicesTest::cleanup()
{
    server.touchScreen().liftAll();
    target.reset();
    application.reset();
    manager.reset();
    // Managers that are ended leave it behind.
    XDeleteProperty(connection.get(), XDefaultRootWindow(connection.get()),
        XInternAtom(connection.get(), "_NET_SUPPORTING_WM_CHECK", x11::xFalse));
    XSync(connection.get(), x11::xFalse);
    QTRY_COMPARE(pressedKeys(server.display()), QList<int>());
}

MainWindow* RealDevicesTest::mainWindow() const
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (auto* found = qobject_cast<MainWindow*>(window))
            return found;
    }
    return nullptr;
}

KbdKey* RealDevicesTest::key(const QString& name) const
{
    const QList<KbdKey*> keys = picture().keyItems();
    const auto found = std::find_if(
        keys.begin(), keys.end(), [&](const KbdKey* each) { return each->name() == name; });
    return found == keys.end() ? nullptr : *found;
}

// The middle of a key on the screen.
QPointF RealDevicesTest::place(const QString& name) const
{
    const QPoint middle = picture().mapFromScene(key(name)->sceneBoundingRect().center());
    return picture().viewport()->mapToGlobal(middle);
}

void RealDevicesTest::tap(const QString& name) const
{
    touch(0, name);
    lift(0);
}

// v, b, n: each finger goes down before the one before it is lifted.
void RealDevicesTest::rollOverThreeKeys() const
{
    touch(0, "AB04");
    touch(1, "AB05");
    lift(0);
    touch(0, "AB06");
    lift(1);
    lift(0);
}

bool RealDevicesTest::looksPressed(const QString& name) const
{
    const QRectF cap = key(name)->sceneBoundingRect();
    const QPointF bare(cap.center().x(), cap.top() + 0.2 * cap.height()); // above the label
    const QImage image = picture().viewport()->grab().toImage();
    return (image.pixel(picture().mapFromScene(bare)) & RGB_MASK) == pressedTop;
}

QStringList RealDevicesTest::keysyms(KeyTargetLine::Kind kind) const
{
    QStringList result;
    const QList<KeyTargetLine> lines = target->keys();
    for (const KeyTargetLine& line : lines) {
        if (line.kind == kind)
            result << line.keysym;
    }
    return result;
}

void RealDevicesTest::twoThumbsTypeInTheOrderOfTheirTouches()
{
    QVERIFY(startWithTarget());
    rollOverThreeKeys();
    QTRY_COMPARE(releases(), QStringList({"v", "b", "n"}));
    QCOMPARE(presses(), QStringList({"v", "b", "n"}));
}

void RealDevicesTest::twoThumbsTypeIntoTheTextLine()
{
    QVERIFY(start("--standalone"));
    mainWindow()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(mainWindow()));
    rollOverThreeKeys();
    QTRY_COMPARE(mainWindow()->findChild<TypingArea*>()->text(), "vbn");
}

void RealDevicesTest::twoThumbsThatBringTheFocusTypeIntoTheTextLine_data()
{
    QTest::addColumn<bool>("isManaged");
    QTest::newRow("without a window manager") << false;
    QTest::newRow("under openbox") << true;
}

// The touches are all over before the window gets to know that it has the focus.
void RealDevicesTest::twoThumbsThatBringTheFocusTypeIntoTheTextLine()
{
    QFETCH(bool, isManaged);
    if (isManaged)
        manager = std::make_unique<WindowManager>("openbox", server.display());
    QVERIFY(start("--standalone"));
    mainWindow()->move(0, 0);
    target = std::make_unique<KeyTargetProcess>(server.display(), besideTheWindow);
    QVERIFY(target->waitForReady());
    QTRY_VERIFY(!mainWindow()->isActiveWindow());
    target->clear();
    rollOverThreeKeys();
    QTRY_COMPARE(mainWindow()->findChild<TypingArea*>()->text(), "vbn");
    QCOMPARE(presses(), QStringList());
    tap("AB04");
    QTRY_COMPARE(mainWindow()->findChild<TypingArea*>()->text(), "vbnv");
}

void RealDevicesTest::twoFingersOnOneKeyTypeItTwice()
{
    QVERIFY(startWithTarget());
    touch(0, "AB06");
    touch(1, "AB06");
    lift(0);
    lift(1);
    tap("AB05");
    QTRY_COMPARE(releases(), QStringList({"n", "n", "b"}));
    QCOMPARE(presses(), QStringList({"n", "n", "b"}));
}

void RealDevicesTest::aFingerThatSlidesOffItsKeyReleasesIt()
{
    QVERIFY(startWithTarget());
    touch(0, "AB04");
    QTRY_COMPARE(presses(), QStringList{"v"});
    server.touchScreen().slide(0, place("AB05"));
    QTRY_COMPARE(releases(), QStringList{"v"});
    lift(0);
    tap("AB06");
    QTRY_COMPARE(releases(), QStringList({"v", "n"}));
    QCOMPARE(presses(), QStringList({"v", "n"}));
}

void RealDevicesTest::aHeldFingerRepeatsItsKey()
{
    XkbSetAutoRepeatRate(connection.get(), x11::coreKeyboard, repeatDelayMs, repeatIntervalMs);
    XSync(connection.get(), x11::xFalse);
    QVERIFY(startWithTarget());
    touch(0, "AB04");
    QTRY_VERIFY(presses().size() >= someRepeats);
    QCOMPARE(releases(), QStringList());
    lift(0);
    QTRY_COMPARE(releases(), QStringList{"v"});
}

void RealDevicesTest::aModifierThatIsTouchedActsOnTheNextKey()
{
    QVERIFY(startWithTarget());
    tap("LFSH");
    QTRY_COMPARE(picture().modifiers(), x11::shiftMask);
    tap("AB04");
    QTRY_VERIFY(releases().contains("V"));
    tap("LFSH");
    QTRY_COMPARE(picture().modifiers(), 0);
    tap("AB04");
    QTRY_VERIFY(releases().contains("v"));
}

// The server has Control down as long as the first of the two keys is.
void RealDevicesTest::twoThumbsTypeWithAModifierThatIsHeldOnThePicture()
{
    QVERIFY(startWithTarget());
    tap("LCTL");
    QTRY_COMPARE(picture().modifiers(), x11::controlMask);
    touch(0, "AB04");
    QTRY_VERIFY(presses().contains("v"));
    touch(1, "AB05");
    QTRY_VERIFY(presses().contains("b"));
}

void RealDevicesTest::aTouchLeavesTheFocusWhereItIs()
{
    QVERIFY(startWithTarget());
    target->clear();
    rollOverThreeKeys();
    QTRY_COMPARE(releases().size(), 3);
    QCOMPARE(target->lines().size(), target->keys().size());
    QVERIFY(!mainWindow()->isActiveWindow());
}

// The first finger's touch comes a second time, as a press of the mouse.
void RealDevicesTest::aTouchPressesOnceEvenWhereQtMakesAMousePressOfIt()
{
    QVERIFY(startWithTarget());
    int strokes = 0;
    connect(key("AB04"), &KbdKey::virtualKeyPress, this, [&] { ++strokes; });
    tap("AB04");
    tap("AB05");
    server.pointer().click(place("AB06"));
    QTRY_COMPARE(releases(), QStringList({"v", "b", "n"}));
    QCOMPARE(presses(), QStringList({"v", "b", "n"}));
    QCOMPARE(strokes, 1);
}

void RealDevicesTest::aTouchOnAControlIsAClickOnIt()
{
    QVERIFY(startWithTarget());
    const QList<QComboBox*> combos = mainWindow()->findChildren<QComboBox*>();
    const auto shown = std::find_if(
        combos.begin(), combos.end(), [](const QComboBox* combo) { return combo->isVisible(); });
    QVERIFY(shown != combos.end());
    server.touchScreen().touch(0, (*shown)->mapToGlobal((*shown)->rect().center()));
    lift(0);
    QTRY_VERIFY(QApplication::activePopupWidget());
    tap("AC01");
    QTRY_VERIFY(!QApplication::activePopupWidget());
    tap("AC02");
    QTRY_VERIFY(releases().contains("s"));
}

void RealDevicesTest::aTouchScreenThatGoesReleasesItsKeys()
{
    QVERIFY(startWithTarget());
    const int device = deviceNamed(connection.get(), "touch screen");
    touch(0, "AB04");
    touch(1, "AB05");
    QTRY_COMPARE(presses().size(), 2);
    detach(connection.get(), device);
    QTRY_COMPARE(pressedKeys(server.display()), QList<int>());
    attach(connection.get(), device);
}

void RealDevicesTest::aKeyLooksPressedWhileAFingerOrAButtonHoldsIt()
{
    QVERIFY(startWithTarget());
    QVERIFY(!looksPressed("AB04"));
    touch(0, "AB04");
    QTRY_VERIFY(looksPressed("AB04"));
    touch(1, "LFSH");
    QTRY_VERIFY(looksPressed("LFSH"));
    lift(0);
    QTRY_VERIFY(!looksPressed("AB04"));
    lift(1);
    QTRY_VERIFY(!looksPressed("LFSH"));

    server.pointer().moveTo(place("AB06"));
    server.pointer().press();
    QTRY_VERIFY(looksPressed("AB06"));
    QVERIFY(!looksPressed("LFSH"));
    server.pointer().release();
    QTRY_VERIFY(!looksPressed("AB06"));
}

void RealDevicesTest::aPhysicalKeyIsLitUntilItIsReleased()
{
    QVERIFY(startWithTarget());
    const KbdKey* lit = key("AC01");
    server.keyboard().press(lit->x11Keycode());
    QTRY_VERIFY(lit->isPhysicallyDown());
    QTRY_COMPARE(presses(), QStringList{"a"});
    server.keyboard().release(lit->x11Keycode());
    QTRY_VERIFY(!lit->isPhysicallyDown());
    QVERIFY(!mainWindow()->isActiveWindow());
}

void RealDevicesTest::aKeyboardOfAnotherLayoutLightsTheSameKeysAndLeavesThePicture()
{
    QVERIFY(startWithTarget());
    const int device = deviceNamed(connection.get(), RealServer::otherKeyboardName);
    QVERIFY(setKeyboard(server.display(),
        {"-device", QString::number(device), "-model", "pc105", "-layout", "fr"}));
    const KbdKey* lit = key("AD01");
    server.otherKeyboard().press(lit->x11Keycode());
    QTRY_VERIFY(lit->isPhysicallyDown());
    QTRY_COMPARE(presses(), QStringList{"a"}); // where the first keyboard has q
    QCOMPARE(lit->activeLabel(), "q");
    server.otherKeyboard().release(lit->x11Keycode());
    QTRY_VERIFY(!lit->isPhysicallyDown());

    server.keyboard().strike(lit->x11Keycode());
    QTRY_COMPARE(presses(), QStringList({"a", "q"}));
    QCOMPARE(lit->activeLabel(), "q");
}

// Where no such server can be started.
class NoRealServerTest : public QObject {
    Q_OBJECT

private slots:
    void aServerWithRealDevicesIsThere() { QSKIP(qPrintable(RealServer::obstacle())); }
};

int main(int argc, char** argv)
{
    if (!RealServer::obstacle().isEmpty()) {
        NoRealServerTest test;
        return QTest::qExec(&test, argc, argv);
    }
    RealServer server;
    server.useForThisProcess();
    RealDevicesTest test(server);
    return runWithFailurePictures(test, server.display(), argc, argv);
}

#include "tst_realdevices.moc"
