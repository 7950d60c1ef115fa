#include "x11/qt/KeySender.h"

#include "x11/Queries.h"
#include "x11/X11.h"
#include "x11/qt/FollowedKeyboard.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace {

// Echoes that another program gets are never taken off the list, so it is cut at this length. Far
// fewer are on their way at a time.
constexpr std::size_t mostEchoes = 100;

} // namespace

KeySender::KeySender(Display* xDisplay, FollowedKeyboard* serversKeyboard)
    : display(xDisplay)
    , keyboard(serversKeyboard)
    , rootWindow(DefaultRootWindow(xDisplay))
    , publishedKeys(xDisplay)
{
}

KeySender::~KeySender()
{
    releaseAll();
}

void KeySender::pressThroughXTest(KeyCode keycode, const QList<KeyCode>& modifierKeys)
{
    if (held.contains(keycode))
        return;
    held.insert(keycode, modifierKeys);
    publishHeldKeys();
    if (!modifierKeys.isEmpty())
        keyboard->beginOwnModifiers();
    unsigned long delay = 0; // milliseconds after the key before it
    for (const KeyCode modifier : modifierKeys)
        fakeModifier(modifier, x11::keyPress, delay++);
    XTestFakeKeyEvent(display, keycode, x11::xTrue, delay);
    XFlush(display);
}

void KeySender::typeThroughXTest(KeyCode keycode, const QList<KeyCode>& modifierKeys)
{
    pressThroughXTest(keycode, modifierKeys);
    releaseThroughXTest(keycode);
}

void KeySender::releaseThroughXTest(KeyCode keycode)
{
    if (!held.contains(keycode))
        return;
    const QList<KeyCode> modifierKeys = held.take(keycode);
    unsigned long delay = 0;
    XTestFakeKeyEvent(display, keycode, x11::xFalse, delay++);
    for (const KeyCode modifier : modifierKeys)
        fakeModifier(modifier, x11::keyRelease, delay++);
    if (!modifierKeys.isEmpty() && !holdsModifierKeys())
        keyboard->endOwnModifiers();
    publishHeldKeys();
    XFlush(display);
}

void KeySender::fakeModifier(KeyCode keycode, int type, unsigned long delay)
{
    XTestFakeKeyEvent(display, keycode, type == x11::keyPress, delay);
    const auto request = static_cast<std::uint32_t>(XNextRequest(display) - 1);
    echoes.push_back({request, keycode, type});
    if (echoes.size() > mostEchoes)
        echoes.pop_front();
}

// A key of the user's has a later number: after the last modifier key another request always goes
// out, for the clicked key or for the list of held keys.
bool KeySender::takeEcho(const XKeyEvent& event)
{
    const Echo echo{
        static_cast<std::uint32_t>(event.serial), static_cast<KeyCode>(event.keycode), event.type};
    const auto expected = std::find(echoes.begin(), echoes.end(), echo);
    if (expected == echoes.end())
        return false;
    echoes.erase(echoes.begin(), std::next(expected)); // the server sends them in this order
    return true;
}

bool KeySender::holdsModifierKeys() const
{
    return std::any_of(held.cbegin(), held.cend(),
        [](const QList<KeyCode>& modifierKeys) { return !modifierKeys.isEmpty(); });
}

void KeySender::publishHeldKeys()
{
    std::vector<KeyCode> keycodes;
    for (auto each = held.cbegin(); each != held.cend(); ++each) {
        keycodes.push_back(each.key());
        keycodes.insert(keycodes.end(), each.value().cbegin(), each.value().cend());
    }
    publishedKeys.publish(keycodes);
}

void KeySender::releaseAll()
{
    if (held.isEmpty())
        return;
    const QList<KeyCode> keycodes = held.keys();
    for (const KeyCode keycode : keycodes)
        releaseThroughXTest(keycode);
    XSync(display, x11::xFalse);
}

Window KeySender::focusWindow() const
{
    const Window focus = x11::focusWindow(display);
    return focus == x11::none ? rootWindow : focus;
}

void KeySender::sendEvent(int type, const SyntheticKey& key)
{
    XEvent event{};
    XKeyEvent& keyEvent = event.xkey;
    keyEvent.type = type;
    keyEvent.display = display;
    keyEvent.window = focusWindow();
    keyEvent.root = rootWindow;
    keyEvent.time = key.time;
    keyEvent.state = key.state;
    keyEvent.keycode = key.keycode;
    keyEvent.same_screen = x11::xTrue;

    XWindowAttributes attributes{};
    if (XGetWindowAttributes(display, keyEvent.window, &attributes)) {
        keyEvent.x = attributes.width / 2;
        keyEvent.y = attributes.height / 2;
        keyEvent.x_root = attributes.x + keyEvent.x;
        keyEvent.y_root = attributes.y + keyEvent.y;
    }
    XSendEvent(display, InputFocus, x11::xTrue, 0, &event);
    XFlush(display);
}
