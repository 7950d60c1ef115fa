#pragma once

#include <QColor>
#include <QFont>
#include <QList>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPen>
#include <QPointF>
#include <QString>

// A run of text that was painted.
struct PaintedText {
    QString text;
    int pixelSize; // as it appears, whatever scaling makes it so
    int weight;
    QColor colour;
    QPointF baseline; // its left end

    friend bool operator==(const PaintedText&, const PaintedText&) = default;
};

// A paint device of one pixel for each unit that keeps the texts painted on it and drops the rest.
// Of a text of several lines each line is a run of its own.
class PaintRecorder : public QPaintDevice {
public:
    const QList<PaintedText>& texts() const { return engine.texts; }

    QPaintEngine* paintEngine() const override { return &engine; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        constexpr int size = 10000;
        constexpr int resolution = 96;
        switch (metric) {
        case PdmWidth:
        case PdmHeight:
            return size;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return resolution;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        default:
            return QPaintDevice::metric(metric);
        }
    }

private:
    class Engine : public QPaintEngine {
    public:
        Engine()
            : QPaintEngine(AllFeatures)
        {
        }

        bool begin(QPaintDevice*) override { return true; }
        bool end() override { return true; }
        Type type() const override { return User; }
        void updateState(const QPaintEngineState& changed) override
        {
            if (changed.state() & DirtyPen)
                colour = QColor(changed.pen().color().rgb());
        }
        void drawPath(const QPainterPath&) override { }
        void drawPolygon(const QPointF*, int, PolygonDrawMode) override { }
        void drawPolygon(const QPoint*, int, PolygonDrawMode) override { }
        void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override { }
        void drawTextItem(const QPointF& baseline, const QTextItem& item) override
        {
            const QFont font = item.font();
            const QTransform transform = painter()->transform();
            texts.append({item.text(), qRound(font.pixelSize() * transform.m11()), font.weight(),
                colour, transform.map(baseline)});
        }

        QColor colour = QColor(qRgb(0, 0, 0)); // a painter begins with a black pen
        QList<PaintedText> texts;
    };

    mutable Engine engine;
};
