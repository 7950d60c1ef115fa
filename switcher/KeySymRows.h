#pragma once

#include "switcher/Bytes.h"
#include "x11/DeviceKeysyms.h"

#include <vector>

// The keysyms of every key of one keyboard, as the core protocol shows those of the core keyboard.
class KeySymRows {
public:
    // Empty when there is no such keyboard.
    static KeySymRows of(Display* display, unsigned int device);

    // What put() has written. Throws std::out_of_range or std::invalid_argument for anything else.
    static KeySymRows takeFrom(ByteReader& bytes);
    void put(ByteWriter& bytes) const;

    bool isEmpty() const { return table.keysyms.empty(); }

    // The key codes of the keys that have other keysyms here than in `earlier`.
    std::vector<int> keysChangedSince(const KeySymRows& earlier) const;

    // Gives these keys of a keyboard, and of no other, the keysyms that they have here.
    void write(Display* display, unsigned int device, const std::vector<int>& keycodes) const;

private:
    int keyCount() const;
    std::uint32_t keysym(int keycode, int column) const;

    x11::KeysymTable table;
};
