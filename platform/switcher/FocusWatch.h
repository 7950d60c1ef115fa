#pragma once

#include "x11/X11.h"

// Follows whether the input focus is in a window of another program, that is, on it or on one of
// its descendants. The other program notices nothing of it.
class FocusWatch {
public:
    FocusWatch(Display* display, Window window);

    bool isInside() const { return m_isInside; }

    // The window was destroyed, or was never there.
    bool isWindowGone() const { return m_isGone; }

    // To be given every event of the connection.
    void handle(const XEvent& event);

private:
    void look();

    Display* m_display;
    Window m_window;
    bool m_isInside = false;
    bool m_isGone = false;
};
