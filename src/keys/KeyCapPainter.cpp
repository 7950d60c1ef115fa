#include "keys/KeyCapPainter.h"

#include "keys/ItemPainting.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <QPixmapCache>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double smallestSize = 4; // pixels
constexpr double fitMargin = 0.05;
constexpr double keyPrecision = 1e6; // parts of a unit, or of a factor, that tell caps apart

// A line this many times as high as the painter's font has a character of another font.
constexpr double ordinaryLine = 1.1;

struct CapColours {
    KeyColour body;
    KeyColour top;
};

CapColours capColours(CapLook look)
{
    switch (look) {
    case CapLook::Pressed:
        return {KeyColour::BodyPressed, KeyColour::TopPressed};
    case CapLook::Dead:
        return {KeyColour::BodyDead, KeyColour::TopDead};
    case CapLook::Modifier:
        return {KeyColour::BodyModifier, KeyColour::TopModifier};
    case CapLook::Normal:
        break;
    }
    return {KeyColour::BodyNormal, KeyColour::TopNormal};
}

QRectF textRectangle(const QRectF& cell)
{
    return {cell.x() + 10, cell.y() + 5, cell.width() - 15, cell.height() - 10};
}

int alignment(const QString& text)
{
    return text.size() == 1 ? Qt::AlignHCenter | Qt::AlignBottom : Qt::AlignLeft | Qt::AlignBottom;
}

// Where not even the smallest text has room, it is painted over the edge of its rectangle.
int paintingFlags(const QString& text, const QRectF& room)
{
    const bool hasRoom = room.width() >= smallestSize && room.height() >= smallestSize;
    return hasRoom ? alignment(text) : alignment(text) | Qt::TextDontClip;
}

double fittingSize(double size, const QSizeF& text, const QSizeF& room)
{
    if (room.width() <= 0 || room.height() <= 0)
        return smallestSize;
    const double ratio =
        std::max(text.width() / room.width(), text.height() / room.height()) + fitMargin;
    const double fitting = size / ratio;
    return fitting >= smallestSize ? std::trunc(fitting) : smallestSize;
}

} // namespace

// Qt looks for another font at each character that those loaded so far lack: an arrow, the sign of
// the Menu key. The first font is that of the window's controls.
void KeyCapPainter::loadFonts()
{
    QFont font;
    QFontMetrics(font).height();
    font.setPixelSize(fontSize);
    QFontMetrics(font).horizontalAdvance(u"x\u2190\u2338"_s);
}

double KeyCapPainter::border(const KeyShape& shape)
{
    return std::min(shape.width, shape.height) / 10;
}

// A line is one unit wide, half of it outside of the shape.
QRectF KeyCapPainter::drawnArea(const KeyShape& shape)
{
    const QRectF faces = QRectF(0, 0, shape.width, shape.height)
        | QRectF(shape.outline.boundingRect()) | QRectF(shape.topOutline.boundingRect());
    return faces.adjusted(-1, -1, 1, 1);
}

void KeyCapPainter::draw(const CapFace& face)
{
    drawCap(face.look);
    drawLabels(face);
}

void KeyCapPainter::drawPicture(const CapFace& face)
{
    copyToDevice(painter, {}, sharedCap(face.look));
    drawLabels(face);
}

// Most caps of a keyboard are of a few shapes. Drawing a rounded face takes as long as a text.
QPixmap KeyCapPainter::sharedCap(CapLook look) const
{
    const QString key = keyOfSharedCap(look);
    QPixmap cap;
    if (!key.isEmpty() && QPixmapCache::find(key, &cap))
        return cap;
    cap = QPixmap(painter->device()->width(), painter->device()->height());
    cap.fill(Qt::transparent);
    QPainter capPainter(&cap);
    capPainter.setRenderHints(painter->renderHints());
    capPainter.setTransform(painter->transform());
    KeyCapPainter(&capPainter, shape, scheme).drawCap(look);
    capPainter.end();
    if (!key.isEmpty())
        QPixmapCache::insert(key, cap);
    return cap;
}

// Empty for caps of an odd outline, of which a keyboard has one or two.
QString KeyCapPainter::keyOfSharedCap(CapLook look) const
{
    if (!shape.outline.isEmpty() || !shape.topOutline.isEmpty())
        return {};
    const QTransform place = painter->transform();
    QString key = u"cap %1 %2"_s.arg(static_cast<int>(look)).arg(static_cast<int>(scheme));
    for (const double number : {shape.width, shape.height, shape.cornerRadius, place.m11(),
             place.m22(), place.dx(), place.dy()})
        key += u' ' + QString::number(qRound64(number * keyPrecision));
    return key;
}

void KeyCapPainter::drawLabels(const CapFace& face)
{
    for (const CapLabel& label : face.labels)
        drawLabel(label);
}

void KeyCapPainter::drawCap(CapLook look)
{
    const double d = border(shape);
    const auto [body, top] = capColours(look);
    painter->setPen(Qt::black);
    painter->setBrush(keyColour(body, scheme));
    drawSurface(shape.outline, {0, 0, std::trunc(shape.width), std::trunc(shape.height)});
    painter->setBrush(keyColour(top, scheme));
    drawSurface(shape.topOutline,
        {std::trunc(d), std::trunc(d / 2), std::trunc(shape.width - 2 * d),
            std::trunc(shape.height - 2 * d)});
}

