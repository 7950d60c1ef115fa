#include "app/KbdApp.h"
#include "harness/FailurePictures.h"
#include "harness/KeyTargetProcess.h"
#include "harness/PrivateServer.h"
#include "harness/WindowManager.h"
#include "harness/XErrors.h"
#include "harness/XProxy.h"
#include "harness/XTools.h"
#include "keys/KbdKey.h"
#include "model/KbdGeometry.h"
#include "ui/MainWindow.h"
#include "ui/specs/KbdSpec.h"
#include "x11/CoreKeyboard.h"
#include "x11/X11.h"

#include <QTest>
#include <QTimer>

#include <algorithm>
#include <array>
#include <atomic>
#include <memory>
#include <poll.h>

namespace {

constexpr int leftButton = 1;
constexpr int rightButton = 3;

constexpr int suspensionMs = 1000;
constexpr int patienceMs = 300; // with a server that serves another program

constexpr unsigned int allButtons =
    Button1Mask | Button2Mask | Button3Mask | Button4Mask | Button5Mask;

// Keys whose clicks follow one another, and what they type.
constexpr std::array row{"AB01", "AB02", "AB03", "AB04", "AB05", "AB06", "AB07"};
constexpr std::array typedByRow{"z", "x", "c", "v", "b", "n", "m"};

QStringList typedBy(int clicks)
{
    QStringList result;
    for (int click = 0; click < clicks; ++click)
        result << typedByRow.at(static_cast<std::size_t>(click) % typedByRow.size());
    return result;
}

// XKB protocol, "SetControls".
bool isChangeOfControls(const QByteArray& request, int xkbOpcode)
{
    constexpr char setControls = 7;
    return static_cast<unsigned char>(request.at(0)) == xkbOpcode && request.at(1) == setControls;
}

// Returns when the server has done it, or does not listen because it serves another program only.
void tryToSwitchOffMouseKeys(Display* display)
{
    XkbSelectEvents(display, x11::coreKeyboard, XkbControlsNotifyMask, XkbControlsNotifyMask);
    CoreKeyboard(display).setMouseKeys(false);
    pollfd readable{XConnectionNumber(display), POLLIN, 0};
    poll(&readable, 1, patienceMs);
}

kbdSpec_t germanSpec()
{
    return {"Germany", "Germany", QString(), {"pc105"}, {"de"}, {QString()}};
}

} // namespace

// What becomes of the clicks of a mouse, whatever goes on beside them. Every function has a program
// and, but in the try-out mode, a target of its own.
class ClicksTest : public QObject {
    Q_OBJECT

public:
    explicit ClicksTest(QByteArray displayName)
        : display(std::move(displayName))
        , connection(openDisplay(display))
    {
    }

private slots:
    void cleanup();

    void noneIsLostWhileTheWindowManagerIsLate_data();
    void noneIsLostWhileTheWindowManagerIsLate();
    void oneTypesWithoutTheInputExtension();
    void noKeyStaysDownWhenTheKeyboardChangesUnderAButton_data();
    void noKeyStaysDownWhenTheKeyboardChangesUnderAButton();
    void aKeyOfTheKeypadIsTypedWhileMouseKeysAreOn_data();
    void aKeyOfTheKeypadIsTypedWhileMouseKeysAreOn();
    void mouseKeysThatAreSwitchedOffDuringAClickStayOff();

private:
    bool start(const QByteArray& option, const QByteArray& programDisplay);
    bool startTarget();
    MainWindow* mainWindow() const;
    QPoint place(const char* name) const;
    void moveTo(const char* name) const;
    void button(int number, bool down) const;
    void click(const char* name) const;
    void clickRow(int clicks, int intervalMs);
    QStringList typed() const;
    QList<int> pressed() const { return pressedKeys(display); }
    void setMouseKeys(bool on) const;
    unsigned int buttonsDown() const;

    QByteArray display;
    XConnection connection;
    std::array<QByteArray, 2> arguments{"tst_clicks", ""};
    std::array<char*, 3> argumentVector{};
    std::unique_ptr<WindowManager> manager;
    std::unique_ptr<XProxy> hider;
    std::unique_ptr<KbdApp> application;
    std::unique_ptr<KeyTargetProcess> target;
};

bool ClicksTest::start(const QByteArray& option, const QByteArray& programDisplay)
{
    qputenv("DISPLAY", programDisplay);
    // What hides the extension passes no shared memory on.
    qputenv("QT_XCB_NO_MITSHM", "1");
    arguments[1] = option;
    argumentVector = {arguments[0].data(), arguments[1].data(), nullptr};
    int count = 1;
    {
        const QCoreApplication forTheTool(count, argumentVector.data());
        if (!setKeyboard(display, {"-model", "pc105", "-layout", "us"}))
            return false;
    }
    application = std::make_unique<KbdApp>(2, argumentVector.data());
    failOnXErrors();
    return QTest::qWaitForWindowExposed(mainWindow());
}

