#pragma once

#include "harness/PrivateServer.h"

// An X server whose screen is a window of another one (Xephyr). What XTest types on the outer
// server comes from a real keyboard here: the keys that a user presses.
class NestedServer : public PrivateServer {
public:
    // Returns when the server takes connections and its window has the focus on the outer one.
    // Throws std::runtime_error when it is not ready within ten seconds.
    explicit NestedServer(const PrivateServer& outer);
};
