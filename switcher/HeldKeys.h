#pragma once

#include "x11/Types.h"

#include <sys/types.h>

// Releases the keys that the process has pressed through XTest and not released, because it was
// killed. It names them, a byte for each key code, in the property _ORVIX_KBD_HELD_KEYS_ and its
// number of the root window, which goes with them. No other key is touched.
void releaseHeldKeys(Display* display, pid_t process);
