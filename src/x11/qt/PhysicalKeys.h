#pragma once

#include "x11/Types.h"
#include "x11/qt/FollowedKeyboard.h"
#include "x11/qt/XTestDevices.h"

#include <QAbstractNativeEventFilter>

#include <functional>
#include <optional>

struct xcb_input_raw_key_press_event_t;

// Lets a window that never has the focus see the physical keyboard: takes the raw key events of the
// X input extension, which the server reports whatever window has the focus. Keys that a program
// presses through XTest, this program included, are left out. The keyboard is not grabbed, and no
// key is recorded.
class PhysicalKeys : public QAbstractNativeEventFilter {
public:
    // Gets each press and release as a key event, whose window is the root; the record is valid
    // during the call only.
    using Receiver = std::function<void(XEvent*)>;

    // Selects the events of the master devices at the root window, on Qt's connection. Qt's own
    // selections there are for all devices together (which come and go: this class needs that too)
    // and for single devices, and stay as they are. The display is borrowed. Without the input
    // extension nothing is ever reported.
    PhysicalKeys(Display* xDisplay, Receiver keyReceiver);

    // Whether the receiver hears of every physical key: not while a window of this program has the
    // focus, and gets ordinary key events. Where the server's focus follows the pointer, ordinary
    // key events come meanwhile too: do not report such a key twice.
    bool isReporting() const;

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    void tellOfKey(int type, const xcb_input_raw_key_press_event_t& key);
    XEvent keyEvent(int type, unsigned int keycode, Time time);

    Display* display;
    Receiver receiver;
    int opcode = 0; // the input extension's; 0 where there is none
    // A second one beside the picture's, which does not hear what that one does to the keyboard. It
    // only fills the state of the events, which chooses no more than the label that is reported.
    FollowedKeyboard keyboard;
    std::optional<XTestDevices> xTestDevices; // only with the input extension
};
