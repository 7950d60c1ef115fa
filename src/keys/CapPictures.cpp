#include "keys/CapPictures.h"

#include "keys/ItemPainting.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::size_t kept = 2;

// A picture with the painter's own hints and font. The copy does without the paint engine that Qt
// keeps with whatever was painted on.
QPixmap pictureOf(const QPainter& like, const QSize& size, const QTransform& transform,
    const CapPictures::Draw& draw)
{
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHints(like.renderHints());
    painter.setFont(like.font());
    painter.setLayoutDirection(like.layoutDirection());
    painter.setTransform(transform);
    draw(&painter);
    painter.end();
    return pixmap.copy();
}

} // namespace

// The cap is moved by a part of a pixel, so that its picture is copied as it is and caps of one
// shape look the same wherever they are. A picture that is not kept is made too: lines drawn on the
// keyboard itself mix with its colour a little differently.
void CapPictures::paint(
    QPainter* painter, const CapFace& face, const QRectF& area, const Draw& draw)
{
    const QTransform onDevice = painter->deviceTransform();
    if (onDevice.type() > QTransform::TxScale)
        return draw(painter);
    const QTransform toDevice(
        onDevice.m11(), 0, 0, onDevice.m22(), std::round(onDevice.dx()), std::round(onDevice.dy()));
    // A line is at least a pixel wide, however small the picture.
    const QRect pixels = toDevice.mapRect(area).toAlignedRect().adjusted(-1, -1, 1, 1);
    const QTransform toPicture =
        toDevice * QTransform::fromTranslate(-pixels.left(), -pixels.top());
    Picture* picture = find(face, toPicture);
    QPixmap pixmap = picture ? picture->pixmap : QPixmap();
    if (pixmap.isNull())
        pixmap = pictureOf(*painter, pixels.size(), toPicture, draw);
    if (picture)
        picture->pixmap = pixmap;
    else
        remember(face, toPicture);
    copyToDevice(painter, pixels.topLeft(), pixmap);
}

void CapPictures::remember(const CapFace& face, const QTransform& transform)
{
    pictures.push_front({face, transform, {}});
    pictures.resize(std::min(pictures.size(), kept));
}

// Pictures of another size or place are of no more use.
CapPictures::Picture* CapPictures::find(const CapFace& face, const QTransform& transform)
{
    pictures.remove_if([&](const Picture& picture) { return picture.transform != transform; });
    const auto found = std::find_if(pictures.begin(), pictures.end(),
        [&](const Picture& picture) { return picture.face == face; });
    if (found == pictures.end())
        return nullptr;
    pictures.splice(pictures.begin(), pictures, found);
    return &pictures.front();
}
