#pragma once

#include "keys/KeyColours.h"
#include "keys/KeyShape.h"

#include <QList>
#include <QPainter>

#include <optional>

// Which of the caps' colours a cap has.
enum class CapLook { Normal, Modifier, Dead, Pressed };

// One text on a cap.
struct CapLabel {
    QString text;
    double size; // pixels in item units, before it is made to fit
    QRectF cell; // item units
    KeyColour colour;
    bool onDeadGround = false; // the cell is filled first: a dead key's symbol among several

    friend bool operator==(const CapLabel&, const CapLabel&) = default;
};

// All that is to be seen on a cap, in the order in which it is drawn.
struct CapFace {
    CapLook look = CapLook::Normal;
    QList<CapLabel> labels;

    friend bool operator==(const CapFace&, const CapFace&) = default;
};

// Draws one key cap in item coordinates. Leaves its own brush, pen and font in the painter.
class KeyCapPainter {
public:
    KeyCapPainter(QPainter* target, const KeyShape& capShape, ColourScheme colours)
        : painter(target)
        , shape(capShape)
        , scheme(colours)
    {
    }

    // Of the font that all texts on caps are drawn with, in pixels. The captions of the picture
    // have the same size, so that no further font is loaded for them.
    static constexpr int fontSize = 60;

    // Has Qt read the font configuration and load the fonts of most keyboards, which it would do
    // when they are drawn. Takes as long as all drawing.
    static void loadFonts();

    // The border between the outline and the upper face, in item units.
    static double border(const KeyShape& shape);

    // What the cap covers, its lines included, in item units.
    static QRectF drawnArea(const KeyShape& shape);

    void draw(const CapFace& face);

    // The same for a painter whose device is a picture of this cap alone: what lies under the texts
    // is drawn once for all caps that have it in common.
    void drawPicture(const CapFace& face);

private:
    // How a text is to be drawn.
    struct Fitted {
        double factor = 1; // its size divided by the font's
        std::optional<QRectF> sign; // see signOfOtherFont; in the font's own size
    };

    QPixmap sharedCap(CapLook look) const;
    QString keyOfSharedCap(CapLook look) const;
    void drawCap(CapLook look);
    void drawLabels(const CapFace& face);

    // Draws the text smaller where its cell has no room for it, in four pixels at the least. "Void"
    // and "None" are the labels of keysyms that stand for nothing: these texts are left out.
    void drawLabel(const CapLabel& label);
    void drawDeadGround(const QRectF& cell);
    void drawSurface(const QPolygon& polygon, const QRectF& rectangle);
    Fitted fit(const QString& text, double size, const QRectF& room);
    std::optional<QRectF> signOfOtherFont(const QString& text, const QSizeF& line) const;
    QRectF placeOf(const QString& text, const QRectF& room, double factor) const;
    void drawText(const QString& text, const QRectF& room, const Fitted& fitted);
    bool isOnCap(const QRectF& place) const;
    double capEdgeAt(double y) const;

    QPainter* painter;
    const KeyShape& shape;
    ColourScheme scheme;
};
