#pragma once

#include <QPainter>
#include <QPixmap>

// While an item paints: the keyboard looks the same in every language, so the painter writes from
// left to right even where the desktop is read from right to left (brackets would turn round). At
// the end the painter is as it was before.
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
