#pragma once

#include "ScreenLines.h"
#include "x11/damage/ScreenDamage.h"

#include <QByteArray>

#include <chrono>
#include <optional>

// Sees what any program paints on a screen, and waits for it (see x11::ScreenDamage).
class ScreenWatch {
public:
    using Clock = x11::ScreenDamage::Clock;

    // Throws std::runtime_error when the display takes no connection or has no DAMAGE extension.
    explicit ScreenWatch(const QByteArray& display);

    // Throws std::runtime_error for an area that is not wholly on the screen.
    ScreenImage grab(const QRect& area);
    bool shows(const ScreenLines& lines);

    // Makes the waiting functions leave out what has been painted until now.
    void forgetPaints() { screen.forgetPaints(); }

    // When the next thing is painted; nothing when nothing is painted before the deadline.
    std::optional<Clock::time_point> waitForPaint(Clock::time_point deadline)
    {
        return screen.waitForPaint(deadline);
    }

    // When the paint came with which the screen shows all lines; nothing when that takes longer
    // than ten seconds.
    std::optional<Clock::time_point> waitFor(const ScreenLines& lines);

    // Returns when nothing has been painted for that long, after ten seconds at the latest.
    void waitForQuiet(std::chrono::milliseconds quiet = std::chrono::milliseconds(60));

private:
    x11::ScreenDamage screen;
};
