#include "switcher/KeyboardComponents.h"

#include "switcher/ComponentAtoms.h"
#include "switcher/XkbDescription.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::size_t longestName = 255;

std::string atomName(Display* display, Atom atom)
{
    if (atom == x11::none)
        return {};
    const x11::Owned<char> name(XGetAtomName(display, atom));
    return name ? name.get() : "";
}

// A keymap that was compiled from another one has '_' in its names for '+' and '|'.
std::string withoutOperators(std::string name)
{
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == '+' || c == '|'; }, '_');
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
    return {atomName(display, atoms.keycodes), atomName(display, atoms.types),
        atomName(display, atoms.compat), atomName(display, atoms.symbols),
        atomName(display, atoms.geometry)};
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
