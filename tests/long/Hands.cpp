#include "tests/long/Hands.h"

#include "harness/RealServer.h"
#include "x11/X11.h"

namespace {

constexpr int handful = 3; // as many fingers as can hold keys on a small screen

} // namespace

void XTestHands::moveTo(const QPoint& point)
{
    XTestFakeMotionEvent(display, -1, point.x(), point.y(), CurrentTime);
}

void XTestHands::button(int number, bool down)
{
    XTestFakeButtonEvent(display, static_cast<unsigned>(number), down, CurrentTime);
}

void XTestHands::key(int keycode, bool down)
{
    XTestFakeKeyEvent(display, static_cast<unsigned>(keycode), down, CurrentTime);
}

void RealHands::moveTo(const QPoint& point)
{
    server.pointer().moveTo(point);
}

void RealHands::button(int number, bool down)
{
    if (down)
        server.pointer().press(number);
    else
        server.pointer().release(number);
}

void RealHands::key(int keycode, bool down)
{
    if (down)
        server.keyboard().press(keycode);
    else
        server.keyboard().release(keycode);
}

int RealHands::fingers() const
{
    return handful;
}

void RealHands::touch(int finger, const QPoint& point)
{
    const unsigned int bit = 1U << static_cast<unsigned>(finger);
    if (touching & bit)
        server.touchScreen().slide(finger, point);
    else
        server.touchScreen().touch(finger, point);
    touching |= bit;
}

void RealHands::lift(int finger)
{
    touching &= ~(1U << static_cast<unsigned>(finger));
    server.touchScreen().lift(finger);
}
