#pragma once

#include "x11/Types.h"

#include <bitset>

// What the server knows of a keyboard at one moment. The masks are core modifier masks.
struct KeyboardState {
    unsigned char heldModifiers; // by keys that are down
    unsigned char lockedModifiers;
    unsigned char lockedGroup; // 0 to 3
};

// The server's core keyboard, as this program asks and sets it. An answer is as of the call and
// costs a round trip, unless a function says otherwise; what is set has left for the server when
// the call returns.
class CoreKeyboard {
public:
    // The display is borrowed; null where there is no X server.
    explicit CoreKeyboard(Display* xDisplay);

    // Whether the server has the keyboard extension, without which nothing below may be called, and
    // whether it has XTest.
    bool hasXkb() const;
    bool hasXTest() const;

    // All zero if the server does not answer.
    KeyboardState state() const;

    // How many groups the server's keymap has (1 to 4); 0 if the server does not answer.
    int groupCount() const;

    // Of the affected modifiers locks those that are in locked, and unlocks the others. The server
    // refuses a mask in locked that is not affected.
    void lockModifiers(unsigned char affected, unsigned char locked) const;

    void lockGroup(unsigned char group) const;

    // The keys that are down, physically or through XTest: one bit for each key code.
    std::bitset<256> keysDown() const;

    // XKB's control MouseKeys, under which keys of the keypad move the pointer and press its
    // buttons.
    bool hasMouseKeysOn() const;
    void setMouseKeys(bool on) const;

private:
    Display* display;
};
