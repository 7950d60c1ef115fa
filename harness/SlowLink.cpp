#include "harness/SlowLink.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;

constexpr int numbersToTry = 100;
constexpr auto longestWait = 1s;

std::string socketPath(int displayNumber)
{
    return "/tmp/.X11-unix/X" + std::to_string(displayNumber);
}

sockaddr_un addressOf(const std::string& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    return address;
}

int newSocket()
{
    return socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
}

int connectTo(const std::string& path)
{
    const int result = newSocket();
    const sockaddr_un address = addressOf(path);
    if (connect(result, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
        return result;
    close(result);
    return -1;
}

timespec untilNextDelivery(const std::vector<DelayLine*>& lines)
{
    const auto now = DelayLine::Clock::now();
    auto wake = now + longestWait;
    for (const DelayLine* line : lines)
        wake = std::min(wake, std::max(now, line->nextDelivery().value_or(wake)));
    const std::chrono::nanoseconds wait = wake - now;
    return {wait / 1s, (wait % 1s).count()};
}

} // namespace

SlowLink::Connection::Connection(
    int clientSocket, int serverSocket, DelayLine::Clock::duration holdBack)
    : client(clientSocket)
    , server(serverSocket)
    , toServer(client, server, holdBack)
    , toClient(server, client, holdBack)
{
}

SlowLink::Connection::~Connection()
{
    close(client);
    close(server);
}

SlowLink::SlowLink(int firstNumber, int serverNumber, DelayLine::Clock::duration holdBack)
    : serverPath(socketPath(serverNumber))
    , delay(holdBack)
{
    for (int i = firstNumber; i < firstNumber + numbersToTry; ++i) {
        if (listenOn(i))
            return;
    }
    throw std::runtime_error(std::string("no free display: ") + std::strerror(errno));
}

SlowLink::~SlowLink()
{
    close(listener);
    unlink(path.c_str());
}

bool SlowLink::listenOn(int displayNumber)
{
    const std::string candidate = socketPath(displayNumber);
    const int listening = newSocket();
    const sockaddr_un address = addressOf(candidate);
    if (bind(listening, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        close(listening);
        return false;
    }
    listen(listening, SOMAXCONN);
    listener = listening;
    path = candidate;
    number = displayNumber;
    return true;
}

void SlowLink::serve(int stop)
{
    while (true) {
        std::vector<pollfd> sources{{stop, POLLIN, 0}, {listener, POLLIN, 0}};
        std::vector<DelayLine*> lines;
        for (Connection& connection : connections) {
            for (DelayLine* line : {&connection.toServer, &connection.toClient}) {
                lines.push_back(line);
                sources.push_back({line->takesInput() ? line->input() : -1, POLLIN, 0});
            }
        }
        const timespec wait = untilNextDelivery(lines);
        ppoll(sources.data(), sources.size(), &wait, nullptr);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (sources[i + 2].revents != 0)
                lines[i]->receive();
        }
        handOn();
        if (sources[1].revents != 0)
            accept();
        if (sources[0].revents != 0)
            return;
    }
}

void SlowLink::accept()
{
    const int client = ::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
    if (client < 0)
        return;
    const int server = connectTo(serverPath);
    if (server < 0)
        close(client);
    else
        connections.emplace_back(client, server, delay);
}

void SlowLink::handOn()
{
    for (Connection& connection : connections) {
        connection.toServer.deliver();
        connection.toClient.deliver();
    }
    connections.remove_if([](const Connection& connection) {
        return connection.toServer.isOver() && connection.toClient.isOver();
    });
}
