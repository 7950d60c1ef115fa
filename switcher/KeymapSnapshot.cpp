#include "switcher/KeymapSnapshot.h"

#include "switcher/KeyboardComponents.h"
#include "switcher/KeymapBytes.h"
#include "x11/X11.h"

#include <algorithm>

namespace {

constexpr unsigned int allIndicators = ~0U;

// The calls return 0 for success, but leave out a part that the server does not have.
bool readParts(Display* display, XkbDescPtr keymap)
{
    return XkbGetNames(display, XkbAllNamesMask, keymap) == 0
        && XkbGetCompatMap(display, XkbAllCompatMask, keymap) == 0
        && XkbGetIndicatorMap(display, XkbAllIndicatorsMask, keymap) == 0 && keymap->names
        && keymap->names->keys && keymap->compat && keymap->indicators;
}

XkbDescription read(Display* display, unsigned int device)
{
    XkbDescription keymap(XkbGetMap(display, XkbAllMapComponentsMask, device));
    if (!keymap || !readParts(display, keymap.get()))
        return nullptr;
    // A keyboard need not have a geometry.
    XkbGetGeometry(display, keymap.get());
    return keymap;
}

template <std::size_t count>
bool hasNamesMoreThan(const Atom (&present)[count], const Atom (&wanted)[count])
{
    return !std::equal(std::begin(present), std::end(present), std::begin(wanted),
        [](Atom now, Atom then) { return now == x11::none || then != x11::none; });
}

} // namespace

KeymapSnapshot::KeymapSnapshot(XkbDescription wholeKeymap)
    : keymap(std::move(wholeKeymap))
{
}

std::optional<KeymapSnapshot> KeymapSnapshot::take(Display* display, unsigned int device)
{
    XkbDescription present = read(display, device);
    if (!present)
        return std::nullopt;
    return KeymapSnapshot(std::move(present));
}

KeymapSnapshot KeymapSnapshot::takeFrom(ByteReader& bytes, unsigned int device)
{
    XkbDescription keymap = takeKeymap(bytes);
    keymap->device_spec = static_cast<unsigned short>(device);
    return KeymapSnapshot(std::move(keymap));
}

void KeymapSnapshot::put(ByteWriter& bytes) const
{
    putKeymap(bytes, *keymap);
}

unsigned int KeymapSnapshot::device() const
{
    return keymap->device_spec;
}

void KeymapSnapshot::putBack(Display* display) const
{
    const XkbDescription present = read(display, device());
    if (!present)
        return;
    if (lacksItsDrawing() || !canBeSetOver(*present))
        KeyboardComponents::of(display, *keymap).load(display, device());
    set(display);
}

bool KeymapSnapshot::lacksItsDrawing() const
{
    return !keymap->geom && keymap->names->geometry != x11::none;
}

// Xlib can set names but not remove them, and which indicators are real changes only when a
// keyboard is loaded. Where either differs the components are loaded by name first, which removes
// all names, and brings back a drawing that was not kept.
bool KeymapSnapshot::canBeSetOver(const XkbDescRec& present) const
{
    const XkbNamesRec& now = *present.names;
    const XkbNamesRec& then = *keymap->names;
    return !hasNamesMoreThan(now.vmods, then.vmods)
        && !hasNamesMoreThan(now.indicators, then.indicators)
        && !hasNamesMoreThan(now.groups, then.groups)
        && present.indicators->phys_indicators == keymap->indicators->phys_indicators;
}

// The compatibility map goes first: the server derives actions from it when it gets the keys.
void KeymapSnapshot::set(Display* display) const
{
    XkbDescRec* const whole = keymap.get();
    XkbSetCompatMap(display, XkbAllCompatMask, whole, x11::xFalse);
    XkbSetMap(display, XkbAllMapComponentsMask, whole);
    XkbSetNames(display, XkbAllNamesMask, 0, whole->map->num_types, whole);
    XkbSetIndicatorMap(display, allIndicators, whole);
    if (whole->geom)
        XkbSetGeometry(display, device(), whole->geom);
}
