#pragma once

#include "x11/Types.h"

struct xcb_connection_t;

// The X display that the toolkit has opened, borrowed from it; null where the toolkit does not
// speak to an X server.
Display* toolkitDisplay();

// The same connection as XCB knows it; null where toolkitDisplay is.
xcb_connection_t* toolkitConnection();
