#include "x11/DeviceKeysyms.h"

#include "x11/X11.h"
#include "x11/Xcb.h"

#include <X11/Xlib-xcb.h>
#include <xcb/xcb.h>
#include <xcb/xinput.h>

namespace x11 {

namespace {

using DeviceReply = Reply<xcb_input_get_device_key_mapping_reply_t>;
using CoreReply = Reply<xcb_get_keyboard_mapping_reply_t>;

bool hasDevices(xcb_connection_t* connection)
{
    return findExtension(connection, xcb_input_id).has_value();
}

void readFromDevice(xcb_connection_t* connection, unsigned int device, int keys, KeysymTable& table)
{
    const auto cookie =
        xcb_input_get_device_key_mapping(connection, static_cast<std::uint8_t>(device),
            static_cast<std::uint8_t>(table.firstKey), static_cast<std::uint8_t>(keys));
    const DeviceReply reply(xcb_input_get_device_key_mapping_reply(connection, cookie, nullptr));
    if (!reply)
        return;
    table.width = reply->keysyms_per_keycode;
    const std::uint32_t* first = xcb_input_get_device_key_mapping_keysyms(reply.get());
    table.keysyms.assign(
        first, first + xcb_input_get_device_key_mapping_keysyms_length(reply.get()));
}

void readFromCore(xcb_connection_t* connection, int keys, KeysymTable& table)
{
    const auto cookie = xcb_get_keyboard_mapping(
        connection, static_cast<std::uint8_t>(table.firstKey), static_cast<std::uint8_t>(keys));
    const CoreReply reply(xcb_get_keyboard_mapping_reply(connection, cookie, nullptr));
    if (!reply)
        return;
    table.width = reply->keysyms_per_keycode;
    const std::uint32_t* first = xcb_get_keyboard_mapping_keysyms(reply.get());
    table.keysyms.assign(first, first + xcb_get_keyboard_mapping_keysyms_length(reply.get()));
}

} // namespace

KeysymTable deviceKeysyms(Display* display, unsigned int device)
{
    xcb_connection_t* const connection = XGetXCBConnection(display);
    KeysymTable table;
    int lastKey = 0;
    XDisplayKeycodes(display, &table.firstKey, &lastKey);
    const int keys = lastKey - table.firstKey + 1;
    if (hasDevices(connection))
        readFromDevice(connection, device, keys, table);
    else
        readFromCore(connection, keys, table);
    return table;
}

void setDeviceKeysyms(Display* display, unsigned int device, const KeysymTable& table)
{
    if (table.width == 0 || table.keysyms.empty())
        return;
    xcb_connection_t* const connection = XGetXCBConnection(display);
    const auto first = static_cast<std::uint8_t>(table.firstKey);
    const auto width = static_cast<std::uint8_t>(table.width);
    const auto keys = static_cast<std::uint8_t>(table.keysyms.size() / width);
    if (hasDevices(connection))
        xcb_input_change_device_key_mapping(connection, static_cast<std::uint8_t>(device), first,
            width, keys, table.keysyms.data());
    else
        xcb_change_keyboard_mapping(connection, keys, first, width, table.keysyms.data());
}

} // namespace x11
