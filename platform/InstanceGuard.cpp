#include "platform/InstanceGuard.h"

#include "x11/ServerGrab.h"
#include "x11/X11.h"

InstanceGuard::InstanceGuard(Display* xDisplay, const QByteArray& name)
    : display(xDisplay)
{
    const Atom selection = XInternAtom(display, name.constData(), x11::xFalse);

    // Two instances that start at once must not both find the selection free.
    const ServerGrab grab(display);
    if (XGetSelectionOwner(display, selection) != x11::none)
        return;
    window = XCreateWindow(
        display, DefaultRootWindow(display), -1, -1, 1, 1, 0, 0, InputOnly, nullptr, 0, nullptr);
    XSetSelectionOwner(display, selection, window, CurrentTime);
}

InstanceGuard::~InstanceGuard()
{
    if (isOwner())
        XDestroyWindow(display, window);
}
