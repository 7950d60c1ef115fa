#include "KeyRepeats.h"

KeyRepeats KeyRepeats::of(Display* display, unsigned int device)
{
    KeyRepeats repeats;
    XkbDescription controls(XkbAllocKeyboard());
    if (!controls)
        return repeats;
    controls->device_spec = static_cast<unsigned short>(device);
    if (XkbGetControls(display, XkbPerKeyRepeatMask, controls.get()) == 0)
        repeats.m_controls = std::move(controls);
    return repeats;
}

void KeyRepeats::apply(Display* display) const
{
    if (m_controls)
        XkbSetControls(display, XkbPerKeyRepeatMask, m_controls.get());
}
