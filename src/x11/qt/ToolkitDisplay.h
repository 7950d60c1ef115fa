#pragma once

#include "x11/Types.h"

struct xcb_connection_t;

// The X display that Qt has opened, borrowed from it; null where Qt runs on a platform without an X
// server.
Display* toolkitDisplay();

// The same connection as XCB knows it; null where toolkitDisplay is.
xcb_connection_t* toolkitConnection();
