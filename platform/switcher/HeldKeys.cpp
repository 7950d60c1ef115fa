#include "HeldKeys.h"

#include "KeyboardDevices.h"

#include <xcb/xinput.h>

#include <memory>
#include <vector>

namespace {

struct CloseConnection {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

using StateReply = x11::Reply<xcb_input_query_device_state_reply_t>;

constexpr int keycodes = 256;

std::vector<unsigned int> keysIn(const xcb_input_key_state_t& state)
{
    std::vector<unsigned int> keys;
    for (unsigned int keycode = 0; keycode < keycodes; ++keycode) {
        if ((state.keys[keycode / 8] >> (keycode % 8)) & 1)
            keys.push_back(keycode);
    }
    return keys;
}

// The keys that are down on one device, by the account of the X Input extension.
std::vector<unsigned int> keysDownOn(xcb_connection_t* connection, unsigned int device)
{
    const auto cookie = xcb_input_query_device_state(connection, static_cast<uint8_t>(device));
    const StateReply reply(xcb_input_query_device_state_reply(connection, cookie, nullptr));
    if (!reply)
        return {};
    for (auto state = xcb_input_query_device_state_classes_iterator(reply.get()); state.rem > 0;
         xcb_input_input_state_next(&state)) {
        if (state.data->class_id == XCB_INPUT_INPUT_CLASS_KEY)
            return keysIn(*reinterpret_cast<const xcb_input_key_state_t*>(state.data));
    }
    return {};
}

} // namespace

void releaseHeldKeys(Display* display)
{
    const unsigned int device = xtestKeyboard(display);
    if (device == 0)
        return;
    const std::unique_ptr<xcb_connection_t, CloseConnection> connection(
        xcb_connect(XDisplayString(display), nullptr));
    for (const unsigned int keycode : keysDownOn(connection.get(), device))
        XTestFakeKeyEvent(display, keycode, x11::xFalse, CurrentTime);
    XSync(display, x11::xFalse);
}
