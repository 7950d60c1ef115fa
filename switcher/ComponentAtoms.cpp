#include "switcher/ComponentAtoms.h"

#include "x11/X11.h"
#include "x11/XkbDescription.h"

ComponentAtoms ComponentAtoms::of(Display* display, unsigned int device)
{
    const XkbDescription description(XkbAllocKeyboard());
    if (!description)
        return {};
    description->device_spec = static_cast<unsigned short>(device);
    if (XkbGetNames(display, XkbComponentNamesMask, description.get()) != 0)
        return {};
    const XkbNamesRec& names = *description->names;
    return {names.keycodes, names.types, names.compat, names.symbols};
}
