#pragma once

#include "x11/Types.h"

#include <QString>

// What a screen reader says for a symbol of a key, in the user's language. label is what the cap
// carries for the keysym: it is said as it stands where it is a character or a word. Signs such as
// arrows, and accents that wait for a letter, have names of their own ("Shift", "dead acute"), and
// what has none is called as X11 calls it. Never empty.
QString spokenName(KeySym keysym, const QString& label);
