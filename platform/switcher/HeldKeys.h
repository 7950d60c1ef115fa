#pragma once

#include "x11/X11.h"

// Releases every key that is down on the server's XTest keyboard: what a killed program has pressed
// there would stay down for ever. The keys of real keyboards stay as they are. Opens a connection
// of its own for the moment, so the server must not be grabbed. Without the X Input extension,
// version 2, nothing happens.
void releaseHeldKeys(Display* display);
