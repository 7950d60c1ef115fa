#pragma once

#include <QString>

// The text to show for an XKB description (of a layout, variant, option, country or language):
// the program's own translation, else that of the message catalogues of the keyboard data, the
// countries and the languages, else the text as it is.
QString translateXkbName(const QString& text);
