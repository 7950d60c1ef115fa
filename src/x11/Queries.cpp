#include "x11/Queries.h"

#include "x11/X11.h"
#include "x11/Xcb.h"

#include <xcb/xcbext.h>
#include <xcb/xinput.h>

#include <X11/Xlib-xcb.h>

namespace x11 {

namespace {

bool hasExtension(Display* display, xcb_extension_t& name)
{
    return findExtension(XGetXCBConnection(display), name).has_value();
}

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

bool hasXTest(Display* display)
{
    static xcb_extension_t name{"XTEST", 0};
    return hasExtension(display, name);
}

bool hasXwayland(Display* display)
{
    static xcb_extension_t name{"XWAYLAND", 0};
    return hasExtension(display, name);
}

void askForXInput(Display* display)
{
    xcb_prefetch_extension_data(XGetXCBConnection(display), &xcb_input_id);
}

void prepareXTest(Display* display)
{
    int event = 0;
    int error = 0;
    int major = 0;
    int minor = 0;
    if (hasXTest(display))
        XTestQueryExtension(display, &event, &error, &major, &minor);
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
