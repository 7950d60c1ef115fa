#include "switcher/KeyboardLoan.h"

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
    , record(display)
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

void KeyboardLoan::endLeftLoan(const Turn& turn)
{
    const std::vector<unsigned int> devices = keyboardDevices(display);
    const ServerGrab grab(display);
    if (turn.isFree())
        putBackLeft(devices);
}

void KeyboardLoan::begin()
{
    if (on)
        return forgetIfReplaced();
    const std::vector<unsigned int> devices = keyboardDevices(display);
    const ServerGrab grab(display);
    putBackLeft(devices);
    if (!components.areLoaded(display))
        replace(ReplacedKeyboard::of(display, devices));
    on = true;
}

void KeyboardLoan::end()
{
    if (!on)
        return;
    on = false;
    const auto ended = std::exchange(replaced, std::nullopt);
    if (!ended)
        return;
    const std::vector<unsigned int> devices = keyboardDevices(display);
    const ServerGrab grab(display);
    handlePending();
    if (!record.isOurs())
        return;
    if (!wasLoaded)
        ended->putBack(display, devices);
    record.remove();
}

void KeyboardLoan::handle(const XEvent& event)
{
    if (event.type != xkbEvent)
        return;
    const auto& news = reinterpret_cast<const XkbEvent&>(event);
    if (news.any.xkb_type == XkbNewKeyboardNotify && news.any.device == coreDevice)
        wasLoaded |= news.new_kbd.req_minor == getKbdByName;
}

void KeyboardLoan::putBackLeft(const std::vector<unsigned int>& devices)
{
    if (const auto left = record.read())
        left->putBack(display, devices);
    record.remove();
}

// The record is written first: this process may be killed right after the load.
void KeyboardLoan::replace(ReplacedKeyboard&& keyboard)
{
    keyboard.expect(expectedNames());
    record.write(keyboard);
    if (!load()) {
        record.remove();
        throw std::runtime_error("the X server cannot load this keyboard");
    }
    keyboard.learn(display);
    record.write(keyboard);
    replaced = std::move(keyboard);
}

ComponentAtoms KeyboardLoan::expectedNames() const
{
    ComponentAtoms names = ComponentAtoms::of(display, coreDevice);
    const auto expect = [this](Atom& atom, const std::string& name) {
        if (!name.empty())
            atom = XInternAtom(display, name.c_str(), x11::xFalse);
    };
    expect(names.keycodes, components.keycodes);
    expect(names.types, components.types);
    expect(names.compat, components.compat);
    expect(names.symbols, components.symbols);
    expect(names.geometry, components.geometry);
    return names;
}

// Under a grab, so the one new keyboard that the events tell of is ours.
bool KeyboardLoan::load()
{
    handlePending();
    wasLoaded = false;
    components.load(display, x11::coreKeyboard);
    handlePending();
    return std::exchange(wasLoaded, false);
}

// Once another tool has loaded a keyboard there is nothing to put back: the other's
// keyboard may have the same names as ours.
void KeyboardLoan::forgetIfReplaced()
{
    if (!replaced || !wasLoaded)
        return;
    const ServerGrab grab(display);
    if (record.isOurs())
        record.remove();
    replaced.reset();
}

void KeyboardLoan::handlePending()
{
    XSync(display, x11::xFalse);
    XEvent event;
    while (XCheckTypedEvent(display, xkbEvent, &event))
        handle(event);
}
