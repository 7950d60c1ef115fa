#include "harness/DelayLine.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr qsizetype pieceSize = 65536;
constexpr std::size_t mostDescriptors = 16; // that X libraries send at once

using ControlBuffer = std::array<char, CMSG_SPACE(mostDescriptors * sizeof(int))>;

std::vector<int> descriptorsIn(msghdr& message)
{
    std::vector<int> found;
    for (cmsghdr* part = CMSG_FIRSTHDR(&message); part; part = CMSG_NXTHDR(&message, part)) {
        if (part->cmsg_level != SOL_SOCKET || part->cmsg_type != SCM_RIGHTS)
            continue;
        found.resize((part->cmsg_len - CMSG_LEN(0)) / sizeof(int));
        std::memcpy(found.data(), CMSG_DATA(part), found.size() * sizeof(int));
    }
    return found;
}

void attach(msghdr& message, ControlBuffer& control, const std::vector<int>& descriptors)
{
    if (descriptors.empty())
        return;
    const std::size_t size = descriptors.size() * sizeof(int);
    message.msg_control = control.data();
    message.msg_controllen = CMSG_SPACE(size);
    cmsghdr* part = CMSG_FIRSTHDR(&message);
    part->cmsg_level = SOL_SOCKET;
    part->cmsg_type = SCM_RIGHTS;
    part->cmsg_len = CMSG_LEN(size);
    std::memcpy(CMSG_DATA(part), descriptors.data(), size);
}

void closeAll(const std::vector<int>& descriptors)
{
    std::for_each(descriptors.begin(), descriptors.end(), close);
}

} // namespace

DelayLine::DelayLine(
    int inputSocket, int outputSocket, Clock::duration holdBack, Filter inputFilter)
    : in(inputSocket)
    , out(outputSocket)
    , delay(holdBack)
    , filter(std::move(inputFilter))
{
}

DelayLine::~DelayLine()
{
    for (const Piece& piece : waiting)
        closeAll(piece.descriptors);
    closeAll(arrived);
}

void DelayLine::receive()
{
    QByteArray bytes(pieceSize, Qt::Uninitialized);
    alignas(cmsghdr) ControlBuffer control{};
    iovec part{bytes.data(), static_cast<std::size_t>(bytes.size())};
    msghdr message{};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();

    const ssize_t count = recvmsg(in, &message, MSG_CMSG_CLOEXEC);
    if (count < 0 && errno == EINTR)
        return;
    const std::vector<int> descriptors = descriptorsIn(message);
    arrived.insert(arrived.end(), descriptors.begin(), descriptors.end());
    bytes.truncate(std::max<ssize_t>(count, 0));
    inputEnded = count <= 0;
    const QByteArray passed = inputEnded ? QByteArray() : filter(bytes);
    if (inputEnded || !passed.isEmpty())
        waiting.push_back({Clock::now() + delay, passed, std::exchange(arrived, {}), inputEnded});
}

void DelayLine::deliver()
{
    const auto now = Clock::now();
    while (!waiting.empty() && waiting.front().due <= now) {
        const Piece piece = std::move(waiting.front());
        waiting.pop_front();
        send(piece);
        closeAll(piece.descriptors);
    }
}

std::optional<DelayLine::Clock::time_point> DelayLine::nextDelivery() const
{
    return waiting.empty() ? std::nullopt : std::make_optional(waiting.front().due);
}

void DelayLine::send(const Piece& piece)
{
    if (piece.isEnd)
        return end();
    alignas(cmsghdr) ControlBuffer control{};
    qsizetype sent = 0;
    while (sent < piece.bytes.size()) {
        const QByteArray left = piece.bytes.sliced(sent);
        iovec bytes{const_cast<char*>(left.data()), static_cast<std::size_t>(left.size())};
        msghdr message{};
        message.msg_iov = &bytes;
        message.msg_iovlen = 1;
        if (sent == 0)
            attach(message, control, piece.descriptors);
        const ssize_t count = sendmsg(out, &message, MSG_NOSIGNAL);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return end();
        sent += count;
    }
}

void DelayLine::end()
{
    inputEnded = true;
    shutdown(out, SHUT_WR);
}
