#include "harness/XProxy.h"

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

namespace {

using namespace std::chrono_literals;
using Sender = XMessages::Sender;

// Servers that choose a display for themselves do not come that far.
constexpr int firstDisplay = 200;
constexpr int lastDisplay = 299;

constexpr auto longestWait = 1s;

// X protocol, "QueryExtension".
constexpr char queryExtension = 98;
constexpr qsizetype extensionName = 8; // where the name stands in the request

QByteArray socketPath(const QByteArray& displayNumber)
{
    return "/tmp/.X11-unix/X" + displayNumber;
}

sockaddr_un addressOf(const QByteArray& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.constData(), sizeof address.sun_path - 1);
    return address;
}

int newSocket()
{
    return socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
}

// -1 where nothing listens.
int connectTo(const QByteArray& path)
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

XProxyManners hidingExtension(const QByteArray& extension)
{
    const auto rename = [extension](QByteArray& request) {
        if (request.at(0) == queryExtension
            && request.mid(extensionName, extension.size()) == extension)
            request[extensionName] = '-';
    };
    return {{}, rename};
}

XProxy::Connection::Connection(XProxy& owner, int clientSocket, int serverSocket)
    : client(clientSocket)
    , server(serverSocket)
    , toServer(client, server, owner.manners.delay, owner.filterOf(Sender::Client))
    , toClient(server, client, owner.manners.delay, owner.filterOf(Sender::Server))
{
}

XProxy::Connection::~Connection()
{
    close(client);
    close(server);
}

XProxy::XProxy(const QByteArray& display, XProxyManners ownManners)
    : serverSocket(socketPath(display.mid(1)))
    , manners(std::move(ownManners))
{
    listen();
    if (pipe2(wakePipe.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe for a proxy");
    thread = std::thread([this] { serve(); });
}

XProxy::~XProxy()
{
    close(wakePipe[1]);
    thread.join();
    close(wakePipe[0]);
    close(listener);
    unlink(ownSocket.constData());
}

XTraffic XProxy::traffic() const
{
    const std::lock_guard lock(trafficMutex);
    return passed;
}

void XProxy::listen()
{
    for (int number = firstDisplay; number <= lastDisplay; ++number) {
        if (listenOn(number))
            return;
    }
    throw std::runtime_error("no free display for a proxy");
}

bool XProxy::listenOn(int displayNumber)
{
    const QByteArray number = QByteArray::number(displayNumber);
    const QByteArray path = socketPath(number);
    const int descriptor = newSocket();
    const sockaddr_un address = addressOf(path);
    if (bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0
        || ::listen(descriptor, SOMAXCONN) != 0) {
        close(descriptor);
        return false;
    }
    listener = descriptor;
    ownSocket = path;
    displayName = ':' + number;
    return true;
}

DelayLine::Filter XProxy::filterOf(Sender sender)
{
    return [this, sender, messages = XMessages(sender), isSetUp = false](
               const QByteArray& bytes) mutable {
        messages.add(bytes);
        QByteArray complete;
        for (QByteArray message = messages.take(); !message.isEmpty(); message = messages.take()) {
            if (std::exchange(isSetUp, true))
                pass(sender, message);
            complete += message;
        }
        return complete;
    };
}

void XProxy::pass(Sender sender, QByteArray& message)
{
    if (sender == Sender::Client && manners.changeRequest)
        manners.changeRequest(message);
    const std::lock_guard lock(trafficMutex);
    passed.count(sender, message);
}

void XProxy::setRequests(Requests wanted)
{
    requests = wanted;
    const char wakeUp = 0;
    [[maybe_unused]] const ssize_t written = write(wakePipe[1], &wakeUp, sizeof wakeUp);
}

std::vector<DelayLine*> XProxy::lines()
{
    std::vector<DelayLine*> result;
    for (Connection& connection : connections) {
        result.push_back(&connection.toServer);
        result.push_back(&connection.toClient);
    }
    return result;
}

std::vector<DelayLine*> XProxy::movingLines(Requests wanted)
{
    std::vector<DelayLine*> result;
    for (Connection& connection : connections) {
        if (wanted != Requests::Stay)
            result.push_back(&connection.toServer);
        result.push_back(&connection.toClient);
    }
    return result;
}

bool XProxy::isToEnd(const pollfd& wakeUp) const
{
    if (!(wakeUp.revents & POLLIN))
        return wakeUp.revents != 0;
    char byte = 0;
    return read(wakePipe[0], &byte, sizeof byte) < 0;
}

void XProxy::serve()
{
    while (true) {
        const std::vector<DelayLine*> open = lines();
        std::vector<pollfd> sources{{wakePipe[0], POLLIN, 0}, {listener, POLLIN, 0}};
        for (const DelayLine* line : open)
            sources.push_back({line->takesInput() ? line->input() : -1, POLLIN, 0});
        const timespec wait = untilNextDelivery(movingLines(requests));
        ppoll(sources.data(), sources.size(), &wait, nullptr);
        if (isToEnd(sources[0]))
            return;
        for (std::size_t i = 0; i < open.size(); ++i) {
            if (sources[i + 2].revents != 0)
                open[i]->receive();
        }
        handOn();
        if (sources[1].revents != 0)
            accept();
    }
}

void XProxy::accept()
{
    const int client = accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
    if (client < 0)
        return;
    const int server = connectTo(serverSocket);
    if (server < 0)
        close(client);
    else
        connections.emplace_back(*this, client, server);
}

void XProxy::handOn()
{
    Requests wanted = requests;
    for (DelayLine* line : movingLines(wanted))
        line->deliver();
    if (wanted == Requests::PassOnce)
        requests.compare_exchange_strong(wanted, Requests::Stay);
    connections.remove_if([](const Connection& connection) {
        return connection.toServer.isOver() && connection.toClient.isOver();
    });
}
