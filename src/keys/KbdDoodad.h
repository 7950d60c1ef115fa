#pragma once

#include "keys/GeometryColours.h"
#include "keys/KeyShape.h"
#include "x11/Types.h"

#include <QGraphicsItem>
#include <QObject>
#include <QPixmap>

// One decoration of the picture, drawn from an XKB geometry doodad: an outline, a solid area, a
// text, an indicator lamp or a logo. A logo whose name ends with "/" holds the layout's flag.
class KbdDoodad : public QObject, public QGraphicsItem {
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)
    Q_PROPERTY(bool active READ isActive WRITE setActive)
    Q_PROPERTY(QString filename READ flagFilename WRITE setFlagFilename)
    Q_PROPERTY(qreal scale READ scaleFactor WRITE setScale)

public:
    // The doodad, its geometry and its colours are borrowed and outlive this item. A logo whose
    // image cannot be loaded says so on standard error and stays empty.
    KbdDoodad(const XkbDoodadRec& xkbDoodad, const XkbGeometryRec& xkbGeometry,
        const GeometryColours& geometryColours, QObject* parent);

    bool isIndicator() const;
    bool isActive() const { return active; }
    qreal scaleFactor() const { return scale; }
    QString flagFilename() const { return filename; }

    // Decodes a flag and scales it to the size in which this doodad draws it, so that the doodad
    // that is to show it finds both in Qt's cache. Says nothing of one that cannot be loaded.
    void prepareFlag(const QString& name) const;

    // For printing: outlines and solid areas become white.
    void setWhite(bool isWhite) { white = isWhite; }

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

public slots:
    // Lights an indicator's lamp or puts it out; does nothing for any other doodad.
    void setActive(bool isActive);

    // Loads the flag. The name is that of a file in the directory by which the logo is named. An
    // empty name takes the flag away; so does a file that cannot be loaded, which is reported on
    // standard error.
    void setFlagFilename(QString name);

    // How many pixels of the screen a unit of the picture (a tenth of a millimetre) has. Repaints.
    void setScale(qreal newScale);

private:
    void readShape();
    void readText();
    void readLogo();
    void takeShape(int index);
    void loadPixmap(const QString& path);

    void paintShape(QPainter* painter) const;
    void paintArea(QPainter* painter, int colour) const;
    void paintText(QPainter* painter) const;
    void paintIndicator(QPainter* painter) const;
    QSize drawnSize(const QPixmap& flag) const;
    void paintLogo(QPainter* painter);

    const XkbDoodadRec& doodad;
    const XkbGeometryRec& geometry;
    const GeometryColours& colours;
    double scale = 1.0;
    KeyShape shapeData;
    bool active = false;
    QString text;
    QPixmap flagPixmap;
    QPixmap scaledFlag; // flagPixmap in the size in which it was last drawn on the screen
    bool white = false;
    QString flagDirectory;
    QString filename;
};
