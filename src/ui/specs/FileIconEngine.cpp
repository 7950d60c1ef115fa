#include "ui/specs/FileIconEngine.h"

#include "keys/ImageFile.h"

#include <QPainter>

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
    const double ratio = painter->device()->devicePixelRatio();
    QPixmap image = pixmap(rect.size() * ratio, mode, state);
    image.setDevicePixelRatio(ratio);
    QRect place(QPoint(), image.deviceIndependentSize().toSize());
    place.moveCenter(rect.center());
    painter->drawPixmap(place, image);
}

// The size is in device pixels already: the caller has scaled it for the screen. Qt keeps the whole
// image for a while, and the picture's flag is of the same file.
QPixmap FileIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state)
{
    const QSize fitting = actualSize(size, mode, state);
    if (fitting.isEmpty())
        return {};
    if (drawn.size() != fitting) {
        const QPixmap whole = imageFile::read(path);
        if (whole.isNull()) {
            imageSize = QSize(); // its header was readable, the rest is broken: do not try again
            return {};
        }
        drawn = whole.scaled(fitting, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    return QIcon(drawn).pixmap(fitting, 1.0, mode, state);
}

QSize FileIconEngine::actualSize(const QSize& size, QIcon::Mode, QIcon::State)
{
    if (!imageSize)
        imageSize = imageFile::sizeOf(path);
    if (!imageSize->isValid())
        return {0, 0};
    const bool fits = imageSize->boundedTo(size) == *imageSize;
    return fits ? *imageSize : imageSize->scaled(size, Qt::KeepAspectRatio);
}
