#pragma once

#include "harness/DelayLine.h"
#include "harness/XMessages.h"

#include <array>
#include <atomic>
#include <functional>
#include <list>
#include <mutex>
#include <thread>
#include <vector>

struct pollfd;

// How a proxy changes what passes it.
struct XProxyManners {
    // Everything is held back for this long, in each direction.
    DelayLine::Clock::duration delay{};

    // Gets every request when it comes and may change it; called in the proxy's thread.
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

    // While requests are held the server seems far away: it answers nothing, but what happens there
    // still comes to the clients. passHeldRequests() hands on those that have come, and the later
    // ones stay.
    void holdRequests() { setRequests(Requests::Stay); }
    void passHeldRequests() { setRequests(Requests::PassOnce); }
    void passRequests() { setRequests(Requests::Pass); }

private:
    enum class Requests { Pass, PassOnce, Stay };

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
    void setRequests(Requests wanted);
    std::vector<DelayLine*> lines();
    std::vector<DelayLine*> movingLines(Requests wanted);
    void serve();
    bool isToEnd(const pollfd& wakeUp) const;
    void accept();
    void handOn();

    QByteArray serverSocket; // its path
    XProxyManners manners;
    QByteArray displayName;
    QByteArray ownSocket; // its path
    int listener = -1;
    std::array<int, 2> wakePipe{-1, -1}; // written to wake the thread, and closed to end it
    std::atomic<Requests> requests = Requests::Pass;
    std::list<Connection> connections;
    mutable std::mutex trafficMutex;
    XTraffic passed;
    std::thread thread;
};
