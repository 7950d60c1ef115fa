#pragma once

#include "x11/Types.h"

#include <QColor>
#include <QList>

// The colours of an XKB geometry by their index, resolved once.
class GeometryColours {
public:
    // The geometry is only read. Names that the toolkit does not know are X11 names and asked of
    // the server together; one that the server does not know either is an invalid colour.
    GeometryColours(Display* display, const XkbGeometryRec& geometry);

    // Whether the geometry's colour table has this index (indices come from the server).
    bool has(int index) const { return index >= 0 && index < colours.size(); }

    // The index must be one that has() accepts.
    QColor at(int index) const { return colours.at(index); }

    // Invalid when the geometry names no base colour.
    QColor base() const { return baseColour; }

private:
    QList<QColor> colours;
    QColor baseColour;
};
