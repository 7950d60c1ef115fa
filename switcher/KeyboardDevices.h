#pragma once

#include "x11/Types.h"

#include <vector>

// The core keyboard's XKB device, or 0 when the server has none.
unsigned int coreKeyboardDevice(Display* display);

// The core keyboard, and after it the keyboards that feed it: each has a keymap of its own, which
// the core keyboard takes over when the user types on it. Opens a connection of its own for the
// moment, so the server must not be grabbed. Without the X Input extension, version 2, it is the
// core keyboard alone.
std::vector<unsigned int> keyboardDevices(Display* display);
