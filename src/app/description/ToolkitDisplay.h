#pragma once

#include "x11/X11.h"

// The X display that the toolkit has opened, borrowed from it; null where the toolkit does not
// speak to an X server.
Display* toolkitDisplay();
