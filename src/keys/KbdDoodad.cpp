#include "keys/KbdDoodad.h"

#include "keys/ImageFile.h"
#include "keys/ItemPainting.h"
#include "keys/KeyCapPainter.h"
#include "x11/X11.h"

#include <QPixmapCache>

#include <algorithm>
#include <cmath>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

QSize truncated(double width, double height)
{
    return {static_cast<int>(width), static_cast<int>(height)};
}

// A geometry can name a symbol by its code point: "U+2318" is the character 0x2318.
QString symbolText(const QString& text)
{
    if (!text.startsWith("U+"_L1))
        return text;
    return QChar(static_cast<char16_t>(text.mid(2).toUInt(nullptr, 16)));
}

// A flag in the size of the screen, from Qt's cache of pixmaps if it is there.
QPixmap scaledTo(const QSize& pixels, const QPixmap& flag)
{
    const QString key =
        u"flag %1 %2x%3"_s.arg(flag.cacheKey()).arg(pixels.width()).arg(pixels.height());
    QPixmap scaled;
    if (QPixmapCache::find(key, &scaled))
        return scaled;
    scaled = flag.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QPixmapCache::insert(key, scaled);
    return scaled;
}

} // namespace

KbdDoodad::KbdDoodad(const XkbDoodadRec& xkbDoodad, const XkbGeometryRec& xkbGeometry,
    const GeometryColours& geometryColours, QObject* parent)
    : QObject(parent)
    , doodad(xkbDoodad)
    , geometry(xkbGeometry)
    , colours(geometryColours)
{
    readShape();
}

void KbdDoodad::readShape()
{
    switch (doodad.any.type) {
    case XkbOutlineDoodad:
    case XkbSolidDoodad:
        takeShape(doodad.shape.shape_ndx);
        break;
    case XkbTextDoodad:
        readText();
        break;
    case XkbIndicatorDoodad:
        takeShape(doodad.indicator.shape_ndx);
        break;
    case XkbLogoDoodad:
        takeShape(doodad.logo.shape_ndx);
        readLogo();
        break;
    default:
        break;
    }
}

// Without such a shape the item keeps the unit size of a new KeyShape.
void KbdDoodad::takeShape(int index)
{
    if (index >= 0 && index < geometry.num_shapes)
        shapeData = KeyShape(geometry.shapes[index]);
}

void KbdDoodad::readText()
{
    shapeData.width = doodad.text.width;
    shapeData.height = doodad.text.height;
    text = symbolText(QString::fromUtf8(doodad.text.text));
}

void KbdDoodad::readLogo()
{
    const QString logoName = QString::fromUtf8(doodad.logo.logo_name);
    if (logoName.endsWith(u'/'))
        flagDirectory = logoName;
    else
        loadPixmap(logoName);
}

void KbdDoodad::loadPixmap(const QString& path)
{
    scaledFlag = {};
    flagPixmap = imageFile::read(path);
    if (flagPixmap.isNull())
        std::fprintf(stderr, "Doodad: cannot load '%s'\n", path.toUtf8().constData());
}

void KbdDoodad::prepareFlag(const QString& name) const
{
    if (flagDirectory.isEmpty() || name.isEmpty())
        return;
    const QPixmap flag = imageFile::read(flagDirectory + name);
    if (!flag.isNull())
        scaledTo((QSizeF(drawnSize(flag)) * scale).toSize(), flag);
}

bool KbdDoodad::isIndicator() const
{
    return doodad.any.type == XkbIndicatorDoodad;
}

void KbdDoodad::setActive(bool isActive)
{
    if (!isIndicator())
        return;
    active = isActive;
    update();
}

void KbdDoodad::setFlagFilename(QString name)
{
    filename = name;
    if (name.isEmpty())
        scaledFlag = flagPixmap = {};
    else
        loadPixmap(flagDirectory + name);
    update();
}

void KbdDoodad::setScale(qreal newScale)
{
    scale = newScale;
    update();
}

