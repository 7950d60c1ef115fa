#pragma once

#include "x11/Types.h"

#include <QImage>
#include <QString>

// The screen of the toolkit's display, with all that is on it, and what a document needs of it.
namespace screenshot {

// Paints the bare screen in a calm colour. The display is borrowed.
void paintGround(Display* display);

QImage ofScreen();

// The part of the screen with all windows in it, and a margin. The whole when there is none.
QImage ofWindows();

// False, with a message on standard error, when the file cannot be written.
bool leave(const QImage& image, const QString& file);

} // namespace screenshot
