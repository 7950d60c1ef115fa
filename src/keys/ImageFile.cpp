#include "keys/ImageFile.h"

#include <QDateTime>
#include <QFileInfo>
#include <QImageReader>
#include <QPixmapCache>

namespace {

class PngReader : public QImageReader {
public:
    explicit PngReader(const QString& path)
        : QImageReader(path, "png")
    {
        setAutoDetectImageFormat(false);
    }
};

// Names a state of the file.
QString keyOf(const QString& path)
{
    const QFileInfo file(path);
    return QStringLiteral("%1 %2 %3")
        .arg(file.size())
        .arg(file.lastModified().toMSecsSinceEpoch())
        .arg(file.absoluteFilePath());
}

} // namespace

QPixmap imageFile::read(const QString& path)
{
    const QString key = keyOf(path);
    QPixmap image;
    if (QPixmapCache::find(key, &image))
        return image;
    PngReader png(path);
    if (!png.canRead())
        return QPixmap(path);
    image = QPixmap::fromImage(png.read());
    QPixmapCache::insert(key, image);
    return image;
}

QSize imageFile::sizeOf(const QString& path)
{
    const PngReader png(path);
    return png.canRead() ? png.size() : QImageReader(path).size();
}
