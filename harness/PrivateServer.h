#pragma once

#include "harness/ChildProcess.h"

#include <QStringList>

#include <memory>

// An X server without a screen (Xvfb) for one test program. The server chooses a free display
// itself, so programs can run side by side. It needs no application object: a test's main makes
// the server, calls useForThisProcess(), and then makes the application.
class PrivateServer {
public:
    // Returns when the server takes connections. `extraArguments` follow the usual ones and can
    // name another "-screen". Throws std::runtime_error, with what the server said, when it is not
    // ready within ten seconds.
    explicit PrivateServer(const QStringList& extraArguments = {});

    // Stops the server, waits for its end, and removes its socket if it could not do so itself.
    ~PrivateServer();
    PrivateServer(const PrivateServer&) = delete;
    PrivateServer& operator=(const PrivateServer&) = delete;

    // The display's name, such as ":12".
    QByteArray display() const { return displayName; }

    // Sets DISPLAY, and drops what would lead Qt or a tool to another session.
    void useForThisProcess() const;

protected:
    // For a server of another kind: its program and the arguments that are its own.
    PrivateServer(const QByteArrayList& command, const QByteArrayList& environment);

private:
    QByteArray displayName;
    std::unique_ptr<ChildProcess> server;
};
