#pragma once

#include "harness/PrivateServer.h"

#include <QTemporaryDir>

// Where a VNC server listens for viewers: it does not start without such a place.
struct ViewersSocket {
    QTemporaryDir directory;
    QByteArray path() const { return directory.filePath(QStringLiteral("viewers")).toLocal8Bit(); }
};

// An X server whose screen is looked at over the network (Xvnc). It takes viewers at a socket that
// only this user can reach. (The socket's directory is a base class, so that it is made before the
// server.)
class VncServer : private ViewersSocket, public PrivateServer {
public:
    VncServer();
};
