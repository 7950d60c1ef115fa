#pragma once

#include "x11/Types.h"

// What the server can do and what its core keyboard is like. An answer is as of the call and costs
// a round trip. The state of the keyboard is followed instead of asked for (qt/FollowedKeyboard.h).
class CoreKeyboard {
public:
    // The display is borrowed; null where there is no X server.
    explicit CoreKeyboard(Display* xDisplay);

    // Whether the server has the keyboard extension, without which nothing below may be called, and
    // whether it has XTest.
    bool hasXkb() const;
    bool hasXTest() const;

    // How many groups the server's keymap has (1 to 4); 0 if the server does not answer.
    int groupCount() const;

private:
    Display* display;
};
