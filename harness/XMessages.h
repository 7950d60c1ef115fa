#pragma once

#include <QByteArray>

// The messages of the X protocol in what one side of a connection sends ("Connection Setup",
// "Request Format" and the formats after it). Numbers are taken in the byte order of this machine:
// both sides must run on it.
class XMessages {
public:
    enum class Sender { Client, Server };

    explicit XMessages(Sender sendingSide);

    // Appends what has come, in pieces of any size.
    void add(const QByteArray& bytes);

    // Takes out the first complete message; empty while there is none. The first of all sets the
    // connection up, the others are requests, or replies, events and errors.
    QByteArray take();

private:
    qsizetype length() const;

    Sender sender;
    bool isSetUp = false;
    QByteArray waiting;
};

// Messages and bytes counted since the connections were made, without their setups.
struct XTraffic {
    int requests = 0;
    qint64 requestBytes = 0;
    int replies = 0;
    int events = 0;
    int errors = 0;

    void count(XMessages::Sender sender, const QByteArray& message);
};
