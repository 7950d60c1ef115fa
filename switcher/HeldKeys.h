#pragma once

#include "x11/Types.h"

#include <sys/types.h>

// Releases the keys that a killed process has pressed through XTest and not released: those that it
// left in its property (x11/HeldKeysProperty.h), which is removed. No other key is touched.
void releaseHeldKeys(Display* display, pid_t process);
