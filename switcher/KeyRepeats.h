#pragma once

#include "x11/XkbDescription.h"

// Which keys of one keyboard repeat while they are held. That is not of the keymap but the user's
// own (xset r), yet the server works it out anew when it gets a keymap.
class KeyRepeats {
public:
    static KeyRepeats of(Display* display, unsigned int device);

    // Does nothing when the keyboard has gone.
    void apply(Display* display) const;

private:
    XkbDescription controls;
};
