#pragma once

#include <QPixmap>
#include <QString>

// Images from files, most of them PNG. Of an image that is no PNG Qt asks the plug-ins of all other
// formats, for which it loads them, and of a PNG, too, unless it is told the format.
namespace imageFile {

// The image; null when the file holds none. Qt keeps it for a while, until the file changes.
QPixmap read(const QString& path);

// Its size, in pixels, as the head of the file has it; invalid when there is none.
QSize sizeOf(const QString& path);

} // namespace imageFile
