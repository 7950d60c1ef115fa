#pragma once

#include "x11/Types.h"

#include <string>
#include <sys/types.h>
#include <vector>

// The keys that a process holds down in the server through XTest, as a property of the root window:
// _ORVIX_KBD_HELD_KEYS_ and the number of the process, of type INTEGER, a byte for each key code.
// The on-screen keyboard keeps it up to date; when the keyboard was killed, the switcher reads it.
namespace x11 {

std::string heldKeysProperty(pid_t process);

// `name` is the atom of heldKeysProperty(). Removes the property when no key is held. Nothing is
// flushed, and no answer waited for.
void writeHeldKeys(Display* display, Atom name, const std::vector<KeyCode>& keycodes);

// Removes the property and returns what it held; empty when there was none.
std::vector<KeyCode> takeHeldKeys(Display* display, pid_t process);

} // namespace x11
