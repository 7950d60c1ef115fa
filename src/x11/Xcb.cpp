#include "x11/Xcb.h"

#include <xcb/xcb.h>
#include <xcb/xcbext.h>

namespace x11 {

std::optional<ExtensionCodes> findExtension(xcb_connection_t* connection, xcb_extension_t& name)
{
    const xcb_query_extension_reply_t* reply =
        connection ? xcb_get_extension_data(connection, &name) : nullptr;
    if (!reply || !reply->present)
        return std::nullopt;
    return ExtensionCodes{reply->major_opcode, reply->first_event};
}

} // namespace x11
