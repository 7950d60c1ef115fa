#pragma once

#include "Desktop.h"
#include "Samples.h"

// From the choice of another layout in the window to its picture painted, against what the tools
// need that stand under it (one setxkbmap -print, one keyboard compiled by the server, one repaint
// of a bare window of that size), in milliseconds. `runs` of each, in turns, in one process.
Series measureChoice(
    Desktop& desktop, const QByteArray& display, const QString& directory, int runs);

// How many answers of the server are waited for, one after the other, from the choice to the
// painted picture: how much longer that takes at the end of a slow line.
Series measureChoiceRoundTrips(Desktop& desktop, const QString& directory, int runs);
