#pragma once

#include "x11/Types.h"

#include <QAbstractNativeEventFilter>

#include <functional>

// Hands the X events that the program looks at on as Xlib's records, before the toolkit handles
// them: key events, and the events of extensions with their type and second byte (XKB's kind).
class XcbEventBridge : public QAbstractNativeEventFilter {
public:
    // Gets each event and says whether it ends here: true keeps it from the toolkit. The record,
    // and any pointer to a part of it, is valid during the call only.
    using Receiver = std::function<bool(XEvent*)>;

    // The display, which the records name, is borrowed from the toolkit and outlives this object.
    // Nothing comes until the bridge is installed as the application's native event filter.
    XcbEventBridge(Display* xDisplay, Receiver eventReceiver);

    // Of an event that is none of those above nothing is handed on; it stays the toolkit's.
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    Display* display;
    Receiver receiver;
};
