#pragma once

#include "keys/KbdTypes.h"
#include "keys/KeyColours.h"
#include "keys/KeyShape.h"

#include <QPainter>

#include <optional>

// What a cap looks like, whatever stands on it.
enum class CapLook { Normal, Modifier, Dead, Pressed };

// One text on a cap.
struct CapLabel {
    QString text;
    double size; // pixels in item units, before it is made to fit
    QRectF cell; // item units
    KeyColour colour;
    ShiftMask_t modifiers = 0; // Lock and Shift change the case of a letter
};

// Draws one key cap in item coordinates. Restores nothing: the caller keeps brush, pen and font.
class KeyCapPainter {
public:
    KeyCapPainter(QPainter* target, const KeyShape& capShape, ColourScheme colours)
        : painter(target)
        , shape(capShape)
        , scheme(colours)
    {
    }

    // A label of one letter as it is drawn while these modifiers are held: Lock makes a capital of
    // it, with Shift a small letter.
    static QString withCaseOf(const QString& text, ShiftMask_t modifiers);

    // The border between the outline and the upper face, in item units.
    static double border(const KeyShape& shape);

    void drawCap(CapLook look);

    // The ground of a dead key's label among several.
    void drawDeadCell(const QRectF& cell);

    // Made smaller until it fits its cell, to four pixels at the least. "Void" and "None" are the
    // labels of keysyms that stand for nothing: they are left out.
    void drawLabel(const CapLabel& label);

private:
    void drawFace(const QPolygon& polygon, const QRectF& rectangle);
    double fit(const QString& text, double size, const QRectF& room);
    std::optional<QRectF> signOfOtherFont(const QString& text, const QRectF& room) const;
    QRectF placeOf(const QString& text, const QRectF& room, double factor) const;
    void drawText(const QString& text, const QRectF& room, double factor);
    bool isOnCap(const QRectF& place) const;
    double capEdgeBelow(double y) const;

    QPainter* painter;
    const KeyShape& shape;
    ColourScheme scheme;
};
