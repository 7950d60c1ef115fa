#pragma once

#include "x11/Types.h"

#include <vector>

// The XKB device id of the core keyboard; 0 when the server has no keyboard.
unsigned int coreKeyboardDevice(Display* display);

// The XKB device ids of the core keyboard and, after it, of the keyboards that feed it: each has a
// keymap of its own, which the core keyboard takes over when the user types on it. Without version
// 2 of the input extension: the core keyboard alone. Opens a connection of its own for the moment,
// so that the server must not be grabbed.
std::vector<unsigned int> keyboardDevices(Display* display);
