#pragma once

#include "x11/Types.h"

// Follows whether the input focus is in a window of another program: on it or on one of its
// descendants. Changes nothing that the other program could notice.
class FocusWatch {
public:
    FocusWatch(Display* xDisplay, Window watchedWindow);

    bool isInside() const { return inside; }

    // Whether the window was destroyed, or was not there from the start.
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
