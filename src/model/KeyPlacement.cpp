#include "model/KeyPlacement.h"

#include "x11/X11.h"

#include <algorithm>
#include <cstring>

namespace {

void placeRow(KeyPlacements& placements, const XkbGeometryRec& geometry,
    const XkbSectionRec& section, const XkbRowRec& row)
{
    const int y = section.top + row.top;
    int x = section.left + row.left;
    for (int i = 0; i < row.num_keys; ++i) {
        const XkbKeyRec& key = row.keys[i];
        x += key.gap;
        if (key.shape_ndx >= geometry.num_shapes)
            continue;
        const XkbShapeRec& shape = geometry.shapes[key.shape_ndx];
        placements.keys.insert(xkbKeyName(key.name.name), {&shape, x, y, section.priority});
        placements.bounds.widen(x, y, shapeWidth(shape), shapeHeight(shape));
        x += shapeWidth(shape);
    }
}

} // namespace

QByteArray xkbKeyName(const char* name)
{
    return {name, static_cast<qsizetype>(strnlen(name, XkbKeyNameLength))};
}

void PictureBounds::widen(int x, int y, int width, int height)
{
    minX = std::min(minX, x);
    minY = std::min(minY, y);
    maxX = std::max(maxX, x + width);
    maxY = std::max(maxY, y + height);
}

int shapeWidth(const XkbShapeRec& shape)
{
    return shape.bounds.x2 - shape.bounds.x1;
}

int shapeHeight(const XkbShapeRec& shape)
{
    return shape.bounds.y2 - shape.bounds.y1;
}

KeyPlacements placeKeys(const XkbGeometryRec& geometry)
{
    KeyPlacements placements;
    for (int s = 0; s < geometry.num_sections; ++s) {
        const XkbSectionRec& section = geometry.sections[s];
        for (int r = 0; r < section.num_rows; ++r)
            placeRow(placements, geometry, section, section.rows[r]);
    }
    return placements;
}
