#pragma once

#include <QPainter>
#include <QPixmap>

// For one paint(): has the painter write from left to right, and restores it at the end. The
// keyboard looks the same in every language, also where the desktop is read from right to left
// (brackets would turn round).
class ItemPainting {
public:
    // The painter is borrowed and outlives this object.
    explicit ItemPainting(QPainter* itemPainter)
        : painter(itemPainter)
    {
        painter->save();
        painter->setLayoutDirection(Qt::LeftToRight);
    }

    ~ItemPainting() { painter->restore(); }
    ItemPainting(const ItemPainting&) = delete;
    ItemPainting& operator=(const ItemPainting&) = delete;

private:
    QPainter* painter;
};

// Copies the picture to the painter's device, pixel by pixel; topLeft is in the device's pixels.
inline void copyToDevice(QPainter* painter, const QPoint& topLeft, const QPixmap& picture)
{
    const QTransform before = painter->worldTransform();
    painter->setWorldTransform(painter->deviceTransform().inverted(), true);
    painter->drawPixmap(topLeft, picture);
    painter->setWorldTransform(before);
}
