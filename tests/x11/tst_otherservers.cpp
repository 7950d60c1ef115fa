#include "app/description/ComponentNames.h"
#include "harness/FailurePictures.h"
#include "harness/KeyTargetProcess.h"
#include "harness/NestedServer.h"
#include "harness/PictureLocator.h"
#include "harness/ProgramRun.h"
#include "harness/VncServer.h"
#include "harness/WaylandServer.h"
#include "harness/XTools.h"
#include "x11/X11.h"

#include <QTest>

#include <functional>
#include <memory>

namespace {

// Of the picture of pc-arvane(pc105) in tenths of a millimetre: the ground and, on it, a letter.
constexpr QRectF ground{0, 0, 4317, 1269};
constexpr QRgb groundColour = qRgb(169, 169, 169);
constexpr QPointF placeOfA{470, 850};

constexpr int keyA = 38; // of the keymap "evdev"
constexpr unsigned int leftButton = 1;

constexpr char waylandLine[] = "Keys clicked here reach the windows of X programs only: this X "
                               "server (Xwayland) hands none on to Wayland programs.\n";

// Starts the servers of a row; the last one is tried.
using Servers = std::vector<std::shared_ptr<PrivateServer>>;
using ServerStart = std::function<Servers()>;

template <typename Server>
Servers start()
{
    Servers servers;
    servers.push_back(std::make_shared<Server>());
    return servers;
}

Servers startNested()
{
    Servers servers = start<PrivateServer>();
    servers.push_back(std::make_shared<NestedServer>(*servers.front()));
    return servers;
}

void click(Display* display, const QPoint& place)
{
    XTestFakeMotionEvent(display, -1, place.x(), place.y(), CurrentTime);
    XTestFakeButtonEvent(display, leftButton, x11::xTrue, CurrentTime);
    XTestFakeButtonEvent(display, leftButton, x11::xFalse, CurrentTime);
    XSync(display, x11::xFalse);
}

} // namespace

// The program on the kinds of X servers that people have.
class OtherServersTest : public QObject {
    Q_OBJECT

private slots:
    void clickedKeysAreTyped_data();
    void clickedKeysAreTyped();
    void theTryOutModeSaysNothing_data() { clickedKeysAreTyped_data(); }
    void theTryOutModeSaysNothing();
};

void OtherServersTest::clickedKeysAreTyped_data()
{
    QTest::addColumn<ServerStart>("startServers");
    QTest::addColumn<QByteArray>("line"); // on standard error
    QTest::newRow("Xvfb") << ServerStart(start<PrivateServer>) << QByteArray();
    QTest::newRow("Xephyr") << ServerStart(startNested) << QByteArray();
    QTest::newRow("Xvnc") << ServerStart(start<VncServer>) << QByteArray();
    QTest::newRow("Xwayland") << ServerStart(start<WaylandServer>) << QByteArray(waylandLine);
}

// On Xwayland too, into the windows of X programs.
void OtherServersTest::clickedKeysAreTyped()
{
    QFETCH(ServerStart, startServers);
    QFETCH(QByteArray, line);
    const Servers servers = startServers();
    servers.back()->useForThisProcess();
    const QByteArray display = servers.back()->display();
    const XConnection connection = openDisplay(display);
    QVERIFY(setKeyboard(display, {"-model", "pc105", "-layout", "us"}));

    ProgramRun program(KBD_PROGRAM, display);
    program.setWorkingDirectory(KBD_LAYOUT_DIRECTORY);
    program.start({"--tofocus"});
    const Window window = program.waitForWindow(connection.get());
    QVERIFY2(window != x11::none, program.errors().constData());
    PictureLocator locator(connection.get(), window, ground, groundColour);
    QVERIFY(locator.waitForPicture());
    KeyTargetProcess target(display, {0, 0, 100, 100});
    QVERIFY(target.waitForReady());
    click(connection.get(), locator.fromScene(placeOfA));
    QVERIFY(target.waitForKeys(2));
    QCOMPARE(target.keys().first().keycode, keyA);
    QCOMPARE(target.keys().first().text, "a");
    QTRY_COMPARE(pressedKeys(display), QList<int>());
    QTRY_COMPARE(program.errors(), line);
}

// There the keys go to the program's own text line.
void OtherServersTest::theTryOutModeSaysNothing()
{
    QFETCH(ServerStart, startServers);
    const Servers servers = startServers();
    servers.back()->useForThisProcess();
    const QByteArray display = servers.back()->display();
    const XConnection connection = openDisplay(display);
    ProgramRun program(KBD_PROGRAM, display);
    program.setWorkingDirectory(KBD_LAYOUT_DIRECTORY);
    program.start({"--standalone", "--layout", "fr", "--model", "pc105"});
    const Window window = program.waitForWindow(connection.get());
    QVERIFY2(window != x11::none, program.errors().constData());
    PictureLocator locator(connection.get(), window, ground, groundColour);
    QVERIFY(locator.waitForPicture());
    QCOMPARE(program.errors(), QByteArray());
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    OtherServersTest test;
    return runWithFailurePictures(test, {}, argc, argv);
}

#include "tst_otherservers.moc"
