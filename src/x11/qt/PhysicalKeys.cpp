#include "x11/qt/PhysicalKeys.h"

#include "x11/X11.h"
#include "x11/Xcb.h"
#include "x11/qt/ToolkitDisplay.h"

#include <QApplication>
#include <QByteArray>

#include <xcb/xinput.h>

#include <utility>

namespace {

constexpr uint32_t repeatFlag = XCB_INPUT_KEY_EVENT_FLAGS_KEY_REPEAT;

struct RawKeySelection {
    xcb_input_event_mask_t head{XCB_INPUT_DEVICE_ALL_MASTER, 1};
    uint32_t mask = XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE;
};

} // namespace

PhysicalKeys::PhysicalKeys(Display* xDisplay, Receiver keyReceiver)
    : display(xDisplay)
    , receiver(std::move(keyReceiver))
{
    xcb_connection_t* connection = toolkitConnection();
    const auto input = x11::findExtension(connection, xcb_input_id);
    if (!input)
        return;
    opcode = input->opcode;
    const RawKeySelection selection;
    xcb_input_xi_select_events(
        connection, static_cast<xcb_window_t>(DefaultRootWindow(display)), 1, &selection.head);
    xTestDevices.emplace(connection);
}

bool PhysicalKeys::nativeEventFilter(const QByteArray&, void* message, qintptr*)
{
    if (xTestDevices)
        xTestDevices->goOn();
    const auto* generic = static_cast<const xcb_ge_generic_event_t*>(message);
    if (generic->response_type != XCB_GE_GENERIC || generic->extension != opcode)
        return false;
    if (generic->event_type == XCB_INPUT_HIERARCHY)
        xTestDevices->askAnew();
    else if (generic->event_type == XCB_INPUT_RAW_KEY_PRESS)
        tellOfKey(x11::keyPress, *static_cast<const xcb_input_raw_key_press_event_t*>(message));
    else if (generic->event_type == XCB_INPUT_RAW_KEY_RELEASE)
        tellOfKey(x11::keyRelease, *static_cast<const xcb_input_raw_key_press_event_t*>(message));
    return false;
}

// While one of our dialogs has the focus, Qt delivers the ordinary key events.
bool PhysicalKeys::isReporting() const
{
    return opcode != 0 && !QApplication::focusWidget();
}

void PhysicalKeys::tellOfKey(int type, const xcb_input_raw_key_press_event_t& key)
{
    if ((key.flags & repeatFlag) || !isReporting() || xTestDevices->contains(key.sourceid))
        return;
    XEvent event = keyEvent(type, key.detail, key.time);
    receiver(&event);
}

XEvent PhysicalKeys::keyEvent(int type, unsigned int keycode, Time time)
{
    const KeyboardState state = keyboard.state();
    XEvent event{};
    XKeyEvent& key = event.xkey;
    key.type = type;
    key.display = display;
    key.root = key.window = DefaultRootWindow(display);
    key.time = time;
    key.state = XkbBuildCoreState(state.modifiers, state.group);
    key.keycode = keycode;
    key.same_screen = x11::xTrue;
    return event;
}
