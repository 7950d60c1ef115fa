#include "keys/KeyShape.h"

#include "x11/X11.h"

namespace {

QPolygon polygonOf(const XkbOutlineRec& outline)
{
    QPolygon polygon;
    if (outline.num_points <= 3)
        return polygon;
    polygon.reserve(outline.num_points);
    for (int i = 0; i < outline.num_points; ++i)
        polygon << QPoint(outline.points[i].x, outline.points[i].y);
    return polygon;
}

} // namespace

KeyShape::KeyShape(const XkbShapeRec& shape)
    : width(shape.bounds.x2 - shape.bounds.x1)
    , height(shape.bounds.y2 - shape.bounds.y1)
{
    if (shape.num_outlines == 0)
        return;
    cornerRadius = shape.outlines[0].corner_radius;
    outline = polygonOf(shape.outlines[0]);
    if (shape.num_outlines > 1)
        topOutline = polygonOf(shape.outlines[1]);
}
