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
    XkbGetGeometry(display, description.get());
    return of(*description);
}

// The server gives the name of a geometry with the geometry only.
ComponentAtoms ComponentAtoms::of(const XkbDescRec& description)
{
    const XkbNamesRec& names = *description.names;
    const Atom geometry = description.geom ? description.geom->name : names.geometry;
    return {names.keycodes, names.types, names.compat, names.symbols, geometry};
}
