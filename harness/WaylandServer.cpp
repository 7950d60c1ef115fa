#include "harness/WaylandServer.h"

#include "harness/XTools.h"

#include <QDeadlineTimer>
#include <QFile>

#include <stdexcept>
#include <thread>

namespace {

using namespace std::chrono_literals;

constexpr int startLimitMs = 10000;
constexpr auto lookAgain = 5ms;
constexpr char socketName[] = "wayland-test";

QByteArrayList environmentWith(const QByteArrayList& entries)
{
    QByteArrayList environment = currentEnvironment();
    for (const QByteArray& entry : entries) {
        const QByteArray name = entry.left(entry.indexOf('=') + 1);
        environment.removeIf([&](const QByteArray& each) { return each.startsWith(name); });
    }
    return environment + entries;
}

// Newer ones have a small window if they are not told; older ones take the compositor's screen.
QByteArrayList serverCommand()
{
    const ToolResult help = runTool(QStringLiteral("Xwayland"), {QStringLiteral("-help")}, {});
    QByteArrayList command{"Xwayland"};
    if ((help.output + help.errors).contains("-geometry "))
        command << "-geometry" << "1280x1024";
    return command;
}

} // namespace

Compositor::Compositor()
{
    process = std::make_unique<ChildProcess>(
        QByteArrayList{"weston", "--no-config", "--backend=headless-backend.so",
            QByteArray("--socket=") + socketName, "--width=1280", "--height=1024", "--idle-time=0"},
        environment());
    const QDeadlineTimer deadline(startLimitMs);
    while (!QFile::exists(directory.filePath(QString::fromLatin1(socketName)))) {
        if (deadline.hasExpired() || !process->isRunning())
            throw std::runtime_error("weston is not there: " + process->output().toStdString());
        std::this_thread::sleep_for(lookAgain);
    }
}

QByteArrayList Compositor::environment() const
{
    return environmentWith({"XDG_RUNTIME_DIR=" + directory.path().toLocal8Bit(),
        QByteArray("WAYLAND_DISPLAY=") + socketName});
}

WaylandServer::WaylandServer()
    : PrivateServer(serverCommand(), environment())
{
}
