#include "switcher/FocusWatch.h"

#include "x11/Queries.h"
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

// Every focus change into or out of the window sends an event, but also grabs and pointer movements
// do. To ask the server is simpler than to tell them apart, and up to date.
void FocusWatch::look()
{
    const Window focus = x11::focusWindow(display);
    inside = !gone && isWithin(display, focus, window);
}
