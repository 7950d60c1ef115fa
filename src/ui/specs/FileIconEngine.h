#pragma once

#include <QIcon>
#include <QIconEngine>
#include <QSize>
#include <QString>

#include <optional>

// An icon from an image file that is decoded when it is first drawn, and kept in the size in which
// it was drawn last. QIcon decodes a file at once and keeps it in its full size, which for a flag
// for each of a hundred keyboards takes longer than opening the window and more memory than all the
// rest of the program. A file that is no image draws nothing.
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
    QSize fitting(const QSize& room);
    const QIcon& image(const QSize& room);

    QString path;
    QIcon decoded;
    QSize decodedSize; // in pixels, as all sizes here
    std::optional<QSize> imageSize; // invalid when the file is no image
};
