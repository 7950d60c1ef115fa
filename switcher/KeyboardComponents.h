#pragma once

#include "x11/Types.h"

#include <string>

// The names of the XKB components that make a keyboard, such as "pc+de+inet(evdev)" for the
// symbols. An empty name means: whatever the server has.
struct KeyboardComponents {
    std::string keycodes;
    std::string types;
    std::string compat;
    std::string symbols;
    std::string geometry;

    // The names in a description that has the server's names, and its geometry if there is one.
    static KeyboardComponents of(Display* display, const XkbDescRec& description);

    // Whether the core keyboard types with all the components that are named here. The geometry
    // does not count: it is a drawing, and each program may name its own.
    bool areLoaded(Display* display) const;

    // Has the server compile the components and give them to a keyboard, and to those that feed
    // it. When it cannot, the keyboard stays as it was. The reply does not tell one from the other
    // reliably, the new keyboard event does. A name over 255 bytes would be cut by the protocol:
    // then nothing is asked of the server.
    void load(Display* display, unsigned int device) const;
};
