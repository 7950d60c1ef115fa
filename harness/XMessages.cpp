#include "harness/XMessages.h"

#include <cstring>

namespace {

constexpr qsizetype clientSetupHeader = 12;
constexpr qsizetype serverSetupHeader = 8;
constexpr qsizetype requestHeader = 4;
constexpr qsizetype bigRequestHeader = 8;
constexpr qsizetype serverMessage = 32;

// What the first byte of a server's message says it is; of an event sent by a client with a bit
// more.
constexpr char error = 0;
constexpr char reply = 1;
constexpr char genericEvent = 35;
constexpr char sentEvent = '\x80';

constexpr qsizetype unknown = -1; // the length of a message, before enough of it has come

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

qsizetype clientSetupLength(const QByteArray& bytes)
{
    if (bytes.size() < clientSetupHeader)
        return unknown;
    return clientSetupHeader + padded(numberAt<quint16>(bytes, 6))
        + padded(numberAt<quint16>(bytes, 8));
}

qsizetype serverSetupLength(const QByteArray& bytes)
{
    if (bytes.size() < serverSetupHeader)
        return unknown;
    return serverSetupHeader + 4 * qsizetype(numberAt<quint16>(bytes, 6));
}

// A length of zero announces a long one behind it (BIG-REQUESTS).
qsizetype requestLength(const QByteArray& bytes)
{
    if (bytes.size() < requestHeader)
        return unknown;
    if (const auto length = numberAt<quint16>(bytes, 2))
        return 4 * qsizetype(length);
    if (bytes.size() < bigRequestHeader)
        return unknown;
    return 4 * qsizetype(numberAt<quint32>(bytes, 4));
}

qsizetype serverMessageLength(const QByteArray& bytes)
{
    if (bytes.size() < serverMessage)
        return unknown;
    const char kind = bytes.at(0) & ~sentEvent;
    if (kind != reply && kind != genericEvent)
        return serverMessage;
    return serverMessage + 4 * qsizetype(numberAt<quint32>(bytes, 4));
}

} // namespace

XMessages::XMessages(Sender sendingSide)
    : sender(sendingSide)
{
}

void XMessages::add(const QByteArray& bytes)
{
    waiting += bytes;
}

QByteArray XMessages::take()
{
    const qsizetype wanted = length();
    if (wanted <= 0 || waiting.size() < wanted)
        return {};
    QByteArray message = waiting.left(wanted);
    waiting.remove(0, wanted);
    isSetUp = true;
    return message;
}

qsizetype XMessages::length() const
{
    if (sender == Sender::Client)
        return isSetUp ? requestLength(waiting) : clientSetupLength(waiting);
    return isSetUp ? serverMessageLength(waiting) : serverSetupLength(waiting);
}

void XTraffic::count(XMessages::Sender sender, const QByteArray& message)
{
    if (sender == XMessages::Sender::Client) {
        ++requests;
        requestBytes += message.size();
    } else if (message.at(0) == reply)
        ++replies;
    else if (message.at(0) == error)
        ++errors;
    else
        ++events;
}
