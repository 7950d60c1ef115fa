#include "platform/InstanceGuard.h"

InstanceGuard::InstanceGuard(Display* xDisplay, const QByteArray& name)
    : display(xDisplay)
{
    const Atom selection = XInternAtom(display, name.constData(), x11::xFalse);

    // Two instances that start together must not both find the selection free.
    XGrabServer(display);
    if (XGetSelectionOwner(display, selection) == x11::none) {
        window = XCreateWindow(display, DefaultRootWindow(display), -1, -1, 1, 1, 0, 0, InputOnly,
            nullptr, 0, nullptr);
        XSetSelectionOwner(display, selection, window, CurrentTime);
    }
    XUngrabServer(display);
    XFlush(display);
}

InstanceGuard::~InstanceGuard()
{
    if (isOwner())
        XDestroyWindow(display, window);
}
