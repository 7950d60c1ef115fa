#include "KeyboardLoan.h"

#include "KeyRepeats.h"
#include "KeyboardDevices.h"
#include "ServerGrab.h"

#include <stdexcept>
#include <utility>

namespace {

// XKB protocol: the minor opcode of GetKbdByName, the one request that loads a keyboard.
constexpr int getKbdByName = 23;

} // namespace

KeyboardLoan::KeyboardLoan(Display* display, const KeyboardComponents& components)
    : m_display(display)
    , m_components(components)
{
    int opcode = 0;
    int error = 0;
    if (!XkbQueryExtension(display, &opcode, &m_xkbEvent, &error, nullptr, nullptr))
        throw std::runtime_error("the X server has no keyboard extension");
    m_coreDevice = coreKeyboardDevice(display);
    XkbSelectEvents(display, x11::coreKeyboard, XkbNewKeyboardNotifyMask, XkbNewKeyboardNotifyMask);
}

KeyboardLoan::~KeyboardLoan()
{
    end();
}

void KeyboardLoan::begin()
{
    if (m_isOn)
        return;
    const std::vector<unsigned int> devices = keyboardDevices(m_display);
    const ServerGrab grab(m_display);
    if (!m_components.areLoaded(m_display)) {
        std::vector<KeymapSnapshot> saved = save(devices);
        m_savedLocks = LockState::of(m_display);
        if (!load())
            throw std::runtime_error("the X server cannot load this keyboard");
        m_saved = std::move(saved);
    }
    m_isOn = true;
}

void KeyboardLoan::end()
{
    if (!m_isOn)
        return;
    m_isOn = false;
    const std::vector<KeymapSnapshot> saved = std::exchange(m_saved, {});
    if (saved.empty())
        return;
    const ServerGrab grab(m_display);
    handlePending();
    if (!m_wasLoaded)
        putBack(saved);
}

void KeyboardLoan::handle(const XEvent& event)
{
    if (event.type != m_xkbEvent)
        return;
    const auto& news = reinterpret_cast<const XkbEvent&>(event);
    if (news.any.xkb_type == XkbNewKeyboardNotify && news.any.device == m_coreDevice)
        m_wasLoaded |= news.new_kbd.req_minor == getKbdByName;
}

std::vector<KeymapSnapshot> KeyboardLoan::save(const std::vector<unsigned int>& devices) const
{
    std::vector<KeymapSnapshot> saved;
    for (const unsigned int device : devices) {
        auto snapshot = KeymapSnapshot::take(m_display, device);
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
    m_wasLoaded = false;
    m_components.load(m_display, x11::coreKeyboard);
    handlePending();
    if (!std::exchange(m_wasLoaded, false))
        return false;
    m_loaded = ComponentAtoms::of(m_display, m_coreDevice);
    m_loadedKeys = KeySymRows::of(m_display);
    return true;
}

void KeyboardLoan::putBack(const std::vector<KeymapSnapshot>& saved) const
{
    const LockState locks = m_savedLocks.carriedOn(LockState::of(m_display));
    const KeySymRows keys = KeySymRows::of(m_display);
    const std::vector<int> edited = keys.keysChangedSince(m_loadedKeys);
    putBackKeymaps(saved);
    keys.write(m_display, edited);
    locks.apply(m_display);
}

// The core keyboard comes first, as it hands what it gets to the others. The repeats come after all
// keymaps, as the keyboard that was used last hands what it gets to the core keyboard.
void KeyboardLoan::putBackKeymaps(const std::vector<KeymapSnapshot>& saved) const
{
    std::vector<const KeymapSnapshot*> ours;
    std::vector<KeyRepeats> repeats;
    for (const KeymapSnapshot& snapshot : saved) {
        // A device with another keyboard than ours was given it by someone else, who keeps it.
        if (ComponentAtoms::of(m_display, snapshot.device()) != m_loaded)
            continue;
        ours.push_back(&snapshot);
        repeats.push_back(KeyRepeats::of(m_display, snapshot.device()));
    }
    for (const KeymapSnapshot* snapshot : ours)
        snapshot->putBack(m_display);
    for (const KeyRepeats& each : repeats)
        each.apply(m_display);
}

void KeyboardLoan::handlePending()
{
    XSync(m_display, x11::xFalse);
    XEvent event;
    while (XCheckTypedEvent(m_display, m_xkbEvent, &event))
        handle(event);
}
