#include "Desktop.h"

#include "harness/UserEnvironment.h"
#include "x11/Property.h"
#include "x11/Queries.h"
#include "x11/X11.h"

#include <stdexcept>

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 10s;
constexpr auto lookAgain = 20ms; // where nothing tells that it is time to

// Tries the condition after each paint until it is met; false when `patience` is over.
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

Desktop::Desktop(const QSize& screenSize, const QStringList& serverArguments)
    : server(QStringList{QStringLiteral("-screen"), QStringLiteral("0"),
                 QStringLiteral("%1x%2x24").arg(screenSize.width()).arg(screenSize.height())}
          + serverArguments)
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
    const QByteArray directory = home.path().toLocal8Bit();
    // Without an address each program would start a bus of its own, and leave it behind.
    return environmentWithoutUser(directory,
        additions
            + QByteArrayList{"DISPLAY=" + display, "DBUS_SESSION_BUS_ADDRESS=disabled:",
                "QT_QPA_PLATFORM=xcb", "LC_ALL=C.UTF-8", "XDG_CONFIG_DIRS=" + directory});
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

std::optional<Window> Desktop::windowWithoutProcess() const
{
    for (const Window window : property(XDefaultRootWindow(display()), "_NET_CLIENT_LIST")) {
        if (property(window, "_NET_WM_PID").empty() && !property(window, "WM_STATE").empty())
            return window;
    }
    return std::nullopt;
}

Window Desktop::waitForWindow(pid_t process)
{
    return waitFor([&] { return windowOf(process); });
}

Window Desktop::waitForWindowWithoutProcess()
{
    return waitFor([&] { return windowWithoutProcess(); });
}

Window Desktop::waitFor(const std::function<std::optional<Window>()>& find)
{
    std::optional<Window> window;
    if (!waitUntil(watch, [&] { return (window = find()).has_value(); }))
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
