#pragma once

#include "x11/HeldKeys.h"
#include "x11/X11.h"

#include <QHash>
#include <QList>

#include <cstdint>
#include <deque>

class FollowedKeyboard;

// What a synthetic key event carries beside the key.
struct SyntheticKey {
    KeyCode keycode;
    unsigned int state; // modifiers, and the group in XKB's bits 13 and 14
    Time time; // server time of the user's input, in milliseconds
};

// Delivers keys to the window that has the input focus: through XTest, where the server itself
// presses them, or as key events sent to that window. Remembers every key that it holds down in
// the server, and leaves none behind. It writes them into a property as well
// (x11/HeldKeys.h): the switcher, or the program that starts next, releases them if this process is
// killed.
class KeySender {
public:
    // Both are borrowed; the keyboard is told of modifier keys that this sender holds down.
    KeySender(Display* xDisplay, FollowedKeyboard* serversKeyboard);

    // Releases what is still held.
    ~KeySender();
    KeySender(const KeySender&) = delete;
    KeySender& operator=(const KeySender&) = delete;

    // Presses the modifier keys in the order given, one millisecond apart, and then the key.
    // Does nothing for a key that is held already.
    void pressThroughXTest(KeyCode keycode, const QList<KeyCode>& modifierKeys);

    // Releases the key and then the modifier keys that were pressed with it. Does nothing for a key
    // that is not held: the user may be holding it on the real keyboard.
    void releaseThroughXTest(KeyCode keycode);

    // Presses and releases the key at once, with the modifier keys around it.
    void typeThroughXTest(KeyCode keycode, const QList<KeyCode>& modifierKeys);

    // Whether the event is the echo of a modifier key that this sender pressed or released around a
    // key, so not the user's: the server sends it to this program if a window of ours has the
    // focus. It is told by the number of the request that the event followed, in event.serial (0
    // for an event that came another way). Takes the echo off those expected: ask once for each
    // event.
    bool takeEcho(const XKeyEvent& event);

    // Whether a key is held down through XTest.
    bool holdsKeys() const { return !held.isEmpty(); }

    // Releases every key that is held, and waits until the server has done so.
    void releaseAll();

    // type is x11::keyPress or x11::keyRelease.
    void sendEvent(int type, const SyntheticKey& key);

private:
    // What a request for a modifier key brings back.
    struct Echo {
        std::uint32_t request;
        KeyCode keycode;
        int type; // x11::keyPress or x11::keyRelease

        friend bool operator==(const Echo&, const Echo&) = default;
    };

    void fakeModifier(KeyCode keycode, int type, unsigned long delay);
    Window focusWindow() const;
    void publishHeldKeys();
    bool holdsModifierKeys() const;

    Display* display;
    FollowedKeyboard* keyboard;
    Window rootWindow; // of the default screen; gets the key events while no window has the focus
    x11::HeldKeys publishedKeys;
    QHash<KeyCode, QList<KeyCode>> held; // by the key clicked, the modifier keys pressed with it
    std::deque<Echo> echoes; // that may still come, in the order of their requests
};
