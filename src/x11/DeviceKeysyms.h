#pragma once

#include "x11/Types.h"

#include <cstdint>
#include <vector>

namespace x11 {

// The keysyms of a run of keys, as the core protocol shows them: `width` for each key, key by key.
struct KeysymTable {
    int firstKey = 0; // X key code
    int width = 0;
    std::vector<std::uint32_t> keysyms;
};

// Those of all keys of one keyboard (X Input, or XKB device id), which need not be the core
// keyboard; empty when it has gone. Without the X Input extension it is the core keyboard's,
// whatever the id. Xlib's own function of this kind mixes up the sizes of a keysym.
KeysymTable deviceKeysyms(Display* display, unsigned int device);

// Gives the keys of the table these keysyms on this keyboard alone, or, without the extension, on
// the core keyboard.
void setDeviceKeysyms(Display* display, unsigned int device, const KeysymTable& table);

} // namespace x11
