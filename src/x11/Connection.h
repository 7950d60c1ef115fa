#pragma once

#include "x11/Types.h"

#include <memory>

namespace x11 {

struct CloseDisplay {
    void operator()(Display* display) const;
};

// A connection to an X server, closed with its owner; Qt's own is borrowed instead.
using Connection = std::unique_ptr<Display, CloseDisplay>;

} // namespace x11
