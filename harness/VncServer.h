#pragma once

#include "harness/PrivateServer.h"

// An X server whose screen is looked at over the network (Xvnc). It takes no connection of a
// viewer.
class VncServer : public PrivateServer {
public:
    VncServer();
};
