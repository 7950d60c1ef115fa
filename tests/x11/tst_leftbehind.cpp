#include "app/description/ComponentNames.h"
#include "harness/KeyTargetProcess.h"
#include "harness/PictureKeys.h"
#include "harness/PictureLocator.h"
#include "harness/ProgramRun.h"
#include "harness/WindowManager.h"
#include "harness/XTestMain.h"
#include "harness/XTools.h"
#include "keys/KbdKey.h"
#include "model/KbdGeometry.h"
#include "ui/MainWindow.h"
#include "ui/specs/KbdSpec.h"
#include "x11/X11.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <csignal>
#include <memory>

namespace {

// Keycodes of the keymap "evdev".
constexpr KeyCode keyA = 38;
constexpr KeyCode keyD = 40;
constexpr KeyCode leftShift = 50;
constexpr KeyCode rightShift = 62;

constexpr QRgb baseColour = qRgb(169, 169, 169); // "darkgrey"

constexpr int firstButton = 1;
constexpr int thirdButton = 3;

constexpr int closeMessage = 0; // in place of a signal's number

const QList<int> shiftAndA{keyA, rightShift};

std::unique_ptr<MainWindow> makeWindow(bool wantXTest)
{
    XkbComponentNamesRec names{};
    const ComponentNamesGuard guard(&names);
    if (!queryComponentNames(&names, toolkitDisplay(), {}, {}, {}, {}))
        return nullptr;
    auto window = std::make_unique<MainWindow>(
        QString(), QString(), QString(), QString(), &names, wantXTest, nullptr, Qt::WindowFlags());
    // As the program shows it with "--tofocus".
    window->showLayoutSelector(false);
    window->hideTypingArea();
    return window;
}

QPointF sceneCentreOf(const MainWindow& window, KeyCode keycode)
{
    const KbdKey* key = keyWithCode(*window.picture(), keycode);
    return key ? key->mapRectToScene(key->boundingRect()).center() : QPointF();
}

QPushButton* closeButtonOf(const MainWindow& window)
{
    const auto buttons = window.findChildren<QPushButton*>();
    for (QPushButton* button : buttons)
        if (button->text() == "Close")
            return button;
    return nullptr;
}

// A client that is no window manager asks the window to close (ICCCM 4.2.8.1).
void askToClose(Display* display, Window window)
{
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", x11::xFalse);
    event.xclient.format = 32;
    event.xclient.data.l[0] =
        static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", x11::xFalse));
    XSendEvent(display, window, x11::xFalse, NoEventMask, &event);
    XFlush(display);
}

// The mouse on a picture of this process's own.
void pressKeyOf(const MainWindow& window, KeyCode keycode)
{
    KbdGeometry* const picture = window.picture();
    QTest::mousePress(picture->viewport(), Qt::LeftButton, {},
        picture->mapFromScene(sceneCentreOf(window, keycode)));
}

void releaseKeyOf(const MainWindow& window, KeyCode keycode)
{
    KbdGeometry* const picture = window.picture();
    QTest::mouseRelease(picture->viewport(), Qt::LeftButton, {},
        picture->mapFromScene(sceneCentreOf(window, keycode)));
}

void holdShiftAndAOf(const MainWindow& window)
{
    pressKeyOf(window, leftShift);
    releaseKeyOf(window, leftShift);
    pressKeyOf(window, keyA);
}

std::unique_ptr<MainWindow> shownWindow()
{
    std::unique_ptr<MainWindow> window = makeWindow(true);
    window->resize(900, 400);
    window->show();
    if (!QTest::qWaitForWindowExposed(window.get()))
        return nullptr;
    return window;
}

kbdSpec_t germanSpec()
{
    return {"Germany", "Germany", QString(), {"pc105"}, {"de"}, {QString()}};
}

void tellOfKey(const MainWindow& window, KeyCode keycode, bool down)
{
    XKeyEvent event{};
    event.type = down ? x11::keyPress : x11::keyRelease;
    event.keycode = keycode;
    if (down)
        window.picture()->x11KeyPressEventIn(&event);
    else
        window.picture()->x11KeyReleaseEventIn(&event);
}

} // namespace

