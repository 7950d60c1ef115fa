#pragma once

#include "switcher/Bytes.h"
#include "x11/Types.h"
#include "x11/XkbDescription.h"

#include <optional>

// The whole keymap of one keyboard at one moment: keys, types, actions, modifiers, all names,
// compatibility map, indicators and geometry.
class KeymapSnapshot {
public:
    // Nothing when the keyboard is not there or one of its parts cannot be read.
    static std::optional<KeymapSnapshot> take(Display* display, unsigned int device);

    // A keymap that put() has written, for this keyboard. It lacks the drawing of the geometry.
    // Throws std::out_of_range or std::invalid_argument for bytes that are none.
    static KeymapSnapshot takeFrom(ByteReader& bytes, unsigned int device);
    void put(ByteWriter& bytes) const;

    unsigned int device() const;

    // Gives the keyboard this keymap again; the core keyboard hands it on to those that feed it.
    // Does nothing when the keyboard has gone.
    void putBack(Display* display) const;

private:
    explicit KeymapSnapshot(XkbDescription wholeKeymap);

    bool lacksItsDrawing() const;
    bool canBeSetOver(const XkbDescRec& present) const;
    void set(Display* display) const;

    XkbDescription keymap;
};
