#include "x11/HeldKeysProperty.h"

#include "x11/Property.h"
#include "x11/X11.h"

namespace x11 {

std::string heldKeysProperty(pid_t process)
{
    return "_ORVIX_KBD_HELD_KEYS_" + std::to_string(process);
}

void writeHeldKeys(Display* display, Atom name, const std::vector<KeyCode>& keycodes)
{
    const Window root = DefaultRootWindow(display);
    if (keycodes.empty())
        XDeleteProperty(display, root, name);
    else
        XChangeProperty(display, root, name, XA_INTEGER, 8, PropModeReplace, keycodes.data(),
            static_cast<int>(keycodes.size()));
}

std::vector<KeyCode> takeHeldKeys(Display* display, pid_t process)
{
    const std::string bytes =
        takeProperty(display, DefaultRootWindow(display), heldKeysProperty(process).c_str()).bytes;
    return {bytes.begin(), bytes.end()};
}

} // namespace x11
