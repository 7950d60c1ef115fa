#pragma once

#include "x11/Types.h"

#include <QColor>
#include <QList>

// The colours of an XKB geometry by their index, resolved once.
class GeometryColours {
public:
    // The geometry is only read. For names that Qt does not know the constructor asks the server,
    // for all of them in one round trip; a name that the server does not know either gives an
    // invalid colour.
    GeometryColours(Display* display, const XkbGeometryRec& geometry);

    // Whether the geometry's colour table has this index: the server may send others.
    bool has(int index) const { return index >= 0 && index < colours.size(); }

    // The index must be one that has() accepts.
    QColor at(int index) const { return colours.at(index); }

    // Invalid when the geometry names no base colour.
    QColor base() const { return baseColour; }

private:
    QList<QColor> colours;
    QColor baseColour;
};
