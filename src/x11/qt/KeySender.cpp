#include "x11/qt/KeySender.h"

#include "x11/Queries.h"
#include "x11/X11.h"
#include "x11/qt/FollowedKeyboard.h"

#include <QWidget>

#include <algorithm>
#include <utility>
#include <vector>

KeySender::KeySender(Display* xDisplay, const QWidget* ourWidget, FollowedKeyboard* serversKeyboard)
    : display(xDisplay)
    , widget(ourWidget)
    , keyboard(serversKeyboard)
    , rootWindow(DefaultRootWindow(xDisplay))
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
    expect(pressEchoes, modifierKeys);
    held.insert(keycode, modifierKeys);
    tellHeldKeys();
    if (!modifierKeys.isEmpty())
        keyboard->beginOwnModifiers();
    unsigned long delay = 0; // milliseconds after the key before it
    for (const KeyCode modifier : modifierKeys)
        XTestFakeKeyEvent(display, modifier, x11::xTrue, delay++);
    XTestFakeKeyEvent(display, keycode, x11::xTrue, delay);
    XFlush(display);
}

void KeySender::releaseThroughXTest(KeyCode keycode)
{
    expect(releaseEchoes, letGo(keycode));
}

void KeySender::typeThroughXTest(KeyCode keycode, const QList<KeyCode>& modifierKeys)
{
    pressThroughXTest(keycode, modifierKeys);
    releaseThroughXTest(keycode);
}

// Returns the modifier keys that it has released with the key.
QList<KeyCode> KeySender::letGo(KeyCode keycode)
{
    if (!held.contains(keycode))
        return {};
    QList<KeyCode> modifierKeys = held.take(keycode);
    unsigned long delay = 0;
    XTestFakeKeyEvent(display, keycode, x11::xFalse, delay++);
    for (const KeyCode modifier : std::as_const(modifierKeys))
        XTestFakeKeyEvent(display, modifier, x11::xFalse, delay++);
    if (!modifierKeys.isEmpty() && !holdsModifierKeys())
        keyboard->endOwnModifiers();
    tellHeldKeys();
    XFlush(display);
    return modifierKeys;
}

void KeySender::expect(Echoes& echoes, const QList<KeyCode>& modifierKeys) const
{
    if (!widget->isActiveWindow())
        return;
    for (const KeyCode keycode : modifierKeys)
        ++echoes[keycode];
}

bool KeySender::takeEcho(const XKeyEvent& event)
{
    Echoes& echoes = event.type == x11::keyPress ? pressEchoes : releaseEchoes;
    const auto expected = echoes.find(static_cast<KeyCode>(event.keycode));
    if (expected == echoes.end())
        return false;
    if (--*expected == 0)
        echoes.erase(expected);
    return true;
}

void KeySender::forgetEchoes()
{
    pressEchoes.clear();
    releaseEchoes.clear();
}

bool KeySender::holdsModifierKeys() const
{
    return std::any_of(held.cbegin(), held.cend(),
        [](const QList<KeyCode>& modifierKeys) { return !modifierKeys.isEmpty(); });
}

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
        letGo(keycode);
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
