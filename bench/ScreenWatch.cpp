#include "ScreenWatch.h"

#include <stdexcept>

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 10s;

} // namespace

ScreenWatch::ScreenWatch(const QByteArray& display)
    : screen(display.toStdString())
{
}

ScreenImage ScreenWatch::grab(const QRect& area)
{
    ScreenImage image{
        area, screen.pixelsOf({{area.x(), area.y(), area.width(), area.height()}}).front()};
    if (image.pixels.size() != static_cast<std::size_t>(area.width()) * area.height())
        throw std::runtime_error("a window is not wholly on the screen");
    return image;
}

bool ScreenWatch::shows(const ScreenLines& lines)
{
    std::vector<x11::ScreenDamage::Area> areas;
    for (const ScreenLine& line : lines)
        areas.push_back({line.begin.x(), line.begin.y(), static_cast<int>(line.pixels.size()), 1});
    const std::vector<x11::ScreenDamage::Pixels> seen = screen.pixelsOf(areas);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (seen[i] != lines[i].pixels)
            return false;
    }
    return true;
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
