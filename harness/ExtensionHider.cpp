#include "harness/ExtensionHider.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>
#include <vector>

struct HiderConnection {
    int client = -1;
    int server = -1;
    bool isSetUp = false;
    QByteArray fromClient; // what has come of a request that is not complete yet
};

namespace {

constexpr char socketFolder[] = "/tmp/.X11-unix/X";

// Where servers that choose for themselves do not come.
constexpr int firstDisplay = 200;
constexpr int lastDisplay = 299;

// X protocol, "Connection Setup" and "Requests"; numbers in the byte order of this machine.
constexpr qsizetype setupHeader = 12;
constexpr qsizetype requestHeader = 4;
constexpr qsizetype bigRequestHeader = 8;
constexpr char queryExtension = 98;
constexpr qsizetype extensionName = 8; // where the name stands in the request

template <typename Number>
Number numberAt(const QByteArray& bytes, qsizetype position)
{
    Number number = 0;
    std::memcpy(&number, bytes.constData() + position, sizeof number);
    return number;
}

qsizetype padded(qsizetype length)
{
    return (length + 3) / 4 * 4;
}

std::optional<qsizetype> setupLength(const QByteArray& bytes)
{
    if (bytes.size() < setupHeader)
        return std::nullopt;
    return setupHeader + padded(numberAt<quint16>(bytes, 6)) + padded(numberAt<quint16>(bytes, 8));
}

// A length of zero announces a long one behind it (BIG-REQUESTS).
std::optional<qsizetype> requestLength(const QByteArray& bytes)
{
    if (bytes.size() < requestHeader)
        return std::nullopt;
    if (const auto length = numberAt<quint16>(bytes, 2))
        return 4 * qsizetype(length);
    if (bytes.size() < bigRequestHeader)
        return std::nullopt;
    return 4 * qsizetype(numberAt<quint32>(bytes, 4));
}

// Takes the first complete message out of what has come from the client; empty when there is none.
QByteArray takeMessage(HiderConnection& connection)
{
    QByteArray& bytes = connection.fromClient;
    const auto length = connection.isSetUp ? requestLength(bytes) : setupLength(bytes);
    if (!length || *length == 0 || bytes.size() < *length)
        return {};
    QByteArray message = bytes.left(*length);
    bytes.remove(0, *length);
    return message;
}

void rename(QByteArray& request, const QByteArray& extension)
{
    if (request.at(0) != queryExtension
        || request.mid(extensionName, extension.size()) != extension)
        return;
    request[extensionName] = '-';
}

bool writeAll(int descriptor, const QByteArray& bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count = send(descriptor, bytes.constData() + written,
            static_cast<size_t>(bytes.size() - written), MSG_NOSIGNAL);
        if (count <= 0)
            return false;
        written += count;
    }
    return true;
}

// Empty when the other side has closed the connection.
QByteArray readSome(int descriptor)
{
    QByteArray bytes(65536, '\0');
    bytes.truncate(
        std::max<ssize_t>(0, read(descriptor, bytes.data(), static_cast<size_t>(bytes.size()))));
    return bytes;
}

struct SocketAddress {
    sockaddr_un record{};
    socklen_t length = 0;

    const sockaddr* plain() const { return reinterpret_cast<const sockaddr*>(&record); }
};

// An abstract one starts with NUL and leaves no file behind.
SocketAddress addressOf(const QByteArray& name)
{
    SocketAddress address;
    address.record.sun_family = AF_UNIX;
    std::memcpy(address.record.sun_path, name.constData(), static_cast<size_t>(name.size()));
    address.length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size());
    return address;
}

int newSocket()
{
    return socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
}

// -1 when the display has a server already.
int listenAs(int display)
{
    const int descriptor = newSocket();
    const SocketAddress address =
        addressOf(QByteArray(1, '\0') + socketFolder + QByteArray::number(display));
    if (bind(descriptor, address.plain(), address.length) == 0
        && listen(descriptor, SOMAXCONN) == 0)
        return descriptor;
    close(descriptor);
    return -1;
}

} // namespace

ExtensionHider::ExtensionHider(const QByteArray& display, QByteArray extension)
    : serverSocket(socketFolder + display.mid(1))
    , hiddenExtension(std::move(extension))
{
    for (int number = firstDisplay; listener < 0 && number <= lastDisplay; ++number) {
        listener = listenAs(number);
        displayName = ':' + QByteArray::number(number);
    }
    if (listener < 0 || pipe2(endPipe.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no display or no pipe for the clients of a partial server");
    thread = std::thread([this] { serve(); });
}

ExtensionHider::~ExtensionHider()
{
    close(endPipe[1]);
    thread.join();
    close(endPipe[0]);
    close(listener);
    for (const HiderConnection& connection : connections) {
        close(connection.client);
        close(connection.server);
    }
}

void ExtensionHider::serve()
{
    while (true) {
        std::vector<pollfd> ready{{endPipe[0], POLLIN, 0}, {listener, POLLIN, 0}};
        for (const HiderConnection& connection : connections) {
            ready.push_back({connection.client, POLLIN, 0});
            ready.push_back({connection.server, POLLIN, 0});
        }
        poll(ready.data(), ready.size(), -1);
        if (ready[0].revents)
            return;
        std::size_t next = 2;
        connections.remove_if([&](HiderConnection& connection) {
            const bool client = ready[next++].revents;
            const bool server = ready[next++].revents;
            if ((!client || forward(connection, true)) && (!server || forward(connection, false)))
                return false;
            close(connection.client);
            close(connection.server);
            return true;
        });
        if (ready[1].revents)
            accept();
    }
}

void ExtensionHider::accept()
{
    HiderConnection connection;
    connection.client = accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
    connection.server = newSocket();
    const SocketAddress address = addressOf(serverSocket);
    connections.push_back(connection);
    // A server that has gone ends the client's connection too.
    if (connect(connection.server, address.plain(), address.length) != 0)
        shutdown(connection.client, SHUT_RDWR);
}

bool ExtensionHider::forward(HiderConnection& connection, bool fromClient) const
{
    const QByteArray bytes = readSome(fromClient ? connection.client : connection.server);
    if (bytes.isEmpty())
        return false;
    if (!fromClient)
        return writeAll(connection.client, bytes);
    connection.fromClient += bytes;
    for (QByteArray message = takeMessage(connection); !message.isEmpty();
        message = takeMessage(connection)) {
        if (connection.isSetUp)
            rename(message, hiddenExtension);
        connection.isSetUp = true;
        if (!writeAll(connection.server, message))
            return false;
    }
    return true;
}
