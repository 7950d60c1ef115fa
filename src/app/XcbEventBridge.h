#pragma once

#include "x11/X11.h"

#include <QAbstractNativeEventFilter>

#include <functional>

// Hands the X events that the program looks at on as Xlib's records, before the toolkit handles
// them: key events, and the events of extensions with their type and second byte (XKB's kind).
class XcbEventBridge : public QAbstractNativeEventFilter {
public:
    // The receiver says whether the event ends here; the record is valid during the call only.
    using Receiver = std::function<bool(XEvent*)>;

    XcbEventBridge(Display* xDisplay, Receiver eventReceiver);

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    Display* display;
    Receiver receiver;
};
