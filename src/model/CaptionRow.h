#pragma once

#include <QList>

// The line of captions below the keyboard; units of the scene.
struct CaptionRow {
    int left; // where the keyboard begins: the first caption stands there
    int width; // of the keyboard: each caption begins at an equal share of it
    int end; // no caption reaches beyond
    int gap; // at the least between two captions
};

struct CaptionPlace {
    int x; // left edge
    int room; // the width that the caption may take
};

// Where captions of these widths stand, in the order given, and how much of each is shown. One that
// needs more than its share takes what its neighbours leave, and makes them move aside; the longest
// are cut only when the row has no room for all.
QList<CaptionPlace> placesInRow(const CaptionRow& row, QList<int> widths);
