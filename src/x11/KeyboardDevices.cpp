#include "x11/KeyboardDevices.h"

#include "x11/X11.h"
#include "x11/Xcb.h"
#include "x11/XkbDescription.h"

#include <xcb/xinput.h>

#include <memory>

namespace {

struct CloseConnection {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

using Connection = std::unique_ptr<xcb_connection_t, CloseConnection>;
using DeviceReply = x11::Reply<xcb_input_xi_query_device_reply_t>;

DeviceReply queryDevices(xcb_connection_t* connection)
{
    if (!x11::findExtension(connection, xcb_input_id))
        return nullptr;
    // The server answers as it did in the version that the client names.
    xcb_discard_reply(connection, xcb_input_xi_query_version(connection, 2, 2).sequence);
    const auto cookie = xcb_input_xi_query_device(connection, XCB_INPUT_DEVICE_ALL);
    return DeviceReply(xcb_input_xi_query_device_reply(connection, cookie, nullptr));
}

bool feeds(const xcb_input_xi_device_info_t& device, unsigned int core)
{
    return device.type == XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD && device.attachment == core;
}

} // namespace

unsigned int coreKeyboardDevice(Display* display)
{
    const XkbDescription description(XkbGetMap(display, XkbKeySymsMask, x11::coreKeyboard));
    return description ? description->device_spec : 0;
}

std::vector<unsigned int> keyboardDevices(Display* display)
{
    const unsigned int core = coreKeyboardDevice(display);
    std::vector<unsigned int> result{core};
    const Connection connection(xcb_connect(XDisplayString(display), nullptr));
    const DeviceReply reply = queryDevices(connection.get());
    if (!reply)
        return result;
    for (auto device = xcb_input_xi_query_device_infos_iterator(reply.get()); device.rem > 0;
        xcb_input_xi_device_info_next(&device)) {
        if (feeds(*device.data, core))
            result.push_back(device.data->deviceid);
    }
    return result;
}
