#pragma once

#include "x11/Types.h"

#include <QPainterPath>
#include <QPolygon>

// What an XKB geometry shape looks like, in tenths of a millimetre. The items of keys and doodads
// draw it with its origin at their own and the points of an outline as they are.
struct KeyShape {
    double width = 1.0;
    double height = 1.0;
    double cornerRadius = 10.0;
    QPolygon outline; // empty: a rounded rectangle of the size above
    QPolygon topOutline; // the cap's upper face; empty: KeyCapPainter draws a rectangle

    KeyShape() = default;

    // The record is only read. Outlines of three points or fewer become rectangles, which XKB gives
    // by one or two corners.
    explicit KeyShape(const XkbShapeRec& shape);

    bool operator==(const KeyShape&) const = default;
};
