#pragma once

#include "app/description/KeyboardSettings.h"

#include <QString>

// One line for a user whose keyboard the X server has refused: the command that shows the server's
// reason for these settings, ready to be pasted into a shell, and, unless hasGeometryFile, where
// our geometry belongs.
QString adviceAfterRefusal(const KeyboardSettings& asked, bool hasGeometryFile);

// Whether our geometry is where an X server of this machine looks for it.
bool hasGeometryFile();
