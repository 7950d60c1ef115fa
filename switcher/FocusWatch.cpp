#include "switcher/FocusWatch.h"

#include "x11/X11.h"

namespace {

Window parentOf(Display* display, Window window)
{
    Window root = x11::none;
    Window parent = x11::none;
    Window* children = nullptr;
    unsigned int count = 0;
    const bool exists = XQueryTree(display, window, &root, &parent, &children, &count);
    const x11::Owned<Window> owned(children);
    return exists ? parent : x11::none;
}

bool isWithin(Display* display, Window inner, Window outer)
{
    for (Window window = inner; window != x11::none; window = parentOf(display, window)) {
        if (window == outer)
            return true;
    }
    return false;
}

} // namespace

FocusWatch::FocusWatch(Display* xDisplay, Window watchedWindow)
    : display(xDisplay)
    , window(watchedWindow)
{
    XSelectInput(display, window, FocusChangeMask | StructureNotifyMask);
    XWindowAttributes attributes;
    gone = !XGetWindowAttributes(display, window, &attributes);
    look();
}

void FocusWatch::handle(const XEvent& event)
{
    if (event.xany.window != window)
        return;
    if (event.type == DestroyNotify)
        gone = true;
    look();
}

// The window hears of every change that enters or leaves it, but the events' modes and details
// tell of grabs and of the pointer too: what the server says now is simpler, and up to date.
void FocusWatch::look()
{
    Window focus = x11::none;
    int revertTo = 0;
    XGetInputFocus(display, &focus, &revertTo);
    const bool isOnWindow = focus != x11::none && focus != PointerRoot;
    inside = !gone && isOnWindow && isWithin(display, focus, window);
}