// No key stays down in the X server, however it comes that a release is missed: the server would
// repeat the key for ever.
class LeftBehindTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void aReleasedButtonReleasesTheKeys_data();
    void aReleasedButtonReleasesTheKeys();
    void anEndedProgramHoldsNoKey_data();
    void anEndedProgramHoldsNoKey();
    void whatAKilledProgramHeldIsReleasedByTheNext_data();
    void whatAKilledProgramHeldIsReleasedByTheNext();
    void aProgramThatStartsLeavesTheKeysOfALivingOneAlone();
    void theCloseButtonFreesAKeyOfAnotherButton();
    void aWindowThatGoesOutOfSightHoldsNoKey_data();
    void aWindowThatGoesOutOfSightHoldsNoKey();

    void theCloseButtonLeavesNoKeyDown();
    void aReplacedPictureLeavesNoKeyDown();
    void theNewPictureReleasesItsKeysToo();
    void aHiddenWindowLeavesNoKeyDown();
    void aShiftThatGoesMeanwhileIsReleasedAllTheSame();
    void aShiftThatComesMeanwhileStaysDown();

private:
    QByteArray display() const { return qgetenv("DISPLAY"); }
    QList<int> pressed() const { return pressedKeys(display()); }

    // The program with "--tofocus"; false when its picture does not come to the screen.
    bool startProgram();
    void moveTo(const QPoint& point);
    void button(int number, bool down);
    void click(const QPoint& point);
    void physicalKey(KeyCode keycode, bool down);
    QPoint placeOf(KeyCode keycode) const;
    QPoint placeOfCloseButton() const;

    // Turns Shift on and keeps A down, with the mouse.
    void holdShiftAndA(int mouseButton = firstButton);
    void waitForGoodEnd();

    QTemporaryDir directory;
    XConnection connection;
    std::unique_ptr<MainWindow> likeness; // never shown: tells where things are in the program
    std::unique_ptr<ProgramRun> program;
    Window programWindow = x11::none;
    std::unique_ptr<PictureLocator> locator;
    QList<int> buttonsDown;
};

void LeftBehindTest::initTestCase()
{
    connection = openDisplay(display());
    QVERIFY(connection);
    // The layout selector is there only with a table, which is looked for in the working directory.
    QFile table(directory.filePath("kbdSpecs.tab"));
    QVERIFY(table.open(QIODevice::WriteOnly));
    table.write("Germany\t\tpc105\tde\t\n");
    QVERIFY(QDir::setCurrent(directory.path()));
    likeness = makeWindow(false);
    QVERIFY(likeness);
}

void LeftBehindTest::init()
{
    QCOMPARE(pressed(), QList<int>());
}

void LeftBehindTest::cleanup()
{
    const QList<int> down = buttonsDown;
    for (const int number : down)
        button(number, false);
    program.reset();
    const QList<int> left = pressed();
    for (const int keycode : left)
        physicalKey(static_cast<KeyCode>(keycode), false);
}

bool LeftBehindTest::startProgram()
{
    program = std::make_unique<ProgramRun>(KBD_PROGRAM, display());
    program->start({"--tofocus"});
    programWindow = program->waitForWindow(connection.get());
    locator = std::make_unique<PictureLocator>(connection.get(), programWindow,
        PictureLocator::groundOf(likeness->picture()->sceneRect()), baseColour);
    return locator->waitForPicture();
}

void LeftBehindTest::moveTo(const QPoint& point)
{
    XTestFakeMotionEvent(connection.get(), -1, point.x(), point.y(), CurrentTime);
    XSync(connection.get(), x11::xFalse);
}

void LeftBehindTest::button(int number, bool down)
{
    XTestFakeButtonEvent(connection.get(), static_cast<unsigned int>(number), down, CurrentTime);
    XSync(connection.get(), x11::xFalse);
    if (down)
        buttonsDown.append(number);
    else
        buttonsDown.removeAll(number);
}

void LeftBehindTest::click(const QPoint& point)
{
    moveTo(point);
    button(firstButton, true);
    button(firstButton, false);
}

void LeftBehindTest::physicalKey(KeyCode keycode, bool down)
{
    XTestFakeKeyEvent(connection.get(), keycode, down ? x11::xTrue : x11::xFalse, CurrentTime);
    XSync(connection.get(), x11::xFalse);
}

QPoint LeftBehindTest::placeOf(KeyCode keycode) const
{
    return locator->fromScene(sceneCentreOf(*likeness, keycode));
}

void LeftBehindTest::holdShiftAndA(int mouseButton)
{
    click(placeOf(leftShift));
    moveTo(placeOf(keyA));
    button(mouseButton, true);
    QTRY_COMPARE(pressed(), shiftAndA);
}

void LeftBehindTest::waitForGoodEnd()
{
    QVERIFY(program->waitForEnd());
    QCOMPARE(program->errors(), QByteArray());
    QCOMPARE(program->output(), QByteArray());
    QCOMPARE(program->exitStatus(), 0);
}

