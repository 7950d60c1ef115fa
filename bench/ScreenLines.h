#pragma once

#include <QRect>

#include <cstdint>
#include <vector>

// A part of the screen as it looked at one moment: rows of pixels, red, green and blue in the
// lower 24 bits.
struct ScreenImage {
    QRect area; // pixels of the screen
    std::vector<std::uint32_t> pixels;

    const std::uint32_t* row(int y) const
    {
        return pixels.data() + (y - area.top()) * area.width();
    }
};

// A horizontal line of pixels that something is recognised by.
struct ScreenLine {
    QPoint begin; // pixels of the screen
    std::vector<std::uint32_t> pixels;
};
using ScreenLines = std::vector<ScreenLine>;

// Whole rows of the image, evenly spread over its upper part: where the keys are.
ScreenLines linesAcrossKeys(const ScreenImage& image);

// Whether all pixels have the same colour.
bool areBlank(const ScreenLines& lines);

// Of two images of one area: the longest unbroken run of pixels that have changed, as it looks
// afterwards. Empty when nothing has changed.
ScreenLines longestChange(const ScreenImage& before, const ScreenImage& after);

// The row with the most changes in each of several bands from top to bottom, as it looks
// afterwards; a band without changes has none.
ScreenLines changesEverywhere(const ScreenImage& before, const ScreenImage& after);
