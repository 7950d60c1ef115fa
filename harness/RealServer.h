#pragma once

#include "harness/PrivateServer.h"
#include "harness/RealDevices.h"

#include <QTemporaryDir>

// Where a RealServer keeps its configuration, its log and the sockets of its devices.
class RealServerFolder {
protected:
    // Throws std::runtime_error when the configuration cannot be written.
    RealServerFolder();

    QByteArray path(const QByteArray& file) const;

private:
    QTemporaryDir folder;
};

// An X.Org server without a graphics card (the dummy driver) that has two keyboards, a touch
// screen and a pointer which a test drives. What they do comes from real devices: no client can
// take it for XTest's.
class RealServer : private RealServerFolder, public PrivateServer {
public:
    // Why this machine or this user cannot start such a server: a sentence for the reader of a
    // test's output. Empty where it can be started.
    static QString obstacle();

    // As PrivateServer's constructor.
    RealServer();

    RealKeyboard& keyboard() { return firstKeyboard; }
    RealKeyboard& otherKeyboard() { return secondKeyboard; }
    RealTouchScreen& touchScreen() { return touches; }
    RealPointer& pointer() { return mouse; }

    // As the input extension names it.
    static constexpr char otherKeyboardName[] = "second keyboard";

private:
    RealKeyboard firstKeyboard;
    RealKeyboard secondKeyboard;
    RealTouchScreen touches;
    RealPointer mouse;
};
