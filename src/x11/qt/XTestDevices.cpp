#include "x11/qt/XTestDevices.h"

#include "x11/X11.h"

#include <xcb/xcbext.h>
#include <xcb/xinput.h>

namespace {

constexpr char xTestProperty[] = "XTEST Device"; // xserver-properties.h

} // namespace

XTestDevices::XTestDevices(xcb_connection_t* xConnection)
    : connection(xConnection)
    , mark(connection, xTestProperty)
{
    askAnew();
}

XTestDevices::~XTestDevices()
{
    forget();
}

void XTestDevices::forget()
{
    if (list)
        xcb_discard_reply(connection, *list);
    for (const unsigned int question : std::as_const(questions))
        xcb_discard_reply(connection, question);
    list.reset();
    questions.clear();
    known.clear();
}

void XTestDevices::askAnew()
{
    forget();
    list = xcb_input_xi_query_device(connection, XCB_INPUT_DEVICE_ALL).sequence;
    xcb_flush(connection);
}

void XTestDevices::goOn()
{
    void* answer = nullptr;
    xcb_generic_error_t* error = nullptr;
    if (!list || !xcb_poll_for_reply(connection, *list, &answer, &error))
        return;
    list.reset();
    const x11::Reply<xcb_generic_error_t> refusal(error);
    const x11::Reply<xcb_input_xi_query_device_reply_t> reply(
        static_cast<xcb_input_xi_query_device_reply_t*>(answer));
    if (!reply)
        return;
    for (auto device = xcb_input_xi_query_device_infos_iterator(reply.get()); device.rem > 0;
        xcb_input_xi_device_info_next(&device)) {
        if (device.data->type == XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD)
            askForMark(device.data->deviceid);
    }
    xcb_flush(connection);
}

void XTestDevices::askForMark(int device)
{
    const auto cookie =
        xcb_input_xi_get_property(connection, static_cast<xcb_input_device_id_t>(device), 0,
            static_cast<xcb_atom_t>(mark.atom()), XCB_GET_PROPERTY_TYPE_ANY, 0, 1);
    questions.insert(device, cookie.sequence);
}

bool XTestDevices::contains(int device)
{
    const auto found = known.constFind(device);
    if (found != known.constEnd())
        return *found;
    goOn();
    if (!questions.contains(device))
        askForMark(device);
    const x11::Reply<xcb_input_xi_get_property_reply_t> reply(
        xcb_input_xi_get_property_reply(connection, {questions.take(device)}, nullptr));
    const bool isXTest = reply && reply->num_items > 0;
    known.insert(device, isXTest);
    return isXTest;
}
