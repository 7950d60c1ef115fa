#pragma once

#include <optional>

struct xcb_connection_t;
struct xcb_extension_t;

// What XCB leaves to those who use it.
namespace x11 {

// Set in the response type of an event that a client has sent (X protocol, "SendEvent").
inline constexpr int sentBySendEvent = 0x80;

// The numbers that a server has given to an extension.
struct ExtensionCodes {
    int opcode; // of its requests, and of its generic events
    int firstEvent; // the event code of its first event
};

// Nothing where the server does not have the extension or the connection is null. Only the first
// call for a connection and an extension waits. XCB keeps the answer under the address of the
// name, which has to stay.
std::optional<ExtensionCodes> findExtension(xcb_connection_t* connection, xcb_extension_t& name);

} // namespace x11
