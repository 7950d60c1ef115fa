#include "switcher/KeyboardLoan.h"

#include "switcher/KeyRepeats.h"
#include "x11/KeyboardDevices.h"
#include "x11/Queries.h"
#include "x11/ServerGrab.h"
#include "x11/X11.h"

#include <stdexcept>
#include <utility>

namespace {

// XKB protocol: the minor opcode of GetKbdByName, the one request that loads a keyboard.
constexpr int getKbdByName = 23;

} // namespace

KeyboardLoan::KeyboardLoan(Display* xDisplay, KeyboardComponents wanted)
    : display(xDisplay)
    , components(std::move(wanted))
{
    const auto xkb = x11::queryXkb(display);
    if (!xkb)
        throw std::runtime_error("the X server has no keyboard extension");
    xkbEvent = xkb->event;
    coreDevice = coreKeyboardDevice(display);
    XkbSelectEvents(display, x11::coreKeyboard, XkbNewKeyboardNotifyMask, XkbNewKeyboardNotifyMask);
}

KeyboardLoan::~KeyboardLoan()
{
    end();
}

void KeyboardLoan::begin()
{
    if (on)
        return;
    const std::vector<unsigned int> devices = keyboardDevices(display);
    const ServerGrab grab(display);
    if (!components.areLoaded(display)) {
        std::vector<KeymapSnapshot> saved = save(devices);
        savedLocks = LockState::of(display);
        if (!load())
            throw std::runtime_error("the X server cannot load this keyboard");
        savedKeymaps = std::move(saved);
    }
    on = true;
}

void KeyboardLoan::end()
{
    if (!on)
        return;
    on = false;
    const std::vector<KeymapSnapshot> saved = std::exchange(savedKeymaps, {});
    if (saved.empty())
        return;
    const ServerGrab grab(display);
    handlePending();
    if (!wasLoaded)
        putBack(saved);
}

void KeyboardLoan::handle(const XEvent& event)
{
    if (event.type != xkbEvent)
        return;
    const auto& news = reinterpret_cast<const XkbEvent&>(event);
    if (news.any.xkb_type == XkbNewKeyboardNotify && news.any.device == coreDevice)
        wasLoaded |= news.new_kbd.req_minor == getKbdByName;
}

std::vector<KeymapSnapshot> KeyboardLoan::save(const std::vector<unsigned int>& devices) const
{
    std::vector<KeymapSnapshot> saved;
    for (const unsigned int device : devices) {
        auto snapshot = KeymapSnapshot::take(display, device);
        if (!snapshot)
            throw std::runtime_error("the present keyboard cannot be saved");
        saved.push_back(std::move(*snapshot));
    }
    return saved;
}

// Under a grab, so the one new keyboard that the events tell of is ours.
bool KeyboardLoan::load()
{
    handlePending();
    wasLoaded = false;
    components.load(display, x11::coreKeyboard);
    handlePending();
    if (!std::exchange(wasLoaded, false))
        return false;
    loadedComponents = ComponentAtoms::of(display, coreDevice);
    loadedKeys = KeySymRows::of(display);
    return true;
}

void KeyboardLoan::putBack(const std::vector<KeymapSnapshot>& saved) const
{
    const LockState locks = savedLocks.carriedOn(LockState::of(display));
    const KeySymRows keys = KeySymRows::of(display);
    const std::vector<int> edited = keys.keysChangedSince(loadedKeys);
    putBackKeymaps(saved);
    keys.write(display, edited);
    locks.apply(display);
}

// The core keyboard comes first, as it hands what it gets to the others. The repeats come after all
// keymaps, as the keyboard that was used last hands what it gets to the core keyboard.
void KeyboardLoan::putBackKeymaps(const std::vector<KeymapSnapshot>& saved) const
{
    std::vector<const KeymapSnapshot*> ours;
    std::vector<KeyRepeats> repeats;
    for (const KeymapSnapshot& snapshot : saved) {
        // A device with another keyboard than ours was given it by someone else, who keeps it.
        if (ComponentAtoms::of(display, snapshot.device()) != loadedComponents)
            continue;
        ours.push_back(&snapshot);
        repeats.push_back(KeyRepeats::of(display, snapshot.device()));
    }
    for (const KeymapSnapshot* snapshot : ours)
        snapshot->putBack(display);
    for (const KeyRepeats& each : repeats)
        each.apply(display);
}

void KeyboardLoan::handlePending()
{
    XSync(display, x11::xFalse);
    XEvent event;
    while (XCheckTypedEvent(display, xkbEvent, &event))
        handle(event);
}
