#include "switcher/HeldKeys.h"

#include "x11/HeldKeysProperty.h"
#include "x11/X11.h"

void releaseHeldKeys(Display* display, pid_t process)
{
    for (const KeyCode keycode : x11::takeHeldKeys(display, process))
        XTestFakeKeyEvent(display, keycode, x11::xFalse, CurrentTime);
    XSync(display, x11::xFalse);
}
