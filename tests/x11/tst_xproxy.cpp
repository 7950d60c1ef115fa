#include "harness/ProgramRun.h"
#include "harness/SlowDisplay.h"
#include "harness/WaitUntil.h"
#include "harness/XProxy.h"
#include "harness/XTestMain.h"
#include "harness/XTools.h"
#include "x11/Property.h"
#include "x11/X11.h"

#include <QElapsedTimer>

#include <memory>

using namespace std::chrono_literals;

namespace {

constexpr qint64 requestSize = 4; // of those without contents

bool hasExtension(const QByteArray& display, const char* name)
{
    const XConnection connection = openDisplay(display);
    int opcode = 0;
    int event = 0;
    int error = 0;
    return connection && XQueryExtension(connection.get(), name, &opcode, &event, &error);
}

qint64 millisecondsForAnAnswer(const QByteArray& display)
{
    const XConnection connection = openDisplay(display);
    QElapsedTimer timer;
    timer.start();
    XSync(connection.get(), x11::xFalse);
    return timer.elapsed();
}

} // namespace

// What stands between a program and an X server, to change, delay and count what they say.
class XProxyTest : public QObject {
    Q_OBJECT

private slots:
    void anExtensionCanBeHidden();
    void anAnswerTakesTheDelayTwice();
    void anAnswerOverASlowDisplayTakesTheDelayTwice();
    void requestsAndAnswersAreCounted();
    void eventsAndErrorsAreCounted();
    void aChangedRequestArrivesAsItWasChanged();
    void aLongRequestAndItsAnswerArriveWhole();
    void requestsThatAreHeldArriveOnceTheyMay();
    void aServerThatEndsTakesItsClientsAlong();

private:
    static QByteArray display() { return qgetenv("DISPLAY"); }
};

void XProxyTest::anExtensionCanBeHidden()
{
    const XProxy proxy(display(), hidingExtension("XKEYBOARD"));
    QVERIFY(hasExtension(display(), "XKEYBOARD"));
    QVERIFY(!hasExtension(proxy.display(), "XKEYBOARD"));
    QVERIFY(hasExtension(proxy.display(), "XTEST"));
}

void XProxyTest::anAnswerTakesTheDelayTwice()
{
    const XProxy proxy(display(), {50ms, {}});
    QCOMPARE_GE(millisecondsForAnAnswer(proxy.display()), 100);
}

void XProxyTest::anAnswerOverASlowDisplayTakesTheDelayTwice()
{
    const SlowDisplay slow(display(), 50ms);
    QCOMPARE_GE(millisecondsForAnAnswer(slow.display()), 100);
}

void XProxyTest::requestsAndAnswersAreCounted()
{
    const XProxy proxy(display());
    const XConnection connection = openDisplay(proxy.display());
    const XTraffic before = proxy.traffic();
    for (int i = 0; i < 3; ++i)
        XSync(connection.get(), x11::xFalse);
    XBell(connection.get(), 0); // has no answer
    XSync(connection.get(), x11::xFalse);
    const XTraffic after = proxy.traffic();
    QCOMPARE(after.requests - before.requests, 5);
    QCOMPARE(after.requestBytes - before.requestBytes, 5 * requestSize);
    QCOMPARE(after.replies - before.replies, 4);
    QCOMPARE(after.events, before.events);
    QCOMPARE(after.errors, before.errors);
}

void XProxyTest::eventsAndErrorsAreCounted()
{
    const XProxy proxy(display());
    const XConnection connection = openDisplay(proxy.display());
    const Window root = XDefaultRootWindow(connection.get());
    const Window window = XCreateSimpleWindow(connection.get(), root, 0, 0, 10, 10, 0, 0, 0);
    XSelectInput(connection.get(), window, PropertyChangeMask);
    const XTraffic before = proxy.traffic();
    XStoreName(connection.get(), window, "one event");
    const ExpectedXErrors errors;
    XMapWindow(connection.get(), x11::none);
    XSync(connection.get(), x11::xFalse);
    const XTraffic after = proxy.traffic();
    QCOMPARE(after.events - before.events, 1);
    QCOMPARE(after.errors - before.errors, 1);
}

void XProxyTest::aChangedRequestArrivesAsItWasChanged()
{
    const auto capitals = [](QByteArray& request) { request.replace("quiet", "LOUD!"); };
    const XProxy proxy(display(), {{}, capitals});
    const XConnection connection = openDisplay(proxy.display());
    const Window root = XDefaultRootWindow(connection.get());
    XStoreName(connection.get(), root, "a quiet name");
    QCOMPARE(x11::property(connection.get(), root, "WM_NAME").bytes, "a LOUD! name");
}

void XProxyTest::aLongRequestAndItsAnswerArriveWhole()
{
    const XProxy proxy(display());
    const XConnection connection = openDisplay(proxy.display());
    QByteArray text(1'000'000, '\0');
    for (qsizetype i = 0; i < text.size(); ++i)
        text[i] = static_cast<char>('a' + i % 23);
    const Window root = XDefaultRootWindow(connection.get());
    const Atom name = XInternAtom(connection.get(), "LONG", x11::xFalse);
    XChangeProperty(connection.get(), root, name, XA_STRING, 8, PropModeReplace,
        reinterpret_cast<const unsigned char*>(text.constData()), static_cast<int>(text.size()));
    QCOMPARE(x11::property(connection.get(), root, "LONG").bytes, text.toStdString());
}

// What others do meanwhile is heard of.
void XProxyTest::requestsThatAreHeldArriveOnceTheyMay()
{
    XProxy proxy(display());
    const XConnection far = openDisplay(proxy.display());
    const XConnection near = openDisplay(display());
    const Window root = XDefaultRootWindow(far.get());
    const Window window = XCreateSimpleWindow(far.get(), root, 0, 0, 10, 10, 0, 0, 0);
    XSelectInput(far.get(), window, PropertyChangeMask);
    XSync(far.get(), x11::xFalse);
    const auto nextChange = [&] {
        XEvent event;
        XNextEvent(far.get(), &event);
        return event.xproperty.atom;
    };

    proxy.holdRequests();
    XSetIconName(far.get(), window, "first");
    XFlush(far.get());
    XStoreName(near.get(), window, "second");
    XFlush(near.get());
    QCOMPARE(nextChange(), Atom{XA_WM_NAME});
    proxy.passHeldRequests();
    QCOMPARE(nextChange(), Atom{XA_WM_ICON_NAME});

    XSetIconName(far.get(), window, "third");
    XFlush(far.get());
    XStoreName(near.get(), window, "fourth");
    XFlush(near.get());
    QCOMPARE(nextChange(), Atom{XA_WM_NAME});
    proxy.passRequests();
    QCOMPARE(nextChange(), Atom{XA_WM_ICON_NAME});
}

void XProxyTest::aServerThatEndsTakesItsClientsAlong()
{
    auto server = std::make_unique<PrivateServer>();
    const XProxy proxy(server->display());
    ProgramRun client("xprop", proxy.display());
    client.start({"-root", "-spy", "_XKB_RULES_NAMES"});
    QVERIFY(waitUntil([&] { return !client.output().isEmpty(); }));
    server.reset();
    QVERIFY(client.waitForEnd());
}

KBD_X11_TEST_MAIN(XProxyTest)

#include "tst_xproxy.moc"
