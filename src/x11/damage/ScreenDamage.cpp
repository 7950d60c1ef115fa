#include "x11/damage/ScreenDamage.h"

#include "x11/X11.h"
#include "x11/Xcb.h"

#include <algorithm>
#include <cstring>
#include <poll.h>
#include <stdexcept>
#include <xcb/damage.h>

namespace x11 {

namespace {

using namespace std::chrono_literals;

constexpr std::uint32_t colourBits = 0xffffff;

xcb_get_image_cookie_t askFor(
    xcb_connection_t* server, xcb_window_t root, const ScreenDamage::Area& area)
{
    return xcb_get_image(server, XCB_IMAGE_FORMAT_Z_PIXMAP, root, static_cast<std::int16_t>(area.x),
        static_cast<std::int16_t>(area.y), static_cast<std::uint16_t>(area.width),
        static_cast<std::uint16_t>(area.height), ~0U);
}

ScreenDamage::Pixels answer(xcb_connection_t* server, xcb_get_image_cookie_t cookie)
{
    const Reply<xcb_get_image_reply_t> reply(xcb_get_image_reply(server, cookie, nullptr));
    if (!reply)
        return {};
    ScreenDamage::Pixels pixels(
        static_cast<std::size_t>(xcb_get_image_data_length(reply.get())) / sizeof(std::uint32_t));
    std::memcpy(
        pixels.data(), xcb_get_image_data(reply.get()), pixels.size() * sizeof(std::uint32_t));
    for (std::uint32_t& pixel : pixels)
        pixel &= colourBits;
    return pixels;
}

} // namespace

void ScreenDamage::Disconnect::operator()(xcb_connection_t* server) const
{
    xcb_disconnect(server);
}

ScreenDamage::ScreenDamage(const std::string& display)
    : connection(xcb_connect(display.c_str(), nullptr))
{
    if (xcb_connection_has_error(connection.get()))
        throw std::runtime_error("no connection to display " + display);
    const std::optional<ExtensionCodes> damage = findExtension(connection.get(), xcb_damage_id);
    if (!damage)
        throw std::runtime_error("the display has no DAMAGE extension");
    damageEvent = damage->firstEvent + XCB_DAMAGE_NOTIFY;
    watchRoot();
}

void ScreenDamage::watchRoot()
{
    xcb_connection_t* server = connection.get();
    const Reply<xcb_damage_query_version_reply_t> version(
        xcb_damage_query_version_reply(server, xcb_damage_query_version(server, 1, 1), nullptr));
    root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
    xcb_damage_create(
        server, xcb_generate_id(server), root, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    forgetPaints();
}

std::vector<ScreenDamage::Pixels> ScreenDamage::pixelsOf(const std::vector<Area>& areas)
{
    std::vector<xcb_get_image_cookie_t> cookies;
    cookies.reserve(areas.size());
    for (const Area& area : areas)
        cookies.push_back(askFor(connection.get(), root, area));
    std::vector<Pixels> result;
    result.reserve(areas.size());
    for (const xcb_get_image_cookie_t cookie : cookies)
        result.push_back(answer(connection.get(), cookie));
    return result;
}

void ScreenDamage::forgetPaints()
{
    // Any reply will do: the events that come before it are there with it.
    const Reply<xcb_get_input_focus_reply_t> roundTrip(xcb_get_input_focus_reply(
        connection.get(), xcb_get_input_focus(connection.get()), nullptr));
    takeEvents();
}

bool ScreenDamage::takeEvents()
{
    bool painted = false;
    while (true) {
        const Reply<xcb_generic_event_t> event(xcb_poll_for_event(connection.get()));
        if (!event)
            break;
        painted = painted || (event->response_type & ~sentBySendEvent) == damageEvent;
    }
    if (xcb_connection_has_error(connection.get()))
        throw std::runtime_error("the display has gone");
    return painted;
}

std::optional<ScreenDamage::Clock::time_point> ScreenDamage::waitForPaint(
    Clock::time_point deadline)
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

} // namespace x11
