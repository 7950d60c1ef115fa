#include "ScreenWatch.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <stdexcept>
#include <xcb/damage.h>

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 10s;
constexpr std::uint32_t colourBits = 0xffffff;
constexpr int sentBySendEvent = 0x80; // in the response type of an event

struct CFree {
    void operator()(void* data) const { std::free(data); }
};
template <typename T>
using Owned = std::unique_ptr<T, CFree>;

} // namespace

ScreenWatch::ScreenWatch(const QByteArray& display)
    : connection(xcb_connect(display.constData(), nullptr))
{
    if (xcb_connection_has_error(connection.get()))
        throw std::runtime_error("no connection to display " + display.toStdString());
    const auto* extension = xcb_get_extension_data(connection.get(), &xcb_damage_id);
    if (!extension || !extension->present)
        throw std::runtime_error("the display has no DAMAGE extension");
    damageEvent = extension->first_event + XCB_DAMAGE_NOTIFY;
    watchRoot();
}

void ScreenWatch::watchRoot()
{
    xcb_connection_t* server = connection.get();
    const Owned<xcb_damage_query_version_reply_t> version(
        xcb_damage_query_version_reply(server, xcb_damage_query_version(server, 1, 1), nullptr));
    root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
    xcb_damage_create(
        server, xcb_generate_id(server), root, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    forgetPaints();
}

xcb_get_image_cookie_t ScreenWatch::askFor(const QRect& area)
{
    return xcb_get_image(connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, root,
        static_cast<std::int16_t>(area.x()), static_cast<std::int16_t>(area.y()),
        static_cast<std::uint16_t>(area.width()), static_cast<std::uint16_t>(area.height()), ~0U);
}

// Empty when the area is not on the screen.
std::vector<std::uint32_t> ScreenWatch::pixels(xcb_get_image_cookie_t cookie)
{
    const Owned<xcb_get_image_reply_t> reply(
        xcb_get_image_reply(connection.get(), cookie, nullptr));
    if (!reply)
        return {};
    std::vector<std::uint32_t> result(
        static_cast<std::size_t>(xcb_get_image_data_length(reply.get())) / sizeof(std::uint32_t));
    std::memcpy(
        result.data(), xcb_get_image_data(reply.get()), result.size() * sizeof(std::uint32_t));
    for (std::uint32_t& pixel : result)
        pixel &= colourBits;
    return result;
}

ScreenImage ScreenWatch::grab(const QRect& area)
{
    ScreenImage image{area, pixels(askFor(area))};
    if (image.pixels.size() != static_cast<std::size_t>(area.width()) * area.height())
        throw std::runtime_error("a window is not wholly on the screen");
    return image;
}

bool ScreenWatch::shows(const ScreenLines& lines)
{
    std::vector<xcb_get_image_cookie_t> cookies;
    for (const ScreenLine& line : lines)
        cookies.push_back(askFor({line.begin, QSize(static_cast<int>(line.pixels.size()), 1)}));
    bool same = true;
    for (std::size_t i = 0; i < lines.size(); ++i)
        same = (pixels(cookies[i]) == lines[i].pixels) && same;
    return same;
}

void ScreenWatch::forgetPaints()
{
    const Owned<xcb_get_input_focus_reply_t> roundTrip(xcb_get_input_focus_reply(
        connection.get(), xcb_get_input_focus(connection.get()), nullptr));
    takeEvents();
}

bool ScreenWatch::takeEvents()
{
    bool painted = false;
    while (true) {
        const Owned<xcb_generic_event_t> event(xcb_poll_for_event(connection.get()));
        if (!event)
            break;
        painted = painted || (event->response_type & ~sentBySendEvent) == damageEvent;
    }
    if (xcb_connection_has_error(connection.get()))
        throw std::runtime_error("the display has gone");
    return painted;
}

std::optional<ScreenWatch::Clock::time_point> ScreenWatch::waitForPaint(Clock::time_point deadline)
{
    pollfd server{xcb_get_file_descriptor(connection.get()), POLLIN, 0};
    xcb_flush(connection.get());
    while (!takeEvents()) {
        const std::chrono::nanoseconds wait = std::max(0ns, deadline - Clock::now());
        const timespec limit{wait / 1s, (wait % 1s).count()};
        if (ppoll(&server, 1, &limit, nullptr) == 0)
            return std::nullopt;
    }
    return Clock::now();
}

std::optional<ScreenWatch::Clock::time_point> ScreenWatch::waitFor(const ScreenLines& lines)
{
    const auto deadline = Clock::now() + patience;
    while (const auto painted = waitForPaint(deadline)) {
        if (shows(lines))
            return painted;
    }
    return std::nullopt;
}

void ScreenWatch::waitForQuiet(std::chrono::milliseconds quiet)
{
    const auto deadline = Clock::now() + patience;
    while (Clock::now() < deadline && waitForPaint(Clock::now() + quiet)) { }
}
