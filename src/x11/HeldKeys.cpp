#include "x11/HeldKeys.h"

#include "x11/Property.h"
#include "x11/Queries.h"
#include "x11/X11.h"

#include <string_view>
#include <unistd.h>

#include <X11/Xlib-xcb.h>

namespace x11 {

namespace {

constexpr std::string_view namePrefix = "_ORVIX_KBD_HELD_KEYS_";

// The property goes with them. Any client may have written it.
void releaseKeysIn(Display* display, Atom name)
{
    int first = 0;
    int last = 0;
    XDisplayKeycodes(display, &first, &last);
    for (const char byte : takeProperty(display, XRootWindow(display, 0), name).bytes) {
        const auto keycode = static_cast<KeyCode>(byte);
        if (keycode >= first && keycode <= last)
            XTestFakeKeyEvent(display, keycode, xFalse, CurrentTime);
    }
    XSync(display, xFalse);
}

std::vector<Atom> rootProperties(Display* display)
{
    int count = 0;
    const Owned<Atom> atoms(XListProperties(display, XRootWindow(display, 0), &count));
    return atoms ? std::vector<Atom>(atoms.get(), atoms.get() + count) : std::vector<Atom>();
}

// The names of the properties with held keys.
std::vector<Atom> heldKeysProperties(Display* display)
{
    const std::vector<Atom> atoms = rootProperties(display);
    const std::vector<std::string> names = atomNames(display, atoms);
    std::vector<Atom> result;
    for (std::size_t i = 0; i < atoms.size(); ++i) {
        if (names[i].starts_with(namePrefix))
            result.push_back(atoms[i]);
    }
    return result;
}

} // namespace

std::string heldKeysProperty(pid_t process)
{
    return std::string(namePrefix) + std::to_string(process);
}

HeldKeys::HeldKeys(Display* xDisplay)
    : display(xDisplay)
    , name(XGetXCBConnection(xDisplay), heldKeysProperty(getpid()).c_str())
{
}

HeldKeys::~HeldKeys()
{
    if (owner == none)
        return;
    publish({});
    XDestroyWindow(display, owner);
    XFlush(display);
}

void HeldKeys::publish(const std::vector<KeyCode>& keycodes)
{
    const Window root = XRootWindow(display, 0);
    if (owner == none) {
        owner = XCreateSimpleWindow(display, root, -1, -1, 1, 1, 0, 0, 0);
        XSetSelectionOwner(display, name.atom(), owner, CurrentTime);
    }
    if (keycodes.empty())
        XDeleteProperty(display, root, name.atom());
    else
        XChangeProperty(display, root, name.atom(), XA_INTEGER, 8, PropModeReplace, keycodes.data(),
            static_cast<int>(keycodes.size()));
}

void releaseKeysOf(Display* display, pid_t process)
{
    const Atom property = XInternAtom(display, heldKeysProperty(process).c_str(), xTrue);
    if (property != none)
        releaseKeysIn(display, property);
}

// A process owns its selection before it tells of a key, so one without has gone.
void releaseKeysOfTheGone(Display* display)
{
    for (const Atom property : heldKeysProperties(display)) {
        if (XGetSelectionOwner(display, property) == none)
            releaseKeysIn(display, property);
    }
}

} // namespace x11
