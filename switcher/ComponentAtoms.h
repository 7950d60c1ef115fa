#pragma once

#include "x11/Types.h"

// The names of the components that a keyboard types with, as atoms: their comparison shows, without
// a round trip for each name, that another keyboard was loaded. The geometry is left out on
// purpose: it changes nothing that is typed.
struct ComponentAtoms {
    Atom keycodes = x11::none;
    Atom types = x11::none;
    Atom compat = x11::none;
    Atom symbols = x11::none;

    bool operator==(const ComponentAtoms&) const = default;

    // All none when there is no such device.
    static ComponentAtoms of(Display* display, unsigned int device);
};
