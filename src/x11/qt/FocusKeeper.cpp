#include "x11/qt/FocusKeeper.h"

#include "x11/Property.h"
#include "x11/X11.h"

#include <QApplication>

namespace {

constexpr char activeWindowName[] = "_NET_ACTIVE_WINDOW"; // EWMH
constexpr long userAction = 2; // as a pager asks: not on behalf of the window itself

} // namespace

FocusKeeper::FocusKeeper(Display* xDisplay)
    : display(xDisplay)
{
    if (!QApplication::activeWindow())
        activeWindow = x11::numberProperty(display, DefaultRootWindow(display), activeWindowName)
                           .value_or(x11::none);
}

// Sent last, so that the window manager does not hand the focus to our keyboard window, which
// refuses it.
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
