#pragma once

#include "x11/Types.h"

#include <QByteArray>
#include <QMap>
#include <QRectF>

// A key's name from an XKB record, which holds four characters and fills a shorter name up with
// NUL.
QByteArray xkbKeyName(const char* name);

// Where a key of the geometry stands, in tenths of a millimetre.
struct KeyPlacement {
    const XkbShapeRec* shape; // owned by the geometry
    int x;
    int y;
    unsigned char priority; // the section's; higher lies on top
};

// The area that the picture covers, in tenths of a millimetre. Empty until it is widened by a first
// rectangle.
struct PictureBounds {
    int minX = 2147483647;
    int minY = 2147483647;
    int maxX = -2147483647 - 1;
    int maxY = -2147483647 - 1;

    void widen(int x, int y, int width, int height);
    bool isEmpty() const { return minX > maxX || minY > maxY; }

    // To be asked only when not empty.
    QRectF area() const { return {QPointF(minX, minY), QPointF(maxX, maxY)}; }
};

struct KeyPlacements {
    // By the key's XKB name. Of two keys with the same name the later one is placed.
    QMap<QByteArray, KeyPlacement> keys;
    PictureBounds bounds;
};

// Lays out the keys of all sections, row by row from left to right. Vertical rows are deliberately
// laid out as horizontal ones, and the angles of sections are ignored. Keys whose shape the
// geometry does not have are left out.
KeyPlacements placeKeys(const XkbGeometryRec& geometry);

// How far the shape extends, in tenths of a millimetre.
int shapeWidth(const XkbShapeRec& shape);
int shapeHeight(const XkbShapeRec& shape);