QRectF KbdDoodad::boundingRect() const
{
    return {0, 0, shapeData.width, shapeData.height};
}

void KbdDoodad::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const ItemPainting painting(painter);
    switch (doodad.any.type) {
    case XkbOutlineDoodad:
    case XkbSolidDoodad:
        paintArea(painter, doodad.shape.color_ndx);
        break;
    case XkbTextDoodad:
        paintText(painter);
        break;
    case XkbIndicatorDoodad:
        paintIndicator(painter);
        break;
    case XkbLogoDoodad:
        paintLogo(painter);
        break;
    default:
        break;
    }
}

// Outlines are filled like solid areas, or the background would show through the keyboard's case.
void KbdDoodad::paintArea(QPainter* painter, int colour) const
{
    if (white)
        painter->setBrush(QColor(Qt::white));
    else
        painter->setBrush(colours.has(colour) ? colours.at(colour) : QColor(Qt::black));
    paintShape(painter);
}

void KbdDoodad::paintShape(QPainter* painter) const
{
    if (!shapeData.outline.isEmpty()) {
        painter->drawPolygon(shapeData.outline);
        return;
    }
    painter->drawRoundedRect(
        QRectF(0, 0, std::trunc(shapeData.width), std::trunc(shapeData.height)),
        shapeData.cornerRadius, shapeData.cornerRadius);
}

// In the caps' font and scaled, since Qt would search for a font of another size for a
// millisecond and more.
void KbdDoodad::paintText(QPainter* painter) const
{
    QFont font = painter->font();
    font.setPixelSize(KeyCapPainter::fontSize);
    painter->setFont(font);
    if (colours.has(doodad.text.color_ndx))
        painter->setPen(colours.at(doodad.text.color_ndx));
    const double factor = std::max<double>(1, doodad.text.height) / KeyCapPainter::fontSize;
    painter->scale(factor, factor);
    const QRectF area(QPointF(), QSizeF(doodad.text.width - 1, doodad.text.height - 1) / factor);
    constexpr int alignment = Qt::AlignLeft | Qt::AlignBottom;
    // A font as high as the rectangle has letters that reach a little above it: only a text that is
    // too long is clipped.
    const bool isTooLong = painter->boundingRect(area, alignment, text).width() > area.width();
    painter->drawText(area, isTooLong ? alignment : alignment | Qt::TextDontClip, text);
}

void KbdDoodad::paintIndicator(QPainter* painter) const
{
    const int colour = active ? doodad.indicator.on_color_ndx : doodad.indicator.off_color_ndx;
    painter->setPen(Qt::black);
    painter->setBrush(colours.has(colour) ? colours.at(colour) : QColor(Qt::white));
    paintShape(painter);
}

// In units of the picture.
QSize KbdDoodad::drawnSize(const QPixmap& flag) const
{
    const QSize onScreen = flag.size().scaled(
        truncated(scale * shapeData.width, scale * shapeData.height), Qt::KeepAspectRatio);
    return (onScreen.isEmpty() ? flag.size() : onScreen)
        .scaled(truncated(shapeData.width, shapeData.height), Qt::KeepAspectRatio);
}

// On the screen the flag lies on whole pixels: Qt would scale it once more to parts of pixels, with
// threads of its own. A printer has more pixels than its device transform says: for paper Qt gets
// the whole image.
void KbdDoodad::paintLogo(QPainter* painter)
{
    if (flagPixmap.isNull())
        return;
    const QRectF target(QPointF(0, 0), drawnSize(flagPixmap));
    const QTransform toDevice = painter->deviceTransform();
    if (white || toDevice.type() > QTransform::TxScale) {
        painter->drawPixmap(target, flagPixmap, flagPixmap.rect());
        return;
    }
    const QRectF place = toDevice.mapRect(target);
    const QSize pixels = place.size().toSize();
    if (scaledFlag.size() != pixels)
        scaledFlag = scaledTo(pixels, flagPixmap);
    copyToDevice(painter, place.topLeft().toPoint(), scaledFlag);
}
