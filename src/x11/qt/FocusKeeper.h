#pragma once

#include "x11/Types.h"

// For a window of ours that has to take the keyboard focus for a while, a dialog: gives the focus
// back to the window of another program that had it before. Does nothing where the focus was ours.
class FocusKeeper {
public:
    // The display is borrowed.
    explicit FocusKeeper(Display* xDisplay);

    // To come after the end of our own window.
    ~FocusKeeper();
    FocusKeeper(const FocusKeeper&) = delete;
    FocusKeeper& operator=(const FocusKeeper&) = delete;

private:
    Display* display;
    Window activeWindow = x11::none; // by the window manager's account; none without one
};
