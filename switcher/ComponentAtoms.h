#pragma once

#include "x11/Types.h"

// The names of a keyboard's components, as the server's atoms: enough to see that another keyboard
// was loaded. The drawing counts here: by it the loan is told from the same layout that another
// tool has loaded.
struct ComponentAtoms {
    Atom keycodes = x11::none;
    Atom types = x11::none;
    Atom compat = x11::none;
    Atom symbols = x11::none;
    Atom geometry = x11::none;

    bool operator==(const ComponentAtoms&) const = default;

    // All none when there is no such device.
    static ComponentAtoms of(Display* display, unsigned int device);

    // The names in a description that has the server's names, and its geometry if there is one.
    static ComponentAtoms of(const XkbDescRec& description);
};
