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
    image().paint(painter, rect, Qt::AlignCenter, mode, state);
}

// The size is in device pixels already: the caller has scaled it for the screen.
QPixmap FileIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state)
{
    return image().pixmap(size, 1.0, mode, state);
}

QSize FileIconEngine::actualSize(const QSize& size, QIcon::Mode, QIcon::State)
{
    if (!imageSize)
        imageSize = QImageReader(path).size();
    if (!imageSize->isValid())
        return {0, 0};
    const bool fits = imageSize->boundedTo(size) == *imageSize;
    return fits ? *imageSize : imageSize->scaled(size, Qt::KeepAspectRatio);
}

const QIcon& FileIconEngine::image()
{
    if (!decoded)
        decoded = QIcon(path);
    return *decoded;
}