bool ClicksTest::startTarget()
{
    target = std::make_unique<KeyTargetProcess>(display);
    return target->waitForReady();
}

void ClicksTest::cleanup()
{
    for (const int number : {leftButton, rightButton})
        button(number, false);
    setMouseKeys(false);
    target.reset();
    application.reset();
    hider.reset();
    manager.reset();
    // It leaves its announcement behind, which the next target would believe.
    XDeleteProperty(connection.get(), DefaultRootWindow(connection.get()),
        XInternAtom(connection.get(), "_NET_SUPPORTING_WM_CHECK", x11::xFalse));
    XSync(connection.get(), x11::xFalse);
    QTRY_COMPARE(pressed(), QList<int>());
}

MainWindow* ClicksTest::mainWindow() const
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (auto* found = qobject_cast<MainWindow*>(window))
            return found;
    }
    return nullptr;
}

// The middle of a key on the screen.
QPoint ClicksTest::place(const char* name) const
{
    const KbdGeometry* picture = mainWindow()->picture();
    const QList<KbdKey*> keys = picture->keyItems();
    for (const KbdKey* key : keys) {
        if (key->name() == name)
            return picture->viewport()->mapToGlobal(
                picture->mapFromScene(key->sceneBoundingRect().center()));
    }
    return {};
}

void ClicksTest::moveTo(const char* name) const
{
    const QPoint point = place(name);
    XTestFakeMotionEvent(connection.get(), -1, point.x(), point.y(), CurrentTime);
    XSync(connection.get(), x11::xFalse);
}

void ClicksTest::button(int number, bool down) const
{
    XTestFakeButtonEvent(connection.get(), static_cast<unsigned int>(number), down, CurrentTime);
    XSync(connection.get(), x11::xFalse);
}

void ClicksTest::click(const char* name) const
{
    moveTo(name);
    button(leftButton, true);
    button(leftButton, false);
}

// One after the other at an even pace; the last one has been sent when this returns.
void ClicksTest::clickRow(int clicks, int intervalMs)
{
    int done = 0;
    QTimer pace;
    pace.setTimerType(Qt::PreciseTimer);
    connect(&pace, &QTimer::timeout, this, [&] {
        click(row.at(static_cast<std::size_t>(done++) % row.size()));
        if (done == clicks)
            pace.stop();
    });
    pace.start(intervalMs);
    QTRY_COMPARE(done, clicks);
}

QStringList ClicksTest::typed() const
{
    QStringList result;
    const QList<KeyTargetLine> lines = target->keys();
    for (const KeyTargetLine& line : lines) {
        if (line.kind == KeyTargetLine::Kind::Press)
            result << line.keysym;
    }
    return result;
}

void ClicksTest::setMouseKeys(bool on) const
{
    CoreKeyboard(connection.get()).setMouseKeys(on);
    XSync(connection.get(), x11::xFalse);
}

unsigned int ClicksTest::buttonsDown() const
{
    Window window = x11::none;
    int place = 0;
    unsigned int state = 0;
    XQueryPointer(connection.get(), DefaultRootWindow(connection.get()), &window, &window, &place,
        &place, &place, &place, &state);
    return state & allButtons;
}

void ClicksTest::noneIsLostWhileTheWindowManagerIsLate_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("clicksPerSecond");
    QTest::addColumn<bool>("isSuspended");
    for (const char* name : {"openbox", "metacity", "xfwm4"}) {
        QTest::addRow("%s, 8 a second, suspended", name) << QByteArray(name) << 8 << true;
        QTest::addRow("%s, 30 a second, suspended", name) << QByteArray(name) << 30 << true;
        QTest::addRow("%s, 30 a second", name) << QByteArray(name) << 30 << false;
    }
}

void ClicksTest::noneIsLostWhileTheWindowManagerIsLate()
{
    QFETCH(QByteArray, name);
    QFETCH(int, clicksPerSecond);
    QFETCH(bool, isSuspended);
    manager = std::make_unique<WindowManager>(name, display);
    QVERIFY(start("--tofocus", display));
    QVERIFY(startTarget());

    if (isSuspended) {
        manager->suspend();
        QTimer::singleShot(suspensionMs, this, [this] {
            if (manager)
                manager->resume();
        });
    }
    const int clicks = clicksPerSecond * 3 / 2;
    clickRow(clicks, 1000 / clicksPerSecond);
    // What the manager held back comes before this.
    click("AC01");
    QTRY_COMPARE(typed(), typedBy(clicks) + QStringList{"a"});
    QTRY_COMPARE(pressed(), QList<int>());
}

