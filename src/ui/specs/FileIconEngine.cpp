#include "ui/specs/FileIconEngine.h"

#include <QImageReader>
#include <QPainter>
#include <QPixmap>

#include <utility>

QIcon FileIconEngine::iconOf(const QString& imagePath)
{
    return imagePath.isEmpty() ? QIcon() : QIcon(new FileIconEngine(imagePath));
}

FileIconEngine::FileIconEngine(QString imagePath)
    : path(std::move(imagePath))
{
}

QIconEngine* FileIconEngine::clone() const
{
    return new FileIconEngine(*this);
}

void FileIconEngine::paint(
    QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state)
{
    const QSize room = rect.size() * painter->device()->devicePixelRatio();
    image(room).paint(painter, rect, Qt::AlignCenter, mode, state);
}

// The size is in device pixels already: the caller has scaled it for the screen.
QPixmap FileIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state)
{
    return image(size).pixmap(size, 1.0, mode, state);
}

QSize FileIconEngine::actualSize(const QSize& size, QIcon::Mode, QIcon::State)
{
    return fitting(size);
}

// As large as the image, or less where the room is smaller.
QSize FileIconEngine::fitting(const QSize& room)
{
    if (!imageSize)
        imageSize = QImageReader(path).size();
    if (!imageSize->isValid())
        return {0, 0};
    const bool fits = imageSize->boundedTo(room) == *imageSize;
    return fits ? *imageSize : imageSize->scaled(room, Qt::KeepAspectRatio);
}

// Null for a file that is no image.
const QIcon& FileIconEngine::image(const QSize& room)
{
    const QSize size = fitting(room);
    if (size == decodedSize)
        return decoded;
    decodedSize = size;
    QImageReader reader(path);
    reader.setScaledSize(size);
    const QImage read = reader.read();
    decoded = read.isNull() ? QIcon() : QIcon(QPixmap::fromImage(read));
    return decoded;
}
