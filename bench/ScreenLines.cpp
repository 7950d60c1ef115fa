#include "ScreenLines.h"

#include <algorithm>

namespace {

constexpr int linesAcross = 6;
constexpr double keysShare = 0.7; // of the window's height, from the top
constexpr int bands = 24;

ScreenLine lineOf(const ScreenImage& image, const QPoint& begin, int length)
{
    const std::uint32_t* pixels = image.row(begin.y()) + (begin.x() - image.area.left());
    return {begin, {pixels, pixels + length}};
}

ScreenLine rowOf(const ScreenImage& image, int y)
{
    return lineOf(image, {image.area.left(), y}, image.area.width());
}

int changesInRow(const ScreenImage& before, const ScreenImage& after, int y)
{
    int changes = 0;
    for (int x = 0; x < after.area.width(); ++x)
        changes += before.row(y)[x] != after.row(y)[x];
    return changes;
}

} // namespace

ScreenLines linesAcrossKeys(const ScreenImage& image)
{
    ScreenLines lines;
    for (int i = 1; i <= linesAcross; ++i) {
        const double share = keysShare * i / (linesAcross + 1);
        lines.push_back(
            rowOf(image, image.area.top() + static_cast<int>(share * image.area.height())));
    }
    return lines;
}

bool areBlank(const ScreenLines& lines)
{
    return std::all_of(lines.begin(), lines.end(), [&](const ScreenLine& line) {
        return std::all_of(line.pixels.begin(), line.pixels.end(),
            [&](std::uint32_t pixel) { return pixel == lines.front().pixels.front(); });
    });
}

ScreenLines longestChange(const ScreenImage& before, const ScreenImage& after)
{
    QPoint end;
    int longest = 0;
    for (int y = after.area.top(); y <= after.area.bottom(); ++y) {
        int length = 0;
        for (int x = 0; x < after.area.width(); ++x) {
            length = before.row(y)[x] == after.row(y)[x] ? 0 : length + 1;
            if (length <= longest)
                continue;
            longest = length;
            end = QPoint(after.area.left() + x, y);
        }
    }
    if (longest == 0)
        return {};
    return {lineOf(after, {end.x() - longest + 1, end.y()}, longest)};
}

ScreenLines changesEverywhere(const ScreenImage& before, const ScreenImage& after)
{
    ScreenLines lines;
    for (int band = 0; band < bands; ++band) {
        const int top = after.area.top() + band * after.area.height() / bands;
        const int bottom = after.area.top() + (band + 1) * after.area.height() / bands;
        int most = 0;
        int row = top;
        for (int y = top; y < bottom; ++y) {
            const int changes = changesInRow(before, after, y);
            if (changes <= most)
                continue;
            most = changes;
            row = y;
        }
        if (most > 0)
            lines.push_back(rowOf(after, row));
    }
    return lines;
}
