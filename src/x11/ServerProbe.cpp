#include "x11/ServerProbe.h"

#include <xcb/xcb.h>

namespace x11 {

bool serverAnswers(const char* display)
{
    int screen = 0;
    xcb_connection_t* connection = xcb_connect(display, &screen);
    const bool answers = xcb_connection_has_error(connection) == 0
        && screen < xcb_setup_roots_length(xcb_get_setup(connection));
    xcb_disconnect(connection);
    return answers;
}

} // namespace x11
