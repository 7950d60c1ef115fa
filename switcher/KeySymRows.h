#pragma once

#include "x11/Types.h"

#include <vector>

// The keysyms of every key of the core keyboard, as the core protocol shows them.
class KeySymRows {
public:
    // Empty when the server gives none.
    static KeySymRows of(Display* display);

    // The key codes of the keys whose keysyms differ from those in `earlier`.
    std::vector<int> keysChangedSince(const KeySymRows& earlier) const;

    // Gives these keys of the core keyboard, by their key codes, the keysyms that they have here.
    void write(Display* display, const std::vector<int>& keys) const;

private:
    KeySym keysym(int key, int column) const;

    int firstKey = 0;
    int width = 0;
    std::vector<KeySym> keysyms;
};
