#pragma once

#include "keys/KeyCapPainter.h"

#include <QPixmap>
#include <QTransform>

#include <functional>
#include <list>

// The last pictures of one key's cap on the screen. Text takes most of the time of drawing, and a
// cap looks the same at every other press of Shift. A picture is kept when a face is drawn for the
// second time: most of what a start draws is not seen again soon. Two pictures are kept, so all
// keys together take twice the pixels of the keyboard.
class CapPictures {
public:
    // Draws the face in item coordinates.
    using Draw = std::function<void(QPainter*)>;

    // Puts the face on the painter as draw draws it; area is what it covers, in item units. The
    // face and the painter's transform decide which picture it is: what else draw makes use of has
    // to be the same at every call. A painter that turns its items gets no picture: draw draws on
    // it.
    void paint(QPainter* painter, const CapFace& face, const QRectF& area, const Draw& draw);

private:
    struct Picture {
        CapFace face;
        QTransform transform; // from item coordinates to the pixmap's
        QPixmap pixmap; // null until the face is drawn again
    };

    void remember(const CapFace& face, const QTransform& transform);
    Picture* find(const CapFace& face, const QTransform& transform);

    std::list<Picture> pictures; // the one used last first
};
