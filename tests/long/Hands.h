#pragma once

#include "harness/XTools.h"

#include <QPoint>
#include <QSize>

class RealServer;

// A user's hands on the devices of a server. Points are in pixels of the screen, key codes and
// buttons are those of X, fingers are numbered from 0.
class Hands {
public:
    Hands() = default;
    virtual ~Hands() = default;
    Q_DISABLE_COPY(Hands)

    virtual void moveTo(const QPoint& point) = 0;
    virtual void button(int number, bool down) = 0;
    virtual void key(int keycode, bool down) = 0;

    // How many fingers can touch the screen; none where there is no touch screen.
    virtual int fingers() const = 0;

    // A finger that is up goes down, one that is down slides to the point.
    virtual void touch(int finger, const QPoint& point) = 0;
    virtual void lift(int finger) = 0;
};

// XTest's devices, which every server has. Nothing has happened yet when a function returns.
class XTestHands final : public Hands {
public:
    // The display is borrowed.
    explicit XTestHands(Display* xDisplay)
        : display(xDisplay)
    {
    }

    void moveTo(const QPoint& point) override;
    void button(int number, bool down) override;
    void key(int keycode, bool down) override;
    int fingers() const override { return 0; }
    void touch(int, const QPoint&) override { }
    void lift(int) override { }

private:
    Display* display;
};

// Devices that a server cannot take for XTest's. Synchronous.
class RealHands final : public Hands {
public:
    // The server is borrowed.
    explicit RealHands(RealServer& realServer)
        : server(realServer)
    {
    }

    void moveTo(const QPoint& point) override;
    void button(int number, bool down) override;
    void key(int keycode, bool down) override;
    int fingers() const override;
    void touch(int finger, const QPoint& point) override;
    void lift(int finger) override;

private:
    RealServer& server;
    unsigned int touching = 0; // a bit for each finger that is down
};
