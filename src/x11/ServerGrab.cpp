#include "x11/ServerGrab.h"

#include "x11/X11.h"

ServerGrab::ServerGrab(Display* xDisplay)
    : display(xDisplay)
{
    XGrabServer(display);
}

ServerGrab::~ServerGrab()
{
    XUngrabServer(display);
    XFlush(display);
}
