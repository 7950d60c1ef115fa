#pragma once

#include "x11/Types.h"

#include <QAbstractNativeEventFilter>
#include <QHash>

#include <functional>

struct xcb_input_raw_key_press_event_t;

// Lets a window that never has the focus see the physical keyboard: raw key events of the X input
// extension, which the server reports whatever window has the focus. What XTest presses, this
// program's own keys among it, is left out. Nothing is grabbed, asked for again or kept.
class PhysicalKeys : public QAbstractNativeEventFilter {
public:
    // Gets each press and release as a key event, whose window is the root; the record is valid
    // during the call only.
    using Receiver = std::function<void(XEvent*)>;

    // Selects the events at the root window, for the masters, on the toolkit's connection: the
    // toolkit itself selects there for all devices together (their coming and going, which this
    // class looks at too) and for single ones. The display is borrowed. Without the input extension
    // nothing is ever reported.
    PhysicalKeys(Display* xDisplay, Receiver keyReceiver);

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    void tellOfKey(int type, const xcb_input_raw_key_press_event_t& key);
    bool isXTestDevice(int device);
    XEvent keyEvent(int type, unsigned int keycode, Time time) const;

    Display* display;
    Receiver receiver;
    int opcode = 0; // the input extension's; 0 where there is none
    QHash<int, bool> xTestDevices; // by id, whether it is XTest's; those asked for already
};
