#include "harness/DelayLine.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr std::size_t pieceSize = 65536;
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

void closeAll(std::vector<int>& descriptors)
{
    std::for_each(descriptors.begin(), descriptors.end(), close);
    descriptors.clear();
}

} // namespace

DelayLine::DelayLine(int inputSocket, int outputSocket, Clock::duration holdBack)
    : in(inputSocket)
    , out(outputSocket)
    , delay(holdBack)
{
}

DelayLine::~DelayLine()
{
    for (Piece& piece : waiting)
        closeAll(piece.descriptors);
}

void DelayLine::receive()
{
    Piece piece{Clock::now() + delay, std::vector<char>(pieceSize), {}};
    alignas(cmsghdr) ControlBuffer control{};
    iovec bytes{piece.bytes.data(), piece.bytes.size()};
    msghdr message{};
    message.msg_iov = &bytes;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();

    const ssize_t count = recvmsg(in, &message, MSG_CMSG_CLOEXEC);
    if (count < 0 && errno == EINTR)
        return;
    piece.descriptors = descriptorsIn(message);
    piece.bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    inputEnded = count <= 0;
    waiting.push_back(std::move(piece));
}

void DelayLine::deliver()
{
    const auto now = Clock::now();
    while (!waiting.empty() && waiting.front().due <= now) {
        Piece piece = std::move(waiting.front());
        waiting.pop_front();
        send(piece);
        closeAll(piece.descriptors);
    }
}

std::optional<DelayLine::Clock::time_point> DelayLine::nextDelivery() const
{
    return waiting.empty() ? std::nullopt : std::make_optional(waiting.front().due);
}

void DelayLine::send(Piece& piece)
{
    if (piece.bytes.empty())
        return end();
    alignas(cmsghdr) ControlBuffer control{};
    std::size_t sent = 0;
    while (sent < piece.bytes.size()) {
        iovec bytes{piece.bytes.data() + sent, piece.bytes.size() - sent};
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
        sent += static_cast<std::size_t>(count);
    }
}

void DelayLine::end()
{
    inputEnded = true;
    shutdown(out, SHUT_WR);
}
