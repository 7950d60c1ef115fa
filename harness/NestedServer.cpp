#include "harness/NestedServer.h"

#include "harness/XTools.h"
#include "x11/X11.h"

#include <QDeadlineTimer>

#include <stdexcept>

namespace {

constexpr int windowLimitMs = 10000;

QByteArrayList environmentOn(const QByteArray& display)
{
    QByteArrayList environment = currentEnvironment();
    environment.removeIf([](const QByteArray& entry) { return entry.startsWith("DISPLAY="); });
    return environment << "DISPLAY=" + display;
}

// The only window in sight; none while there is not any.
Window shownWindow(Display* display)
{
    Window root = x11::none;
    Window parent = x11::none;
    Window* list = nullptr;
    unsigned int count = 0;
    XQueryTree(display, XDefaultRootWindow(display), &root, &parent, &list, &count);
    const x11::Owned<Window> windows(list);
    for (unsigned int i = 0; i < count; ++i) {
        XWindowAttributes attributes;
        if (XGetWindowAttributes(display, list[i], &attributes)
            && attributes.map_state == IsViewable)
            return list[i];
    }
    return x11::none;
}

Window waitForWindow(Display* display)
{
    const QDeadlineTimer deadline(windowLimitMs);
    Window window = x11::none;
    while (window == x11::none && !deadline.hasExpired())
        window = shownWindow(display);
    return window;
}

} // namespace

NestedServer::NestedServer(const PrivateServer& outer)
    : PrivateServer({"Xephyr", "-screen", "1000x700"}, environmentOn(outer.display()))
{
    const XConnection connection = openDisplay(outer.display());
    const Window window = waitForWindow(connection.get());
    if (window == x11::none)
        throw std::runtime_error("Xephyr shows no window");
    XSetInputFocus(connection.get(), window, RevertToPointerRoot, CurrentTime);
    XSync(connection.get(), x11::xFalse);
}
