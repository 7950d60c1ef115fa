#pragma once

#include "keys/KbdTypes.h"
#include "x11/HeldKeys.h"
#include "x11/X11.h"

#include <QHash>
#include <QList>

// What a synthetic key event carries beside the key.
struct SyntheticKey {
    KeyCode keycode;
    unsigned int state; // modifiers, and the group in XKB's bits 13 and 14
    Time time; // server time of the user's input, in milliseconds
};

// Delivers keys to the window that has the input focus: through XTest, where the server itself
// presses them, or as key events sent to that window. Remembers every key that it holds down in
// the server, and leaves none behind; it tells of them, so that they are released even if this
// process is killed.
class KeySender {
public:
    // The display is borrowed. The root window stands in where no window has the focus.
    KeySender(Display* xDisplay, Window root);

    // Releases what is still held.
    ~KeySender();
    KeySender(const KeySender&) = delete;
    KeySender& operator=(const KeySender&) = delete;

    // Presses the modifier keys in the order given, one millisecond apart, and then the key.
    void pressThroughXTest(KeyCode keycode, const QList<KeyCode>& modifierKeys);

    // Releases the key and then the modifier keys that were pressed with it, and returns those.
    // Nothing for a key that is not held: it may be a physical one.
    QList<KeyCode> releaseThroughXTest(KeyCode keycode);

    // Releases every key that is held, and waits until the server has taken note.
    void releaseAll();

    // type is x11::keyPress or x11::keyRelease.
    void sendEvent(int type, const SyntheticKey& key);

private:
    Window focusWindow() const;
    void tellHeldKeys();

    Display* display;
    Window rootWindow;
    x11::HeldKeys toldKeys;
    QHash<KeyCode, QList<KeyCode>> held; // by the key clicked, the modifier keys pressed with it
};
