#pragma once

#include "x11/XkbDescription.h"

#include <optional>

// The whole keymap of one keyboard at one moment: keys, types, actions, modifiers, all names,
// compatibility map, indicators and geometry.
class KeymapSnapshot {
public:
    // Nothing when the keyboard is not there or one of its parts cannot be read.
    static std::optional<KeymapSnapshot> take(Display* display, unsigned int device);

    // Its XKB device id.
    unsigned int device() const;

    // Gives the keyboard this keymap again; the core keyboard hands it on to those that feed it.
    // Does nothing when the keyboard has gone.
    void putBack(Display* display) const;

private:
    explicit KeymapSnapshot(XkbDescription wholeKeymap);

    bool canBeSetOver(const XkbDescRec& present) const;
    void set(Display* display) const;

    XkbDescription keymap;
};
