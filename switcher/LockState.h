#pragma once

#include "x11/Types.h"

// What is locked on the core keyboard.
struct LockState {
    // Core modifier bits.
    unsigned int modifiers = 0;

    // The locked group as the user chose it, 0 to 3.
    unsigned int group = 0;

    static LockState of(Display* display);

    // What is to be locked on a keyboard that comes back: as here, but Caps Lock and Num Lock as
    // the user has them `now`. Other locks may be of a kind that only the keyboard of `now` can
    // undo.
    LockState carriedOn(const LockState& now) const;

    void apply(Display* display) const;
};
