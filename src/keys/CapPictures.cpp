#include "keys/CapPictures.h"

#include <algorithm>

namespace {

constexpr std::size_t kept = 2;

// A picture with the painter's own hints and font.
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
    return pixmap;
}

} // namespace

// The picture lies on whole pixels, so that it is copied as it is.
void CapPictures::paint(
    QPainter* painter, const CapFace& face, const QRectF& area, const Draw& draw)
{
    const QTransform toDevice = painter->deviceTransform();
    if (toDevice.type() > QTransform::TxScale)
        return draw(painter);
    // A line is at least a pixel wide, however small the picture.
    const QRect pixels = toDevice.mapRect(area).toAlignedRect().adjusted(-1, -1, 1, 1);
    const QTransform toPicture =
        toDevice * QTransform::fromTranslate(-pixels.left(), -pixels.top());
    const QPixmap* picture = find(face, toPicture);
    if (!picture) {
        pictures.push_front({face, toPicture, pictureOf(*painter, pixels.size(), toPicture, draw)});
        pictures.resize(std::min(pictures.size(), kept));
        picture = &pictures.front().pixmap;
    }
    painter->save();
    painter->setWorldTransform(toDevice.inverted(), true);
    painter->drawPixmap(pixels.topLeft(), *picture);
    painter->restore();
}

// Pictures of another size or place are of no more use.
const QPixmap* CapPictures::find(const CapFace& face, const QTransform& transform)
{
    pictures.remove_if([&](const Picture& picture) { return picture.transform != transform; });
    const auto found = std::find_if(pictures.begin(), pictures.end(),
        [&](const Picture& picture) { return picture.face == face; });
    if (found == pictures.end())
        return nullptr;
    pictures.splice(pictures.begin(), pictures, found);
    return &pictures.front().pixmap;
}
