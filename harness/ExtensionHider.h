#pragma once

#include <QByteArray>

#include <array>
#include <list>
#include <thread>

struct HiderConnection;

// An X server as it would be without one of its extensions: stands between clients and a real
// server and asks for an extension of another name when a client asks for this one. For extensions
// that the real server cannot leave out itself.
class ExtensionHider {
public:
    // `display` is the real server's, such as ":12". Throws std::runtime_error when there is no
    // free display for the clients.
    ExtensionHider(const QByteArray& display, QByteArray extension);

    // Ends the connections that are left.
    ~ExtensionHider();
    ExtensionHider(const ExtensionHider&) = delete;
    ExtensionHider& operator=(const ExtensionHider&) = delete;

    // The display's name for clients.
    QByteArray display() const { return displayName; }

private:
    void serve();
    void accept();
    bool forward(HiderConnection& connection, bool fromClient) const;

    QByteArray serverSocket; // its socket
    QByteArray hiddenExtension;
    QByteArray displayName;
    int listener = -1;
    std::array<int, 2> endPipe{-1, -1}; // a pipe, closed to end the thread
    std::list<HiderConnection> connections;
    std::thread thread;
};
