#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct xcb_connection_t;

namespace x11 {

// What any client paints on a screen (DAMAGE extension), and the screen's pixels, through a
// connection of its own. The screen is the display's first, of 24 bit colours in 32 bit pixels.
class ScreenDamage {
public:
    using Clock = std::chrono::steady_clock;

    // In pixels of the screen.
    struct Area {
        int x;
        int y;
        int width;
        int height;
    };

    // Row by row from the top, each pixel as 0xrrggbb.
    using Pixels = std::vector<std::uint32_t>;

    // Throws std::runtime_error when the display takes no connection or has no DAMAGE extension.
    explicit ScreenDamage(const std::string& display);

    // The pixels of each area, in their order, all for the price of one round trip. Empty for an
    // area that is not wholly on the screen.
    std::vector<Pixels> pixelsOf(const std::vector<Area>& areas);

    // Makes waitForPaint leave out what has been painted until now. One round trip.
    void forgetPaints();

    // When the next thing is painted; nothing when nothing is painted before the deadline. Throws
    // std::runtime_error when the server has gone.
    std::optional<Clock::time_point> waitForPaint(Clock::time_point deadline);

private:
    struct Disconnect {
        void operator()(xcb_connection_t* server) const;
    };

    void watchRoot();
    bool takeEvents();

    std::unique_ptr<xcb_connection_t, Disconnect> connection;
    std::uint32_t root = 0; // the root window
    int damageEvent = 0; // the event code of a paint
};

} // namespace x11
