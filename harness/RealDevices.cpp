#include "harness/RealDevices.h"

#include <QDeadlineTimer>

#include <cstring>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>
#include <xorg/xf86-input-inputtest-protocol.h>

namespace {

constexpr int answerLimitMs = 10000;
constexpr std::chrono::milliseconds betweenAttempts(10);

constexpr double axisEnd = 65535; // of the driver's absolute axes

// Touch events of the input extension (XI2.h).
constexpr int touchBegin = 18;
constexpr int touchUpdate = 19;
constexpr int touchEnd = 20;

template <typename Event>
Event record(xf86ITEventType type)
{
    Event event{};
    event.header.length = sizeof event;
    event.header.type = type;
    return event;
}

// The two axes of a place on the screen.
void setPlace(xf86ITValuatorData& valuators, const QPointF& point, const QSizeF& screen)
{
    valuators.mask[0] = 0b11;
    valuators.valuators[0] = point.x() / screen.width() * axisEnd;
    valuators.valuators[1] = point.y() / screen.height() * axisEnd;
}

sockaddr_un addressOf(const QByteArray& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= static_cast<qsizetype>(sizeof address.sun_path))
        throw std::runtime_error("a socket's path is too long: " + path.toStdString());
    std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
    return address;
}

} // namespace

DeviceSocket::DeviceSocket(const QByteArray& path)
    : descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    const sockaddr_un address = addressOf(path);
    const QDeadlineTimer deadline(answerLimitMs);
    while (connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        if (deadline.hasExpired())
            throw std::runtime_error("no input device listens at " + path.toStdString());
        std::this_thread::sleep_for(betweenAttempts);
    }
    auto version = record<xf86ITEventClientVersion>(XF86IT_EVENT_CLIENT_VERSION);
    version.major = XF86IT_PROTOCOL_VERSION_MAJOR;
    version.minor = XF86IT_PROTOCOL_VERSION_MINOR;
    write(&version, sizeof version);
    expectAnswer(XF86IT_RESPONSE_SERVER_VERSION);
}

DeviceSocket::~DeviceSocket()
{
    close(descriptor);
}

void DeviceSocket::write(const void* data, std::size_t size) const
{
    if (::send(descriptor, data, size, MSG_NOSIGNAL) != static_cast<ssize_t>(size))
        throw std::runtime_error("an input device takes no events");
}

void DeviceSocket::synchronise()
{
    const auto wait = record<xf86ITEventWaitForSync>(XF86IT_EVENT_WAIT_FOR_SYNC);
    write(&wait, sizeof wait);
    expectAnswer(XF86IT_RESPONSE_SYNC_FINISHED);
}

void DeviceSocket::expectAnswer(int type) const
{
    pollfd readable{descriptor, POLLIN, 0};
    xf86ITResponseAny answer{};
    const bool isThere = poll(&readable, 1, answerLimitMs) == 1
        && recv(descriptor, &answer.header, sizeof answer.header, MSG_WAITALL)
            == sizeof answer.header;
    if (!isThere || static_cast<int>(answer.header.type) != type)
        throw std::runtime_error("an input device gives no answer");
    // What follows the header, such as the server's version.
    const std::size_t rest = answer.header.length - sizeof answer.header;
    if (rest == 0)
        return;
    if (rest > sizeof answer - sizeof answer.header
        || recv(descriptor, &answer.header + 1, rest, MSG_WAITALL) != static_cast<ssize_t>(rest))
        throw std::runtime_error("an input device gives an answer of a wrong length");
}

RealKeyboard::RealKeyboard(const QByteArray& socketPath)
    : socket(socketPath)
{
}

void RealKeyboard::press(int keycode)
{
    send(keycode, true);
}

void RealKeyboard::release(int keycode)
{
    send(keycode, false);
}

void RealKeyboard::strike(int keycode)
{
    press(keycode);
    release(keycode);
}

void RealKeyboard::send(int keycode, bool down)
{
    auto key = record<xf86ITEventKey>(XF86IT_EVENT_KEY);
    key.key_code = keycode;
    key.is_press = down;
    socket.send(key);
}

RealTouchScreen::RealTouchScreen(const QByteArray& socketPath, const QSizeF& screen)
    : socket(socketPath)
    , screenSize(screen)
{
}

void RealTouchScreen::touch(int finger, const QPointF& point)
{
    down.insert(finger, point);
    send(finger, touchBegin, point);
}

void RealTouchScreen::slide(int finger, const QPointF& point)
{
    down.insert(finger, point);
    send(finger, touchUpdate, point);
}

void RealTouchScreen::lift(int finger)
{
    send(finger, touchEnd, down.take(finger));
}

void RealTouchScreen::liftAll()
{
    while (!down.isEmpty())
        lift(down.firstKey());
}

void RealTouchScreen::send(int finger, int type, const QPointF& point)
{
    auto touch = record<xf86ITEventTouch>(XF86IT_EVENT_TOUCH);
    touch.touchid = static_cast<uint32_t>(finger);
    touch.touch_type = static_cast<uint32_t>(type);
    setPlace(touch.valuators, point, screenSize);
    socket.send(touch);
}

RealPointer::RealPointer(const QByteArray& socketPath, const QSizeF& screen)
    : socket(socketPath)
    , screenSize(screen)
{
}

void RealPointer::moveTo(const QPointF& point)
{
    auto motion = record<xf86ITEventMotion>(XF86IT_EVENT_MOTION);
    motion.is_absolute = 1;
    setPlace(motion.valuators, point, screenSize);
    socket.send(motion);
}

void RealPointer::press(int button)
{
    send(button, true);
}

void RealPointer::release(int button)
{
    send(button, false);
}

void RealPointer::click(const QPointF& point, int button)
{
    moveTo(point);
    press(button);
    release(button);
}

void RealPointer::send(int button, bool down)
{
    auto event = record<xf86ITEventButton>(XF86IT_EVENT_BUTTON);
    event.button = button;
    event.is_press = down;
    socket.send(event);
}
