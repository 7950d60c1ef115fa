#pragma once

#include "x11/XkbDescription.h"

// Which keys of one keyboard repeat while they are held. The user sets that (xset r), and the
// keymap says nothing of it, yet the server resets it when it gets a keymap.
class KeyRepeats {
public:
    static KeyRepeats of(Display* display, unsigned int device);

    // Does nothing when the keyboard has gone.
    void apply(Display* display) const;

private:
    XkbDescription controls;
};
