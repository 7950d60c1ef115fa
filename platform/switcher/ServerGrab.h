#pragma once

#include "x11/X11.h"

// While it lives the server serves no other client: what is read and then written under a grab
// cannot be changed by another tool in between. Short work only; do not nest.
class ServerGrab {
public:
    explicit ServerGrab(Display* display)
        : m_display(display)
    {
        XGrabServer(m_display);
    }
    ~ServerGrab()
    {
        XUngrabServer(m_display);
        XSync(m_display, x11::xFalse);
    }
    ServerGrab(const ServerGrab&) = delete;
    ServerGrab& operator=(const ServerGrab&) = delete;

private:
    Display* m_display;
};
