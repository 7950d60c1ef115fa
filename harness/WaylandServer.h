#pragma once

#include "harness/PrivateServer.h"

#include <QTemporaryDir>

#include <memory>

// A Wayland compositor without a screen (weston), for an X server to run on.
class Compositor {
public:
    // Returns when the compositor takes connections. Throws std::runtime_error when it is not ready
    // within ten seconds.
    Compositor();

    // What a client finds in its environment.
    QByteArrayList environment() const;

private:
    QTemporaryDir directory; // for its socket
    std::unique_ptr<ChildProcess> process;
};

// The X server of a Wayland session (Xwayland), with its whole screen as one window of a compositor
// of its own.
class WaylandServer : private Compositor, public PrivateServer {
public:
    WaylandServer();
};
