#include "x11/HeldKeys.h"

#include <string>
#include <string_view>
#include <unistd.h>

namespace x11 {

namespace {

constexpr std::string_view namePrefix = "_ORVIX_KBD_HELD_KEYS_";

std::string nameFor(pid_t process)
{
    return std::string(namePrefix) + std::to_string(process);
}

// The property goes with them. Any client may have written it.
void releaseKeysIn(Display* display, Atom property)
{
    constexpr long longest = 64; // in units of four bytes: every key code
    Atom type = none;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display, XRootWindow(display, 0), property, 0, longest, xTrue,
        AnyPropertyType, &type, &format, &count, &rest, &data);
    const Owned<unsigned char> keycodes(data);
    int first = 0;
    int last = 0;
    XDisplayKeycodes(display, &first, &last);
    for (unsigned long i = 0; format == 8 && i < count; ++i) {
        if (keycodes.get()[i] >= first && keycodes.get()[i] <= last)
            XTestFakeKeyEvent(display, keycodes.get()[i], xFalse, CurrentTime);
    }
    XSync(display, xFalse);
}

std::vector<Atom> rootProperties(Display* display)
{
    int count = 0;
    const Owned<Atom> atoms(XListProperties(display, XRootWindow(display, 0), &count));
    return atoms ? std::vector<Atom>(atoms.get(), atoms.get() + count) : std::vector<Atom>();
}

// Those that tell of keys.
std::vector<Atom> heldKeysProperties(Display* display)
{
    std::vector<Atom> atoms = rootProperties(display);
    std::vector<char*> names(atoms.size(), nullptr);
    if (atoms.empty()
        || !XGetAtomNames(display, atoms.data(), static_cast<int>(atoms.size()), names.data()))
        return {};
    std::vector<Atom> result;
    for (std::size_t i = 0; i < atoms.size(); ++i) {
        const Owned<char> name(names[i]);
        if (name && std::string_view(name.get()).starts_with(namePrefix))
            result.push_back(atoms[i]);
    }
    return result;
}

} // namespace

HeldKeys::HeldKeys(Display* xDisplay)
    : display(xDisplay)
{
}

HeldKeys::~HeldKeys()
{
    if (owner == none)
        return;
    tell({});
    XDestroyWindow(display, owner);
    XFlush(display);
}

void HeldKeys::tell(const std::vector<KeyCode>& keycodes)
{
    const Window root = XRootWindow(display, 0);
    if (owner == none) {
        name = XInternAtom(display, nameFor(getpid()).c_str(), xFalse);
        owner = XCreateSimpleWindow(display, root, -1, -1, 1, 1, 0, 0, 0);
        XSetSelectionOwner(display, name, owner, CurrentTime);
    }
    if (keycodes.empty())
        XDeleteProperty(display, root, name);
    else
        XChangeProperty(display, root, name, XA_INTEGER, 8, PropModeReplace, keycodes.data(),
            static_cast<int>(keycodes.size()));
}

void releaseKeysOf(Display* display, pid_t process)
{
    const Atom property = XInternAtom(display, nameFor(process).c_str(), xTrue);
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
