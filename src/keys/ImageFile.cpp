#include "keys/ImageFile.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPixmapCache>

namespace {

class PngFile {
public:
    explicit PngFile(const QString& path)
        : file(path)
        , reader(&file, "png")
    {
        reader.setAutoDetectImageFormat(false);
    }

    bool canRead()
    {
        return !file.fileName().isEmpty() && file.open(QIODevice::ReadOnly) && reader.canRead();
    }
    QImage read() { return reader.read(); }
    QSize size() const { return reader.size(); }

private:
    QFile file;
    QImageReader reader;
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
    PngFile png(path);
    if (png.canRead()) {
        image = QPixmap::fromImage(png.read());
        QPixmapCache::insert(key, image);
    } else {
        image.load(path);
    }
    return image;
}

QSize imageFile::sizeOf(const QString& path)
{
    PngFile png(path);
    return png.canRead() ? png.size() : QImageReader(path).size();
}
