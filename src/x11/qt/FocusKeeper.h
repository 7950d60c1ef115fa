#pragma once

#include "x11/Types.h"

// For a dialog of ours, which has to take the keyboard focus for a while: gives the focus back to
// the window of another program that had it before. Does nothing when a window of ours had it.
class FocusKeeper {
public:
    // The display is borrowed.
    explicit FocusKeeper(Display* xDisplay);

    // To be destroyed after the dialog was closed.
    ~FocusKeeper();
    FocusKeeper(const FocusKeeper&) = delete;
    FocusKeeper& operator=(const FocusKeeper&) = delete;

private:
    Display* display;
    Window activeWindow = x11::none; // what the window manager says; none without one
};
