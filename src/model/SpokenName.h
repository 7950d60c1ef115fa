#pragma once

#include "x11/Types.h"

#include <QString>

// What a screen reader says for a symbol of a key, in the user's language. label is what the cap
// carries for the keysym. A label that is a character or a word is said as it stands; signs such as
// arrows, and dead keys, have names ("Shift", "dead acute"); all others get X11's name. Never
// empty.
QString spokenName(KeySym keysym, const QString& label);