void KeyCapPainter::drawSurface(const QPolygon& polygon, const QRectF& rectangle)
{
    if (polygon.isEmpty())
        painter->drawRoundedRect(rectangle, shape.cornerRadius, shape.cornerRadius);
    else
        painter->drawPolygon(polygon);
}

void KeyCapPainter::drawDeadGround(const QRectF& cell)
{
    painter->setPen(Qt::NoPen);
    painter->setBrush(keyColour(KeyColour::TopDead, scheme));
    painter->drawRect(QRectF(QPointF(cell.x() + 1, cell.y() + 1),
        QPointF(
            cell.x() + std::trunc(cell.width() - 2), cell.y() + std::trunc(cell.height() - 2))));
}

void KeyCapPainter::drawLabel(const CapLabel& label)
{
    if (label.onDeadGround)
        drawDeadGround(label.cell);
    const QString& text = label.text;
    if (text == "Void"_L1 || text == "None"_L1)
        return;

    QRectF room = textRectangle(label.cell);
    painter->setPen(keyColour(label.colour, scheme));
    Fitted fitted = fit(text, label.size, room);
    if (!shape.outline.isEmpty() && !isOnCap(placeOf(text, room, fitted.factor))) {
        room.setLeft(room.left() + capEdgeAt(room.bottom()));
        fitted = fit(text, label.size, room);
    }
    drawText(text, room, fitted);
}

// Sets the painter's font.
KeyCapPainter::Fitted KeyCapPainter::fit(const QString& text, double size, const QRectF& room)
{
    QFont font = painter->font();
    font.setPixelSize(fontSize);
    font.setWeight(QFont::Normal);
    painter->setFont(font);
    const double factor = std::max(1.0, std::trunc(size)) / fontSize;
    const QRectF enlarged(QPointF(), room.size() / factor);
    const QSizeF line = painter->boundingRect(enlarged, alignment(text), text).size();
    const std::optional<QRectF> sign = signOfOtherFont(text, line);
    const QSizeF needed = (sign ? sign->size() : line) * factor;
    if (needed.width() <= room.width() && needed.height() <= room.height())
        return {factor, sign};
    return {std::trunc(fittingSize(size, needed, room.size())) / fontSize, sign};
}

// Where the painter's font lacks a character Qt takes another font, whose lines can be several
// times as high as the character; and a mark for another letter has no width at all. Such a
// character is measured by its ink. The rectangle, relative to the point where the text is drawn,
// covers the ink and the height of a line of the painter's own font. Nothing for all other texts.
// line is the size that Qt gives the text.
std::optional<QRectF> KeyCapPainter::signOfOtherFont(const QString& text, const QSizeF& line) const
{
    if (text.size() != 1)
        return std::nullopt;
    const QFontMetricsF metrics(painter->font());
    if (line.width() > 0 && line.height() < ordinaryLine * metrics.height())
        return std::nullopt;
    // Qt's bounding rectangles of a text leave out marks and the dotted circle under a mark.
    QPainterPath ink;
    ink.addText(0, 0, painter->font(), text);
    QRectF sign = ink.boundingRect();
    if (sign.isEmpty())
        return std::nullopt;
    sign.setTop(std::min(sign.top(), -metrics.ascent()));
    sign.setBottom(std::max(sign.bottom(), metrics.descent()));
    return sign;
}

QRectF KeyCapPainter::placeOf(const QString& text, const QRectF& room, double factor) const
{
    const QRectF enlarged(room.topLeft(), room.size() / factor);
    const QRectF place = painter->boundingRect(enlarged, alignment(text), text);
    return {room.topLeft() + (place.topLeft() - room.topLeft()) * factor, place.size() * factor};
}

// Texts have their sizes by scaling the painter: with a font for each size Qt would search all
// fonts again for each, which takes most of the time until the first picture.
void KeyCapPainter::drawText(const QString& text, const QRectF& room, const Fitted& fitted)
{
    const auto& [factor, sign] = fitted;
    const QTransform before = painter->transform();
    painter->translate(room.topLeft());
    painter->scale(factor, factor);
    // Qt paints nothing into an empty rectangle: in a cell too small for the margins it is a pixel.
    const QRectF enlarged(QPointF(), room.size().expandedTo({1, 1}) / factor);
    if (sign)
        painter->drawText(
            QPointF(enlarged.center().x() - sign->center().x(), enlarged.bottom() - sign->bottom()),
            text);
    else
        painter->drawText(enlarged, paintingFlags(text, room), text);
    painter->setTransform(before);
}

bool KeyCapPainter::isOnCap(const QRectF& place) const
{
    QPainterPath cap;
    cap.addPolygon(shape.outline);
    cap.closeSubpath();
    return cap.contains(place);
}

// The left edge of the outline at height y: the lower part of an L-shaped Return is narrower.
double KeyCapPainter::capEdgeAt(double y) const
{
    const QRect line(0, static_cast<int>(y), static_cast<int>(shape.width), 1);
    return shape.outline.intersected(QPolygon(line)).boundingRect().left();
}
