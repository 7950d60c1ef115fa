#pragma once

#include <QByteArray>
#include <QMap>
#include <QPointF>
#include <QSizeF>

// Input devices of a RealServer. Each speaks with its device in the server through a socket
// (inputtestdrv(4)) and is synchronous: when a function returns the server has handled the event,
// and has sent to its clients what comes of it. All throw std::runtime_error when the server does
// not take an event within ten seconds.

// The socket of one device. The server takes one connection for a device in its whole life.
class DeviceSocket {
public:
    // Waits up to ten seconds for the socket, which the server makes while it starts.
    explicit DeviceSocket(const QByteArray& path);
    ~DeviceSocket();
    DeviceSocket(const DeviceSocket&) = delete;
    DeviceSocket& operator=(const DeviceSocket&) = delete;

    // Sends one of the protocol's event records and waits until the server has handled it.
    template <typename Event>
    void send(const Event& event)
    {
        write(&event, sizeof event);
        synchronise();
    }

private:
    void write(const void* data, std::size_t size) const;
    void synchronise();
    void expectAnswer(int type) const;

    int descriptor = -1;
};

// A keyboard whose keys do not come from XTest.
class RealKeyboard {
public:
    explicit RealKeyboard(const QByteArray& socketPath);

    // Key codes are those of X.
    void press(int keycode);
    void release(int keycode);
    void strike(int keycode);

private:
    void send(int keycode, bool down);

    DeviceSocket socket;
};

// A screen that tells its touches apart.
class RealTouchScreen {
public:
    // `screen` is the size of the X screen in pixels, which the touch screen covers.
    RealTouchScreen(const QByteArray& socketPath, const QSizeF& screen);

    // Fingers are numbered from 0 to 9. Points are in pixels of the screen.
    void touch(int finger, const QPointF& point);
    void slide(int finger, const QPointF& point);

    void lift(int finger); // one that is down
    void liftAll(); // every finger that is down

private:
    void send(int finger, int type, const QPointF& point);

    DeviceSocket socket;
    QSizeF screenSize;
    QMap<int, QPointF> down; // where each finger is
};

// A mouse that knows where on the screen it is.
class RealPointer {
public:
    // `screen` is the size of the X screen in pixels.
    RealPointer(const QByteArray& socketPath, const QSizeF& screen);

    // In pixels of the screen.
    void moveTo(const QPointF& point);

    // Buttons are those of X: 1 left, 2 middle, 3 right.
    void press(int button = 1);
    void release(int button = 1);
    void click(const QPointF& point, int button = 1);

private:
    void send(int button, bool down);

    DeviceSocket socket;
    QSizeF screenSize;
};
