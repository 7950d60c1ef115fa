#pragma once

#include "x11/Types.h"

#include <optional>
#include <string>
#include <vector>

namespace x11 {

// A colour as the X protocol gives it, each channel 0 to 65535.
struct Colour {
    unsigned short red;
    unsigned short green;
    unsigned short blue;
};

// The server's own colours of these names, in the order given; nothing for a name that the server
// does not know. All names are asked for together, at the price of one round trip.
std::vector<std::optional<Colour>> lookUpColours(
    Display* display, const std::vector<std::string>& names);

} // namespace x11
