#include "harness/PictureLocator.h"

#include <QtTest/qtestsystem.h>

#include <cmath>
#include <functional>

namespace {

constexpr double captionRoom = 80; // below the ground, tenths of a millimetre
constexpr double shapeTolerance = 0.03; // of the ratio of width to height
constexpr int smallestSide = 20; // pixels

// A line of pixels: where it begins and how many there are.
struct Run {
    int begin = 0;
    int length = 0;
};

Run longestRun(int count, const std::function<bool(int)>& isInside)
{
    Run longest;
    Run current;
    for (int i = 0; i < count; ++i) {
        if (!isInside(i)) {
            current.length = 0;
            continue;
        }
        if (current.length++ == 0)
            current.begin = i;
        if (current.length > longest.length)
            longest = current;
    }
    return longest;
}

Run longestRowRun(const QImage& image, QRgb colour)
{
    Run longest;
    for (int y = 0; y < image.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        const Run run = longestRun(
            image.width(), [&](int x) { return (row[x] & RGB_MASK) == (colour & RGB_MASK); });
        if (run.length > longest.length)
            longest = run;
    }
    return longest;
}

Run longestColumnRun(const QImage& image, int x, QRgb colour)
{
    return longestRun(image.height(),
        [&](int y) { return (image.pixel(x, y) & RGB_MASK) == (colour & RGB_MASK); });
}

} // namespace

PictureLocator::PictureLocator(
    Display* xDisplay, Window shownWindow, const QRectF& sceneGround, QRgb groundColour)
    : display(xDisplay)
    , window(shownWindow)
    , ground(sceneGround)
    , colour(groundColour)
{
}

QRectF PictureLocator::groundOf(const QRectF& scene)
{
    return scene.adjusted(0, 0, 0, -captionRoom);
}

bool PictureLocator::waitForPicture(int milliseconds)
{
    std::optional<QRectF> before;
    const auto standsStill = [&] {
        const std::optional<QRectF> now = look();
        const bool isSame = now && now == before;
        before = now;
        return isSame;
    };
    if (!QTest::qWaitFor(standsStill, milliseconds))
        return false;
    pictureArea = *before;
    return true;
}

// The ground shows unbroken along its edges: its longest row is as wide as it is, and its leftmost
// column as high.
std::optional<QRectF> PictureLocator::look() const
{
    const std::optional<WindowImage> seen = grabWindow(display, window);
    if (!seen)
        return std::nullopt;
    const Run row = longestRowRun(seen->image, colour);
    if (row.length < smallestSide)
        return std::nullopt;
    const Run column = longestColumnRun(seen->image, row.begin, colour);
    // The line around the ground is thinner than a pixel and is drawn into the pixels next to it.
    const QRectF area = QRectF(row.begin, column.begin, row.length, column.length)
                            .adjusted(-0.5, -0.5, 0.5, 0.5)
                            .translated(seen->topLeft);
    return hasGroundShape(area) ? std::make_optional(area) : std::nullopt;
}

bool PictureLocator::hasGroundShape(const QRectF& area) const
{
    const double wanted = ground.width() / ground.height();
    return std::abs(area.width() / area.height() / wanted - 1) < shapeTolerance;
}

QPoint PictureLocator::fromScene(const QPointF& point) const
{
    const QPointF share(
        (point.x() - ground.x()) / ground.width(), (point.y() - ground.y()) / ground.height());
    return {static_cast<int>(pictureArea.x() + share.x() * pictureArea.width()),
        static_cast<int>(pictureArea.y() + share.y() * pictureArea.height())};
}

QRectF PictureLocator::fromScene(const QRectF& rectangle) const
{
    const double horizontal = pictureArea.width() / ground.width();
    const double vertical = pictureArea.height() / ground.height();
    return {pictureArea.x() + (rectangle.x() - ground.x()) * horizontal,
        pictureArea.y() + (rectangle.y() - ground.y()) * vertical, rectangle.width() * horizontal,
        rectangle.height() * vertical};
}
