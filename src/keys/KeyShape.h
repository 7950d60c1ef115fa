#pragma once

#include "x11/Types.h"

#include <QPainterPath>
#include <QPolygon>

// What an XKB geometry shape looks like, in tenths of a millimetre. A key's or doodad's item has
// its upper left corner at its origin and draws the points of an outline as they are.
struct KeyShape {
    double width = 1.0;
    double height = 1.0;
    double cornerRadius = 10.0;
    QPolygon outline; // empty: a rounded rectangle of the size above
    QPolygon topOutline; // of the cap's upper face; empty: drawn inside the outline by the key

    KeyShape() = default;

    // The record is only read. Outlines of three points or fewer (XKB gives a rectangle by one or
    // two corners) count as rectangles.
    explicit KeyShape(const XkbShapeRec& shape);
};
