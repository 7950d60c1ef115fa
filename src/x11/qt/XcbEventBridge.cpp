#include "x11/qt/XcbEventBridge.h"

#include "x11/X11.h"
#include "x11/Xcb.h"

#include <QByteArray>

#include <xcb/xcb.h>

namespace {

constexpr int firstExtensionEvent = 64; // X protocol, "Event encoding"

XEvent keyEvent(Display* display, const xcb_key_press_event_t& source, int type)
{
    XEvent event{};
    XKeyEvent& key = event.xkey;
    key.type = type;
    key.serial = reinterpret_cast<const xcb_generic_event_t&>(source).full_sequence;
    key.send_event = (source.response_type & x11::sentBySendEvent) != 0;
    key.display = display;
    key.window = source.event;
    key.root = source.root;
    key.subwindow = source.child;
    key.time = source.time;
    key.x = source.event_x;
    key.y = source.event_y;
    key.x_root = source.root_x;
    key.y_root = source.root_y;
    key.state = source.state;
    key.keycode = source.detail;
    key.same_screen = source.same_screen;
    return event;
}

XEvent focusEvent(Display* display, const xcb_focus_in_event_t& source)
{
    XEvent event{};
    XFocusChangeEvent& focus = event.xfocus;
    focus.type = x11::focusIn;
    focus.serial = source.sequence;
    focus.send_event = (source.response_type & x11::sentBySendEvent) != 0;
    focus.display = display;
    focus.window = source.event;
    focus.mode = source.mode;
    focus.detail = source.detail;
    return event;
}

XkbEvent extensionEvent(Display* display, const xcb_generic_event_t& source)
{
    XkbEvent event{};
    event.type = source.response_type;
    event.any.display = display;
    event.any.xkb_type = source.pad0;
    return event;
}

} // namespace

XcbEventBridge::XcbEventBridge(Display* xDisplay, Receiver eventReceiver)
    : display(xDisplay)
    , receiver(std::move(eventReceiver))
{
}

bool XcbEventBridge::nativeEventFilter(const QByteArray&, void* message, qintptr*)
{
    const auto* generic = static_cast<const xcb_generic_event_t*>(message);
    const int type = generic->response_type & ~x11::sentBySendEvent;
    if (type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE) {
        XEvent event = keyEvent(display, *static_cast<xcb_key_press_event_t*>(message), type);
        receiver(&event);
    } else if (type == XCB_FOCUS_IN) {
        XEvent event = focusEvent(display, *static_cast<xcb_focus_in_event_t*>(message));
        receiver(&event);
    } else if (type >= firstExtensionEvent && generic->response_type == type) {
        XkbEvent event = extensionEvent(display, *generic);
        receiver(&event.core);
    }
    return false;
}
