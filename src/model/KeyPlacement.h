#pragma once

#include "x11/Types.h"

#include <QByteArray>
#include <QMap>

// A key's name in an XKB record: four characters at the most, filled up with NUL where it is
// shorter.
QByteArray xkbKeyName(const char* name);

// Where a key of the geometry stands, in tenths of a millimetre.
struct KeyPlacement {
    const XkbShapeRec* shape; // owned by the geometry
    int x;
    int y;
    unsigned char priority; // the section's; higher lies on top
};

// The area that the picture covers, in tenths of a millimetre; empty until widened.
struct PictureBounds {
    int minX = 2147483647;
    int minY = 2147483647;
    int maxX = -2147483647 - 1;
    int maxY = -2147483647 - 1;

    void widen(int x, int y, int width, int height);
    bool isEmpty() const { return minX > maxX || minY > maxY; }
};

struct KeyPlacements {
    // By the key's XKB name; of two keys with one name the later holds the place.
    QMap<QByteArray, KeyPlacement> keys;
    PictureBounds bounds;
};

// Lays the keys of all sections out, row by row from left to right. Vertical rows and the angles
// of sections are deliberately taken as if they were not there. Keys whose shape the geometry does
// not have are left out.
KeyPlacements placeKeys(const XkbGeometryRec& geometry);

// How far the shape extends, in tenths of a millimetre.
int shapeWidth(const XkbShapeRec& shape);
int shapeHeight(const XkbShapeRec& shape);
