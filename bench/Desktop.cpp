#include "Desktop.h"

#include "x11/Property.h"
#include "x11/Queries.h"
#include "x11/X11.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 10s;
constexpr auto lookAgain = 20ms; // where nothing tells that it is time to

// What a session tells its programs, and what would change how they look.
constexpr std::array<const char*, 12> usersOwn{"WAYLAND_DISPLAY", "XAUTHORITY", "SESSION_MANAGER",
    "DESKTOP_SESSION", "XDG_CURRENT_DESKTOP", "LANG", "LANGUAGE", "QT_QPA_PLATFORMTHEME",
    "QT_STYLE_OVERRIDE", "QT_SCALE_FACTOR", "QT_FONT_DPI", "QT_PLUGIN_PATH"};

QByteArray nameOf(const QByteArray& variable)
{
    return variable.left(variable.indexOf('='));
}

// Looks until it is so, or the time is over.
template <typename Condition>
bool waitUntil(ScreenWatch& screen, Condition condition)
{
    const auto deadline = ScreenWatch::Clock::now() + patience;
    while (!condition()) {
        if (ScreenWatch::Clock::now() > deadline)
            return false;
        screen.waitForPaint(ScreenWatch::Clock::now() + lookAgain);
    }
    return true;
}

} // namespace

Desktop::Desktop(const QSize& screenSize)
    : server({QStringLiteral("-screen"), QStringLiteral("0"),
        QStringLiteral("%1x%2x24").arg(screenSize.width()).arg(screenSize.height())})
    , windowManager("openbox", server.display())
    , connection(openDisplay(server.display()))
    , watch(server.display())
{
    if (!connection)
        throw std::runtime_error("no connection to the private server");
}

QByteArrayList Desktop::environment(
    const QByteArray& display, const QByteArrayList& additions) const
{
    QByteArrayList set = additions;
    // Without an address each program would start a bus of its own, and leave it behind.
    set << "DISPLAY=" + display << "DBUS_SESSION_BUS_ADDRESS=disabled:"
        << "QT_QPA_PLATFORM=xcb"
        << "LC_ALL=C.UTF-8";
    for (const char* variable :
        {"HOME=", "XDG_RUNTIME_DIR=", "XDG_CONFIG_HOME=", "XDG_CACHE_HOME=", "XDG_CONFIG_DIRS="})
        set << variable + home.path().toLocal8Bit();

    QByteArrayList left(usersOwn.begin(), usersOwn.end());
    for (const QByteArray& variable : std::as_const(set))
        left << nameOf(variable);
    for (const QByteArray& variable : currentEnvironment()) {
        if (!left.contains(nameOf(variable)))
            set << variable;
    }
    return set;
}

std::vector<unsigned long> Desktop::property(Window window, const char* name) const
{
    return x11::property(display(), window, name).numbers;
}

std::optional<Window> Desktop::windowOf(pid_t process) const
{
    const std::vector<unsigned long> wanted{static_cast<unsigned long>(process)};
    for (const Window window : property(XDefaultRootWindow(display()), "_NET_CLIENT_LIST")) {
        if (property(window, "_NET_WM_PID") == wanted)
            return window;
    }
    return std::nullopt;
}

Window Desktop::waitForWindow(pid_t process)
{
    std::optional<Window> window;
    if (!waitUntil(watch, [&] { return (window = windowOf(process)).has_value(); }))
        throw std::runtime_error("a program shows no window");
    return *window;
}

QRect Desktop::areaOf(Window window) const
{
    XWindowAttributes attributes{};
    int x = 0;
    int y = 0;
    Window child = x11::none;
    if (!XGetWindowAttributes(display(), window, &attributes)
        || !XTranslateCoordinates(display(), window, attributes.root, 0, 0, &x, &y, &child))
        throw std::runtime_error("a program's window has gone");
    return {x, y, attributes.width, attributes.height};
}

void Desktop::waitForFocus(Window window)
{
    const auto hasFocus = [&] { return x11::focusWindow(display()) == window; };
    if (!waitUntil(watch, hasFocus))
        throw std::runtime_error("a window does not get the focus");
}
