#pragma once

#include "x11/Types.h"

#include <QAbstractNativeEventFilter>

#include <functional>

// Translates the X events that the program looks at into Xlib's records and hands them on before Qt
// handles them: key events, a window's getting the focus, and the events of extensions with their
// type and second byte, which is the kind of an XKB event. Extension events that a program has sent
// are left out.
class XcbEventBridge : public QAbstractNativeEventFilter {
public:
    // Gets each event; Qt gets it after that. The record, and any pointer to a part of it, is valid
    // during the call only.
    using Receiver = std::function<void(XEvent*)>;

    // The display, which the records name, is borrowed from Qt and outlives this object.
    // Nothing comes until the bridge is installed as the application's native event filter.
    XcbEventBridge(Display* xDisplay, Receiver eventReceiver);

    // Keeps no event from Qt.
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    Display* display;
    Receiver receiver;
};
