#pragma once

#include "x11/Types.h"

struct xcb_connection_t;

// An atom that is asked for early and needed later: no round trip stands in the way then.
class AtomRequest {
public:
    // Asks the server and does not wait. The connection is borrowed; null asks nothing.
    AtomRequest(xcb_connection_t* xConnection, const char* name);
    ~AtomRequest();
    AtomRequest(const AtomRequest&) = delete;
    AtomRequest& operator=(const AtomRequest&) = delete;

    // Waits at the first call if the answer is not there yet; x11::none if the server gave none.
    Atom atom();

private:
    xcb_connection_t* connection;
    unsigned int request = 0; // 0 once it is answered
    Atom answer = x11::none;
};