void LeftBehindTest::aReleasedButtonReleasesTheKeys_data()
{
    QTest::addColumn<bool>("hasTarget");
    QTest::addColumn<bool>("togglesShift");
    QTest::newRow("typing into another window") << true << false;
    QTest::newRow("typing into another window, Shift used meanwhile") << true << true;
    QTest::newRow("with the focus where the pointer is") << false << false;
    QTest::newRow("with the focus where the pointer is, Shift used meanwhile") << false << true;
}

void LeftBehindTest::aReleasedButtonReleasesTheKeys()
{
    QFETCH(bool, hasTarget);
    QFETCH(bool, togglesShift);
    std::unique_ptr<KeyTargetProcess> target;
    if (hasTarget)
        target = std::make_unique<KeyTargetProcess>(display());
    QVERIFY(!target || target->waitForReady());
    QVERIFY(startProgram());
    holdShiftAndA();

    if (togglesShift) {
        physicalKey(rightShift, true);
        physicalKey(rightShift, false);
        QCOMPARE(pressed(), QList<int>{keyA});
    }
    button(firstButton, false);
    QTRY_COMPARE(pressed(), QList<int>());

    ::kill(static_cast<pid_t>(program->processId()), SIGTERM);
    waitForGoodEnd();
}

void LeftBehindTest::anEndedProgramHoldsNoKey_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("its window is closed") << closeMessage;
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void LeftBehindTest::anEndedProgramHoldsNoKey()
{
    QFETCH(int, signal);
    KeyTargetProcess target(display());
    QVERIFY(target.waitForReady());
    QVERIFY(startProgram());
    holdShiftAndA();

    if (signal == closeMessage)
        askToClose(connection.get(), programWindow);
    else
        ::kill(static_cast<pid_t>(program->processId()), signal);

    waitForGoodEnd();
    QCOMPARE(pressed(), QList<int>());
}

void LeftBehindTest::whatAKilledProgramHeldIsReleasedByTheNext_data()
{
    QTest::addColumn<QStringList>("mode");
    QTest::newRow("to the window with the focus") << QStringList{"--tofocus"};
    QTest::newRow("stand-alone") << QStringList{"--standalone"};
    QTest::newRow("try-out") << QStringList();
}

// No switcher is there that could do it at once. What others hold stays down.
void LeftBehindTest::whatAKilledProgramHeldIsReleasedByTheNext()
{
    QFETCH(QStringList, mode);
    KeyTargetProcess target(display());
    QVERIFY(target.waitForReady());
    QVERIFY(startProgram());
    holdShiftAndA();
    physicalKey(keyD, true);
    ::kill(static_cast<pid_t>(program->processId()), SIGKILL);
    QVERIFY(program->waitForEnd());
    QCOMPARE(pressed(), (QList<int>{keyA, keyD, rightShift}));

    ProgramRun next(KBD_PROGRAM, display());
    next.start(mode);
    QVERIFY(next.waitForWindow(connection.get()) != x11::none);
    QCOMPARE(pressed(), QList<int>{keyD});
}

void LeftBehindTest::aProgramThatStartsLeavesTheKeysOfALivingOneAlone()
{
    KeyTargetProcess target(display());
    QVERIFY(target.waitForReady());
    QVERIFY(startProgram());
    holdShiftAndA();

    ProgramRun next(KBD_PROGRAM, display());
    next.start();
    QVERIFY(next.waitForWindow(connection.get()) != x11::none);
    QCOMPARE(pressed(), shiftAndA);
    button(firstButton, false);
    QTRY_COMPARE(pressed(), QList<int>());
}

QPoint LeftBehindTest::placeOfCloseButton() const
{
    const auto seen = grabWindow(connection.get(), programWindow);
    const QPushButton* close = closeButtonOf(*likeness);
    if (!seen || !close)
        return {};
    likeness->resize(seen->image.size());
    likeness->grab(); // lays it out
    return seen->topLeft + close->mapTo(likeness.get(), close->rect().center());
}

// The pointer belongs to the picture as long as a button holds a key.
void LeftBehindTest::theCloseButtonFreesAKeyOfAnotherButton()
{
    KeyTargetProcess target(display());
    QVERIFY(target.waitForReady());
    QVERIFY(startProgram());
    holdShiftAndA(thirdButton);

    click(placeOfCloseButton());
    QTRY_COMPARE(pressed(), QList<int>());
    button(thirdButton, false);
    click(placeOfCloseButton());

    waitForGoodEnd();
    QCOMPARE(pressed(), QList<int>());
}

