#include "harness/WindowManager.h"

#include "harness/UserEnvironment.h"
#include "harness/XTools.h"
#include "x11/X11.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <array>
#include <csignal>
#include <poll.h>
#include <stdexcept>

namespace {

constexpr int startLimitMs = 15000;
// How often to look for changes that bring no event of the root window.
constexpr int lookAgainMs = 50;
// A server takes no longer for an answer, however busy the machine.
constexpr int answerLimitMs = 1000;

struct ManagerCommand {
    const char* name = nullptr;
    QByteArrayList command;
    const char* settings = nullptr; // a file below the home directory, where it needs one
    const char* content = nullptr;
};

// xfwm4 keeps its settings behind a session bus and does not start without one. fluxbox has another
// program paint the background, which opens a window when it cannot.
ManagerCommand commandOf(const QByteArray& name)
{
    const std::array<ManagerCommand, 6> known{{
        {"openbox", {"openbox", "--sm-disable"}},
        {"xfwm4", {"dbus-run-session", "--", "xfwm4", "--compositor=off", "--vblank=off"}},
        {"metacity", {"metacity", "--sm-disable", "--no-composite"}},
        {"fluxbox", {"fluxbox", "-no-slit", "-no-toolbar"}, ".fluxbox/overlay",
            "background: none\n"},
        {"icewm", {"icewm"}},
        {"jwm", {"jwm"}},
    }};
    const auto* const row = std::find_if(
        known.begin(), known.end(), [&](const ManagerCommand& each) { return name == each.name; });
    if (row == known.end())
        throw std::runtime_error("unknown window manager: " + name.toStdString());
    return *row;
}

// The command, once its settings are written.
QByteArrayList prepared(const ManagerCommand& manager, const QDir& home)
{
    if (!manager.settings)
        return manager.command;
    const QString path = home.filePath(QString::fromLatin1(manager.settings));
    QFile file(path);
    if (!home.mkpath(QFileInfo(path).path()) || !file.open(QIODevice::WriteOnly)
        || file.write(manager.content) < 0)
        throw std::runtime_error("no settings for " + std::string(manager.name));
    return manager.command;
}

// A window manager neither reads nor changes the user's settings, and starts without the user's
// session bus.
QByteArrayList privateEnvironment(const QByteArray& display, const QByteArray& home)
{
    QByteArrayList environment = environmentWithoutUser(
        home, {"DISPLAY=" + display, "GSETTINGS_BACKEND=memory", "NO_AT_BRIDGE=1"});
    environment.removeIf(
        [](const QByteArray& entry) { return entry.startsWith("DBUS_SESSION_BUS_ADDRESS="); });
    return environment;
}

void waitForEvents(Display* display)
{
    pollfd server{ConnectionNumber(display), POLLIN, 0};
    poll(&server, 1, lookAgainMs);
    XSync(display, x11::xTrue);
}

// Managers write WM_STATE on every window that they manage (ICCCM 4.1.3.1).
bool isManagedWindow(Display* display, Window window)
{
    int count = 0;
    const x11::Owned<Atom> properties(XListProperties(display, window, &count));
    Atom* const end = properties.get() + count;
    return std::find(properties.get(), end, XInternAtom(display, "WM_STATE", x11::xFalse)) != end;
}

Window windowWithNews(Display* display)
{
    const Window window =
        XCreateSimpleWindow(display, XDefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0);
    XSelectInput(display, window, PropertyChangeMask);
    return window;
}

// Some managers announce themselves before they serve requests, and lose those that come in
// between: maps a window of its own until one is managed.
bool waitUntilManaged(const QByteArray& displayName, ChildProcess& manager)
{
    const XConnection connection = openDisplay(displayName);
    if (!connection)
        return false;
    Display* const display = connection.get();
    const Window probe = windowWithNews(display);
    XSelectInput(display, XDefaultRootWindow(display), PropertyChangeMask);
    const QDeadlineTimer deadline(startLimitMs);
    while (!isManaged(display) || !isManagedWindow(display, probe)) {
        if (deadline.hasExpired() || !manager.isRunning())
            return false;
        if (isManaged(display))
            XMapWindow(display, probe);
        waitForEvents(display);
    }
    return true;
}

} // namespace

WindowManager::WindowManager(const QByteArray& name, const QByteArray& display)
    : manager(std::make_unique<ChildProcess>(prepared(commandOf(name), QDir(home.path())),
          privateEnvironment(display, home.path().toLocal8Bit())))
    , connection(openDisplay(display))
    , answerWindow(connection ? windowWithNews(connection.get()) : x11::none)
{
    if (!connection || !waitUntilManaged(display, *manager)) {
        throw std::runtime_error(name.toStdString()
            + " does not manage the display: " + manager->output().toStdString());
    }
}

// With the session bus that it may run behind.
void WindowManager::suspend() const
{
    kill(-manager->processId(), SIGSTOP);
    // Two answers: the server may give the first before it has read a grab that the manager asked
    // for.
    while (!serverAnswers() || !serverAnswers()) {
        resume();
        XSync(connection.get(), x11::xTrue);
        kill(-manager->processId(), SIGSTOP);
    }
}

void WindowManager::resume() const
{
    kill(-manager->processId(), SIGCONT);
}

// Does not wait for ever, as XSync would.
bool WindowManager::serverAnswers() const
{
    Display* const display = connection.get();
    XChangeProperty(display, answerWindow, XA_WM_NAME, XA_STRING, 8, PropModeReplace, nullptr, 0);
    XFlush(display);
    pollfd server{ConnectionNumber(display), POLLIN, 0};
    const bool answered = poll(&server, 1, answerLimitMs) > 0;
    XEvent event;
    while (XPending(display) > 0)
        XNextEvent(display, &event);
    return answered;
}
