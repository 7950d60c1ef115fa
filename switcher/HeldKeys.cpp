#include "switcher/HeldKeys.h"

#include "x11/X11.h"

#include <string>

void releaseHeldKeys(Display* display, pid_t process)
{
    constexpr long longest = 64; // in units of four bytes: every key code
    const std::string name = "_ORVIX_KBD_HELD_KEYS_" + std::to_string(process);
    Atom type = x11::none;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display, DefaultRootWindow(display),
        XInternAtom(display, name.c_str(), x11::xFalse), 0, longest, x11::xTrue, AnyPropertyType,
        &type, &format, &count, &rest, &data);
    const x11::Owned<unsigned char> keycodes(data);
    for (unsigned long i = 0; format == 8 && i < count; ++i)
        XTestFakeKeyEvent(display, keycodes.get()[i], x11::xFalse, CurrentTime);
    XSync(display, x11::xFalse);
}
