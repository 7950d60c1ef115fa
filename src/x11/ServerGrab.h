#pragma once

#include "x11/Types.h"

// While it lives the server serves no other client: what is read and then written under a grab
// cannot be changed by another program in between. Short work only; do not nest.
class ServerGrab {
public:
    // The display is borrowed.
    explicit ServerGrab(Display* xDisplay);
    ~ServerGrab();
    ServerGrab(const ServerGrab&) = delete;
    ServerGrab& operator=(const ServerGrab&) = delete;

private:
    Display* display;
};
