// Random interleavings of everything that users and other programs do, against the rules that hold
// whatever the order: when nothing is held no key is down, and locks, lamps, lit keys and the group
// of the picture are the server's. Of the parts 1/4 and 2/4 are the mode beside other programs and
// the try-out mode with XTest's devices, 3/4 and 4/4 the same with a keyboard, a mouse and a touch
// screen of their own, where such a server can be started.

#include "harness/RealServer.h"
#include "harness/WindowManager.h"
#include "tests/long/Chaos.h"
#include "tests/long/LongRun.h"
#include "x11/Queries.h"
#include "x11/X11.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <memory>

namespace {

constexpr int actionsInEachMode = 100000;

// Binds no keys and no buttons of its own, so that all of them reach the windows.
constexpr char managerSettings[] =
    "<openbox_config xmlns=\"http://openbox.org/3.4/rc\"><keyboard/></openbox_config>\n";

// The settings of a window manager, which looks for them in the user's directories.
class ManagerSettings {
public:
    explicit ManagerSettings(LongRun& run)
    {
        QDir(directory.path()).mkdir("openbox");
        QFile file(directory.filePath("openbox/rc.xml"));
        if (!file.open(QIODevice::WriteOnly) || file.write(managerSettings) < 0)
            run.broken(QStringLiteral("no settings for the window manager"));
        qputenv("XDG_CONFIG_DIRS", directory.path().toLocal8Bit());
    }

private:
    QTemporaryDir directory;
};

QStringList liveOn(Display* display, Hands& hands, const QByteArray& option, LongRun& run)
{
    const ManagerSettings settings(run);
    std::unique_ptr<WindowManager> manager;
    int managers = 0;
    Chaos chaos(display, hands, run);
    while (run.goesOn() && chaos.actions() < actionsInEachMode) {
        if (!x11::hasWindowManager(display)) { // at the beginning, or openbox has crashed
            manager.reset();
            manager = std::make_unique<WindowManager>("openbox", XDisplayString(display));
            ++managers;
        }
        chaos.live(option);
    }
    const QString devices = hands.fingers() > 0 ? QStringLiteral("touches and real devices")
                                                : QStringLiteral("XTest's devices");
    return {QStringLiteral("%1 actions with %2 and %3")
                .arg(chaos.actions())
                .arg(QString::fromLatin1(option), devices),
        QStringLiteral("%1 looks").arg(chaos.looks()),
        QStringLiteral("%1 starts of the window manager").arg(managers),
        QStringLiteral("%1 programs killed that held a key").arg(chaos.kills())};
}

QStringList liveWithXTest(const QByteArray& option, LongRun& run)
{
    const PrivateServer server;
    server.useForThisProcess();
    const XConnection connection = openDisplay(server.display());
    XTestHands hands(connection.get());
    return liveOn(connection.get(), hands, option, run);
}

QStringList liveWithRealDevices(const QByteArray& option, LongRun& run)
{
    const QString obstacle = RealServer::obstacle();
    if (!obstacle.isEmpty())
        return {QStringLiteral("no real devices (%1)").arg(obstacle)};
    RealServer server;
    server.useForThisProcess();
    const XConnection connection = openDisplay(server.display());
    RealHands hands(server);
    return liveOn(connection.get(), hands, option, run);
}

} // namespace

int main(int argc, char** argv)
{
    LongRun run("random interleavings", argc, argv);
    const QByteArrayList options{"--tofocus", "--standalone"};
    QStringList figures;
    for (qsizetype i = 0; i < options.size(); ++i) {
        if (run.isOurs(i))
            figures << liveWithXTest(options.at(i), run);
        if (run.isOurs(options.size() + i))
            figures << liveWithRealDevices(options.at(i), run);
    }
    return run.finish(figures);
}
