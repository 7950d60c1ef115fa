#pragma once

#include "harness/DelayLine.h"

#include <list>
#include <memory>
#include <string>

// A display that is another one at the end of a slow line: takes the connections of X clients and
// hands them on to a server, and holds everything back for a while in each direction. A program
// that starts with N answers waited for, one after the other, starts 2 N delays later.
class SlowLink {
public:
    // Offers the first free display from `firstNumber` on, for the server of display
    // `serverNumber`. Throws std::runtime_error when none is free.
    SlowLink(int firstNumber, int serverNumber, DelayLine::Clock::duration delay);

    // Closes all connections and removes the socket.
    ~SlowLink();
    SlowLink(const SlowLink&) = delete;
    SlowLink& operator=(const SlowLink&) = delete;

    int displayNumber() const { return number; }

    // Serves until the descriptor `stop` is readable.
    void serve(int stop);

private:
    struct Connection {
        Connection(int clientSocket, int serverSocket, DelayLine::Clock::duration delay);
        ~Connection();
        Connection(const Connection&) = delete;
        Connection& operator=(const Connection&) = delete;

        int client;
        int server;
        DelayLine toServer;
        DelayLine toClient;
    };

    bool listenOn(int displayNumber);
    void accept();
    void handOn();

    std::string serverPath;
    DelayLine::Clock::duration delay;
    std::string path;
    int number = 0;
    int listener = -1;
    std::list<Connection> connections;
};
