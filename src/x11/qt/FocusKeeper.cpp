#include "x11/qt/FocusKeeper.h"

#include "x11/X11.h"

#include <QApplication>

namespace {

constexpr char activeWindowName[] = "_NET_ACTIVE_WINDOW"; // EWMH
constexpr long userAction = 2; // as a pager asks: not on behalf of the window itself

Window activeWindowOf(Display* display)
{
    Atom type = x11::none;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display, DefaultRootWindow(display),
        XInternAtom(display, activeWindowName, x11::xFalse), 0, 1, x11::xFalse, AnyPropertyType,
        &type, &format, &count, &rest, &data);
    const x11::Owned<unsigned char> owned(data);
    return format == 32 && count == 1 ? *reinterpret_cast<const unsigned long*>(data) : x11::none;
}

} // namespace

FocusKeeper::FocusKeeper(Display* xDisplay)
    : display(xDisplay)
{
    if (!QApplication::activeWindow())
        activeWindow = activeWindowOf(display);
}

// The window manager takes the request after it has seen our window go, whose focus it would give
// to nobody: the window below it wants none.
FocusKeeper::~FocusKeeper()
{
    if (activeWindow == x11::none)
        return;
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = activeWindow;
    event.xclient.message_type = XInternAtom(display, activeWindowName, x11::xFalse);
    event.xclient.format = 32;
    event.xclient.data.l[0] = userAction;
    XSendEvent(display, DefaultRootWindow(display), x11::xFalse,
        SubstructureRedirectMask | SubstructureNotifyMask, &event);
    XFlush(display);
}
