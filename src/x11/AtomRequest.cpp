#include "x11/AtomRequest.h"

#include "x11/X11.h"

#include <xcb/xcb.h>

#include <cstring>

AtomRequest::AtomRequest(xcb_connection_t* xConnection, const char* name)
    : connection(xConnection)
{
    if (connection)
        request =
            xcb_intern_atom(connection, 0, static_cast<uint16_t>(std::strlen(name)), name).sequence;
}

AtomRequest::~AtomRequest()
{
    if (request != 0)
        xcb_discard_reply(connection, request);
}

Atom AtomRequest::atom()
{
    if (request == 0)
        return answer;
    const x11::Reply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection, {request}, nullptr));
    request = 0;
    if (reply)
        answer = reply->atom;
    return answer;
}
