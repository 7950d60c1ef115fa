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

// The colours that the server has under these names, in their order; nothing for a name that it
// does not know. All names are asked for together, in one round trip. The display is borrowed;
// where it is null no colour is known.
std::vector<std::optional<Colour>> lookUpColours(
    Display* display, const std::vector<std::string>& names);

} // namespace x11
