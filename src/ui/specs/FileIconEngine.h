#pragma once

#include <QIcon>
#include <QIconEngine>
#include <QPixmap>
#include <QSize>
#include <QString>

#include <optional>

// An icon from an image file that is decoded when it is first drawn. QIcon decodes a file at once,
// which for a flag for each of a hundred keyboards takes longer than opening the window, and keeps
// the whole image, which is two hundred times as large as the icon. A file that is no image draws
// nothing.
class FileIconEngine : public QIconEngine {
public:
    // An icon of the image file; null for an empty path.
    static QIcon iconOf(const QString& imagePath);

    explicit FileIconEngine(QString imagePath);

    QIconEngine* clone() const override;
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;

    // Qt asks this for every entry when a list opens, so it reads only the image's header.
    QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override;

private:
    QString path;
    QPixmap drawn; // in the size that was asked for last; null before
    std::optional<QSize> imageSize; // in pixels; invalid when the file is no image
};
