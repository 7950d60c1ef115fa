#pragma once

#include "x11/Types.h"

// The names of what a keyboard types with, as the server's atoms: enough to see that another
// keyboard was loaded. The geometry is left out on purpose, it is a drawing.
struct ComponentAtoms {
    Atom keycodes = x11::none;
    Atom types = x11::none;
    Atom compat = x11::none;
    Atom symbols = x11::none;

    bool operator==(const ComponentAtoms&) const = default;

    // All none when there is no such device.
    static ComponentAtoms of(Display* display, unsigned int device);
};