void LeftBehindTest::aWindowThatGoesOutOfSightHoldsNoKey_data()
{
    QTest::addColumn<QByteArray>("manager");
    QTest::newRow("unmapped by another client") << QByteArray();
    QTest::newRow("iconified") << QByteArray("openbox");
}

void LeftBehindTest::aWindowThatGoesOutOfSightHoldsNoKey()
{
    QFETCH(QByteArray, manager);
    std::unique_ptr<WindowManager> windowManager;
    if (!manager.isEmpty())
        windowManager = std::make_unique<WindowManager>(manager, display());
    KeyTargetProcess target(display());
    QVERIFY(target.waitForReady());
    QVERIFY(startProgram());
    // A single press: a window manager that looks at every press before the program gets it may
    // lose what follows at once.
    moveTo(placeOf(keyA));
    button(firstButton, true);
    QTRY_COMPARE(pressed(), QList<int>{keyA});

    if (manager.isEmpty())
        XUnmapWindow(connection.get(), programWindow);
    else
        XIconifyWindow(connection.get(), programWindow, 0);
    XSync(connection.get(), x11::xFalse);

    QTRY_COMPARE(pressed(), QList<int>());
}

void LeftBehindTest::theCloseButtonLeavesNoKeyDown()
{
    const std::unique_ptr<MainWindow> window = shownWindow();
    QVERIFY(window);
    holdShiftAndAOf(*window);
    QTRY_COMPARE(pressed(), shiftAndA);
    QSignalSpy ends(qApp, &QCoreApplication::aboutToQuit);

    QMetaObject::invokeMethod(closeButtonOf(*window), "click", Qt::QueuedConnection);
    QCOMPARE(QApplication::exec(), 0);

    QCOMPARE(ends.size(), 1);
    QCOMPARE(pressed(), QList<int>());
}

void LeftBehindTest::aReplacedPictureLeavesNoKeyDown()
{
    const std::unique_ptr<MainWindow> window = shownWindow();
    QVERIFY(window);
    holdShiftAndAOf(*window);
    QTRY_COMPARE(pressed(), shiftAndA);

    kbdSpec_t german = germanSpec();
    window->newKbdSelected(&german);

    QCOMPARE(pressed(), QList<int>());
}

void LeftBehindTest::theNewPictureReleasesItsKeysToo()
{
    const std::unique_ptr<MainWindow> window = shownWindow();
    QVERIFY(window);
    kbdSpec_t german = germanSpec();
    window->newKbdSelected(&german);
    holdShiftAndAOf(*window);
    QTRY_COMPARE(pressed(), shiftAndA);

    QMetaObject::invokeMethod(closeButtonOf(*window), "click", Qt::QueuedConnection);
    QCOMPARE(QApplication::exec(), 0);

    QCOMPARE(pressed(), QList<int>());
}

void LeftBehindTest::aHiddenWindowLeavesNoKeyDown()
{
    const std::unique_ptr<MainWindow> window = shownWindow();
    QVERIFY(window);
    holdShiftAndAOf(*window);
    QTRY_COMPARE(pressed(), shiftAndA);

    window->hide();

    QCOMPARE(pressed(), QList<int>());
}

void LeftBehindTest::aShiftThatGoesMeanwhileIsReleasedAllTheSame()
{
    const std::unique_ptr<MainWindow> window = shownWindow();
    QVERIFY(window);
    holdShiftAndAOf(*window);
    QTRY_COMPARE(pressed(), shiftAndA);

    // A click on one of the two turned on both.
    for (const KeyCode shift : {leftShift, rightShift}) {
        tellOfKey(*window, shift, true);
        tellOfKey(*window, shift, false);
    }
    QVERIFY(!(window->picture()->modifiers() & x11::shiftMask));
    releaseKeyOf(*window, keyA);

    QTRY_COMPARE(pressed(), QList<int>());
}

void LeftBehindTest::aShiftThatComesMeanwhileStaysDown()
{
    const std::unique_ptr<MainWindow> window = shownWindow();
    QVERIFY(window);
    pressKeyOf(*window, keyA);
    QTRY_COMPARE(pressed(), QList<int>{keyA});

    physicalKey(rightShift, true);
    tellOfKey(*window, rightShift, true);
    QVERIFY(window->picture()->modifiers() & x11::shiftMask);
    releaseKeyOf(*window, keyA);

    QTRY_COMPARE(pressed(), QList<int>{rightShift});
}

KBD_X11_TEST_MAIN(LeftBehindTest)

#include "tst_leftbehind.moc"
