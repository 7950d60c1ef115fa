#pragma once

#include "x11/X11.h"

// While it lives the server serves no other client: what is read and then written under a grab
// cannot be changed by another tool in between. Short work only; do not nest.
class ServerGrab {
public:
    explicit ServerGrab(Display* xDisplay)
        : display(xDisplay)
    {
        XGrabServer(display);
    }
    ~ServerGrab()
    {
        XUngrabServer(display);
        XSync(display, x11::xFalse);
    }
    ServerGrab(const ServerGrab&) = delete;
    ServerGrab& operator=(const ServerGrab&) = delete;

private:
    Display* display;
};
