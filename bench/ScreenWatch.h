#pragma once

#include "ScreenLines.h"

#include <QByteArray>

#include <chrono>
#include <memory>
#include <optional>
#include <xcb/xcb.h>

// Sees what is painted on a screen, whoever paints it, through a connection of its own (DAMAGE
// extension). The screen is one of 24 bit colours in 32 bit pixels.
class ScreenWatch {
public:
    using Clock = std::chrono::steady_clock;

    // Throws std::runtime_error when the display takes no connection or has no DAMAGE.
    explicit ScreenWatch(const QByteArray& display);

    ScreenImage grab(const QRect& area);
    bool shows(const ScreenLines& lines);

    // What has been painted until now is not waited for.
    void forgetPaints();

    // When the next thing is painted; nothing when that is not before the deadline.
    std::optional<Clock::time_point> waitForPaint(Clock::time_point deadline);

    // When the paint came with which the screen shows all lines; nothing when that takes longer
    // than ten seconds. What was painted before the last forgetPaints() does not count.
    std::optional<Clock::time_point> waitFor(const ScreenLines& lines);

    // Returns when nothing has been painted for that long, after ten seconds at the latest.
    void waitForQuiet(std::chrono::milliseconds quiet = std::chrono::milliseconds(60));

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    void watchRoot();
    bool takeEvents();
    std::vector<std::uint32_t> pixels(xcb_get_image_cookie_t cookie);
    xcb_get_image_cookie_t askFor(const QRect& area);

    std::unique_ptr<xcb_connection_t, Disconnect> connection;
    xcb_window_t root = 0;
    int damageEvent = 0;
};
