#pragma once

#include "x11/Types.h"

// Follows whether the input focus is in a window of another program, that is, on it or on one of
// its descendants. The other program notices nothing of it.
class FocusWatch {
public:
    FocusWatch(Display* xDisplay, Window watchedWindow);

    bool isInside() const { return inside; }

    // The window was destroyed, or was never there.
    bool isWindowGone() const { return gone; }

    // To be given every event of the connection.
    void handle(const XEvent& event);

private:
    void look();

    Display* display;
    Window window;
    bool inside = false;
    bool gone = false;
};
