#include "model/KeySender.h"

#include <utility>
#include <vector>

KeySender::KeySender(Display* xDisplay, Window root)
    : display(xDisplay)
    , rootWindow(root)
    , toldKeys(xDisplay)
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
    tellHeldKeys();
    unsigned long delay = 0; // milliseconds after the key before it
    for (const KeyCode modifier : modifierKeys)
        XTestFakeKeyEvent(display, modifier, x11::xTrue, delay++);
    XTestFakeKeyEvent(display, keycode, x11::xTrue, delay);
    XFlush(display);
}

QList<KeyCode> KeySender::releaseThroughXTest(KeyCode keycode)
{
    if (!held.contains(keycode))
        return {};
    QList<KeyCode> modifierKeys = held.take(keycode);
    unsigned long delay = 0;
    XTestFakeKeyEvent(display, keycode, x11::xFalse, delay++);
    for (const KeyCode modifier : std::as_const(modifierKeys))
        XTestFakeKeyEvent(display, modifier, x11::xFalse, delay++);
    tellHeldKeys();
    XFlush(display);
    return modifierKeys;
}

// A killed program cannot release its keys: who outlives it does.
void KeySender::tellHeldKeys()
{
    std::vector<KeyCode> keycodes;
    for (auto each = held.cbegin(); each != held.cend(); ++each) {
        keycodes.push_back(each.key());
        keycodes.insert(keycodes.end(), each.value().cbegin(), each.value().cend());
    }
    toldKeys.tell(keycodes);
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
    Window focus = x11::none;
    int revertTo = 0;
    XGetInputFocus(display, &focus, &revertTo);
    return focus == x11::none || focus == PointerRoot ? rootWindow : focus;
}

void KeySender::sendEvent(int type, const SyntheticKey& key)
{
    XEvent event{};
    XKeyEvent& keyEvent = event.xkey;
    keyEvent.type = type;
    keyEvent.display = display;
    keyEvent.window = focusWindow();
    keyEvent.root = DefaultRootWindow(display);
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
