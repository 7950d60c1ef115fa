#include "x11/Queries.h"

#include "x11/X11.h"

namespace x11 {

namespace {

std::string takeName(char* name)
{
    const Owned<char> owned(name);
    return owned ? owned.get() : "";
}

} // namespace

Window focusWindow(Display* display)
{
    Window focus = none;
    int revertTo = 0;
    XGetInputFocus(display, &focus, &revertTo);
    return focus == PointerRoot ? none : focus;
}

bool hasWindowManager(Display* display)
{
    const std::string selection = "WM_S" + std::to_string(XDefaultScreen(display));
    return XGetSelectionOwner(display, XInternAtom(display, selection.c_str(), xFalse)) != none;
}

std::optional<XkbExtension> queryXkb(Display* display)
{
    XkbExtension extension{};
    int error = 0;
    if (!XkbQueryExtension(display, &extension.opcode, &extension.event, &error, nullptr, nullptr))
        return std::nullopt;
    return extension;
}

std::string atomName(Display* display, Atom atom)
{
    return atom == none ? std::string() : takeName(XGetAtomName(display, atom));
}

std::vector<std::string> atomNames(Display* display, std::vector<Atom> atoms)
{
    std::vector<char*> names(atoms.size(), nullptr);
    XGetAtomNames(display, atoms.data(), static_cast<int>(atoms.size()), names.data());
    std::vector<std::string> result;
    result.reserve(names.size());
    for (char* name : names)
        result.push_back(takeName(name));
    return result;
}

} // namespace x11
