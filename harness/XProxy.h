#pragma once

#include "harness/DelayLine.h"
#include "harness/XMessages.h"

#include <array>
#include <functional>
#include <list>
#include <mutex>
#include <thread>
#include <vector>

// What becomes of that which passes a proxy.
struct XProxyManners {
    // Everything is held back for this long, in each direction.
    DelayLine::Clock::duration delay{};

    // Gets every request before it is passed on and may change it; called in the proxy's thread.
    std::function<void(QByteArray& request)> changeRequest;
};

// Asks the server for an extension of another name when a client asks for this one, so that the
// server seems not to have it. For extensions that the server cannot leave out itself.
XProxyManners hidingExtension(const QByteArray& extension);

// A display that is another one seen through a proxy: takes the connections of X clients and hands
// what they say on to a server, and back, in a thread of its own. It is there for as long as this
// object.
class XProxy {
public:
    // `display` is the server's, such as ":12". Throws std::runtime_error when there is no free
    // display for the clients.
    explicit XProxy(const QByteArray& display, XProxyManners ownManners = {});

    // Ends the connections that are left.
    ~XProxy();
    XProxy(const XProxy&) = delete;
    XProxy& operator=(const XProxy&) = delete;

    // The display's name for clients.
    QByteArray display() const { return displayName; }

    // Of all connections so far.
    XTraffic traffic() const;

private:
    class Connection {
    public:
        Connection(XProxy& owner, int clientSocket, int serverSocket);
        ~Connection();
        Connection(const Connection&) = delete;
        Connection& operator=(const Connection&) = delete;

        int client;
        int server;
        DelayLine toServer;
        DelayLine toClient;
    };

    void listen();
    bool listenOn(int displayNumber);
    DelayLine::Filter filterOf(XMessages::Sender sender);
    void pass(XMessages::Sender sender, QByteArray& message);
    std::vector<DelayLine*> lines();
    void serve();
    void accept();
    void handOn();

    QByteArray serverSocket; // its path
    XProxyManners manners;
    QByteArray displayName;
    QByteArray ownSocket; // its path
    int listener = -1;
    std::array<int, 2> endPipe{-1, -1}; // closed to end the thread
    std::list<Connection> connections;
    mutable std::mutex trafficMutex;
    XTraffic passed;
    std::thread thread;
};
