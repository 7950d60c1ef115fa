#include "x11/ColourLookup.h"

#include "x11/X11.h"

#include <X11/Xlib-xcb.h>
#include <xcb/xcb.h>

namespace x11 {

namespace {

std::optional<Colour> answer(xcb_connection_t* connection, xcb_lookup_color_cookie_t cookie)
{
    const Reply<xcb_lookup_color_reply_t> reply(
        xcb_lookup_color_reply(connection, cookie, nullptr));
    if (!reply)
        return std::nullopt;
    return Colour{reply->exact_red, reply->exact_green, reply->exact_blue};
}

} // namespace

std::vector<std::optional<Colour>> lookUpColours(
    Display* display, const std::vector<std::string>& names)
{
    if (names.empty() || !display)
        return {};
    xcb_connection_t* connection = XGetXCBConnection(display);
    const auto colormap =
        static_cast<xcb_colormap_t>(DefaultColormap(display, DefaultScreen(display)));

    std::vector<xcb_lookup_color_cookie_t> cookies;
    cookies.reserve(names.size());
    for (const std::string& name : names)
        cookies.push_back(xcb_lookup_color(
            connection, colormap, static_cast<uint16_t>(name.size()), name.data()));

    std::vector<std::optional<Colour>> colours;
    colours.reserve(cookies.size());
    for (const xcb_lookup_color_cookie_t cookie : cookies)
        colours.push_back(answer(connection, cookie));
    return colours;
}

} // namespace x11