void ClicksTest::oneTypesWithoutTheInputExtension()
{
    hider = std::make_unique<XProxy>(display, hidingExtension("XInputExtension"));
    QVERIFY(start("--tofocus", hider->display()));
    QVERIFY(startTarget());
    for (const char* name : row)
        click(name);
    QTRY_COMPARE(typed(), typedBy(static_cast<int>(row.size())));
    QTRY_COMPARE(pressed(), QList<int>());
}

void ClicksTest::noKeyStaysDownWhenTheKeyboardChangesUnderAButton_data()
{
    QTest::addColumn<bool>("hasInputExtension");
    QTest::addColumn<bool>("isReleasedLate");
    QTest::newRow("with the input extension") << true << false;
    QTest::newRow("with the input extension, the button released late") << true << true;
    QTest::newRow("without the input extension") << false << false;
    QTest::newRow("without the input extension, the button released late") << false << true;
}

void ClicksTest::noKeyStaysDownWhenTheKeyboardChangesUnderAButton()
{
    QFETCH(bool, hasInputExtension);
    QFETCH(bool, isReleasedLate);
    if (!hasInputExtension)
        hider = std::make_unique<XProxy>(display, hidingExtension("XInputExtension"));
    QVERIFY(start("--standalone", hider ? hider->display() : display));
    // The first picture of the try-out mode sends its keys to the window alone.
    kbdSpec_t german = germanSpec();
    mainWindow()->newKbdSelected(&german);
    QTRY_VERIFY(mainWindow()->picture()->isVisible());
    moveTo("AC01");
    button(rightButton, true);
    QTRY_VERIFY(!pressed().isEmpty());
    mainWindow()->newKbdSelected(&german);
    QTRY_COMPARE(pressed(), QList<int>());
    QTRY_VERIFY(mainWindow()->picture()->isVisible());

    if (!isReleasedLate)
        button(rightButton, false);
    for (const char* name : {"AC02", "AC03"}) {
        moveTo(name);
        button(leftButton, true);
        QTRY_VERIFY(!pressed().isEmpty());
        button(leftButton, false);
        QTRY_COMPARE(pressed(), QList<int>());
    }
}

void ClicksTest::aKeyOfTheKeypadIsTypedWhileMouseKeysAreOn_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("keysym");
    QTest::newRow("click twice") << QByteArray("KPAD") << "KP_Add";
    QTest::newRow("click") << QByteArray("KP5") << "KP_Begin";
    QTest::newRow("lock the button") << QByteArray("KP0") << "KP_Insert";
    QTest::newRow("release the button") << QByteArray("KPDL") << "KP_Delete";
    QTest::newRow("move") << QByteArray("KP8") << "KP_Up";
    QTest::newRow("choose a button") << QByteArray("KPDV") << "KP_Divide";
}

void ClicksTest::aKeyOfTheKeypadIsTypedWhileMouseKeysAreOn()
{
    QFETCH(QByteArray, name);
    QFETCH(QString, keysym);
    QVERIFY(start("--tofocus", display));
    QVERIFY(startTarget());
    setMouseKeys(true);
    click(name.constData());
    click("AC01");
    click("LFSH"); // its key goes down and up around the next one
    click(name.constData());
    QTRY_COMPARE(typed().mid(0, 3), QStringList({keysym, "a", "Shift_R"}));
    QTRY_COMPARE(typed().size(), 4);
    QTRY_COMPARE(pressed(), QList<int>());
    QCOMPARE(buttonsDown(), 0);
    QVERIFY(CoreKeyboard(connection.get()).hasMouseKeysOn());
}

// The program asks for mouse keys again after the key; just before it another program wants them
// off.
void ClicksTest::mouseKeysThatAreSwitchedOffDuringAClickStayOff()
{
    const XConnection other = openDisplay(display);
    int opcode = 0;
    QVERIFY(XkbQueryExtension(other.get(), &opcode, nullptr, nullptr, nullptr, nullptr));
    std::atomic<int> changes = 0; // counted in the proxy's thread
    hider = std::make_unique<XProxy>(
        display, XProxyManners{{}, [&](QByteArray& request) {
                                   if (isChangeOfControls(request, opcode) && ++changes == 2)
                                       tryToSwitchOffMouseKeys(other.get());
                               }});
    QVERIFY(start("--tofocus", hider->display()));
    QVERIFY(startTarget());
    setMouseKeys(true);
    click("KPAD");
    click("AC01"); // once it has come, the program has done all that
    QTRY_COMPARE(typed(), QStringList({"KP_Add", "a"}));
    QCOMPARE(changes.load(), 2);
    QTRY_VERIFY(!CoreKeyboard(connection.get()).hasMouseKeysOn());
    QTRY_COMPARE(pressed(), QList<int>());
}

int main(int argc, char** argv)
{
    const PrivateServer server;
    server.useForThisProcess();
    ClicksTest test(server.display());
    return runWithFailurePictures(test, server.display(), argc, argv);
}

#include "tst_clicks.moc"
