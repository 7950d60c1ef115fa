#include "x11/Connection.h"

#include "x11/X11.h"

namespace x11 {

void CloseDisplay::operator()(Display* display) const
{
    XCloseDisplay(display);
}

} // namespace x11
