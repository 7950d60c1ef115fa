#include "switcher/KeyRepeats.h"

#include "x11/X11.h"

KeyRepeats KeyRepeats::of(Display* display, unsigned int device)
{
    KeyRepeats repeats;
    XkbDescription present(XkbAllocKeyboard());
    if (!present)
        return repeats;
    present->device_spec = static_cast<unsigned short>(device);
    if (XkbGetControls(display, XkbPerKeyRepeatMask, present.get()) == 0)
        repeats.controls = std::move(present);
    return repeats;
}

void KeyRepeats::apply(Display* display) const
{
    if (controls)
        XkbSetControls(display, XkbPerKeyRepeatMask, controls.get());
}
