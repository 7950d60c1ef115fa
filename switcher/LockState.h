#pragma once

#include "x11/Types.h"

// What is locked on the core keyboard.
struct LockState {
    // Core modifier bits.
    unsigned int modifiers = 0;

    // The locked group as the user chose it, 0 to 3.
    unsigned int group = 0;

    static LockState of(Display* display);

    // The locks to restore with this state's keyboard: the saved ones, except Caps Lock and Num
    // Lock, which stay as the user has them `now`, on the other keyboard. Its other locks are not
    // carried over: the keyboard that comes back may have no key that unlocks them.
    LockState carriedOn(const LockState& now) const;

    void apply(Display* display) const;
};
