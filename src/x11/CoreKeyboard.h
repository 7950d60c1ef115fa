#pragma once

#include "x11/Types.h"

#include <bitset>
#include <functional>

// What the server can do and what its core keyboard is like. An answer is as of the call and costs
// a round trip. The state of the keyboard is followed instead of asked for (qt/FollowedKeyboard.h).
class CoreKeyboard {
public:
    // The display is borrowed; null where there is no X server.
    explicit CoreKeyboard(Display* xDisplay);

    // Whether the server has the keyboard extension, without which nothing below may be called, and
    // whether it has XTest, for which only the first question waits.
    bool hasXkb() const;
    bool hasXTest() const;

    // How many groups the server's keymap has (1 to 4); 0 if the server does not answer.
    int groupCount() const;

    // The keys that are down, physically or through XTest: one bit for each key code.
    std::bitset<256> keysDown() const;

    // XKB's control MouseKeys, under which keys of the keypad move the pointer and press its
    // buttons. The second has left for the server when the call returns.
    bool hasMouseKeysOn() const;
    void setMouseKeys(bool on) const;

    // Does the work while that control is off, and leaves it as it was: no other program can change
    // it meanwhile. The work is short, for the server serves no other program.
    void withoutMouseKeys(const std::function<void()>& work) const;

private:
    Display* display;
};
