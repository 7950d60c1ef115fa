#pragma once

#include "x11/Types.h"

#include <QByteArray>
#include <QString>

class KbdGeometry;

// What is wrong while nobody holds a key or a button: a key that is down in the server, or a
// picture that shows other locks, lamps, lit keys or another group than the server's. Empty when
// all is well. The display is the server's, by a connection and by its name.
QString faultOf(const KbdGeometry& picture, Display* display, const QByteArray& displayName);
