#include "switcher/KeyboardComponents.h"

#include "switcher/ComponentAtoms.h"
#include "x11/Queries.h"
#include "x11/X11.h"
#include "x11/XkbDescription.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::size_t longestName = 255;

// A keymap that was compiled from another one has '_' in its names for '+' and '|'.
std::string withoutOperators(std::string name)
{
    std::replace_if(name.begin(), name.end(), [](char c) { return c == '+' || c == '|'; }, '_');
    return name;
}

bool satisfies(const std::string& present, const std::string& wanted)
{
    return wanted.empty() || withoutOperators(present) == withoutOperators(wanted);
}

char* orNull(std::string& name)
{
    return name.empty() ? nullptr : name.data();
}

} // namespace

KeyboardComponents KeyboardComponents::of(Display* display, const XkbDescRec& description)
{
    const ComponentAtoms atoms = ComponentAtoms::of(description);
    return {x11::atomName(display, atoms.keycodes), x11::atomName(display, atoms.types),
        x11::atomName(display, atoms.compat), x11::atomName(display, atoms.symbols),
        x11::atomName(display, atoms.geometry)};
}

bool KeyboardComponents::areLoaded(Display* display) const
{
    const XkbDescription server(XkbAllocKeyboard());
    if (!server || XkbGetNames(display, XkbComponentNamesMask, server.get()) != 0)
        return false;
    const KeyboardComponents present = of(display, *server);
    return satisfies(present.keycodes, keycodes) && satisfies(present.types, types)
        && satisfies(present.compat, compat) && satisfies(present.symbols, symbols);
}

void KeyboardComponents::load(Display* display, unsigned int device) const
{
    KeyboardComponents copy = *this;
    for (const std::string& name : {keycodes, types, compat, symbols, geometry}) {
        if (name.size() > longestName)
            return;
    }
    XkbComponentNamesRec names{};
    names.keycodes = orNull(copy.keycodes);
    names.types = orNull(copy.types);
    names.compat = orNull(copy.compat);
    names.symbols = orNull(copy.symbols);
    names.geometry = orNull(copy.geometry);
    const XkbDescription loaded(XkbGetKeyboardByName(display, device, &names,
        XkbGBN_AllComponentsMask, XkbGBN_AllComponentsMask & ~XkbGBN_GeometryMask, x11::xTrue));
}
