#pragma once

#include "Program.h"
#include "Samples.h"

#include <functional>

// Another keyboard for X11 or viewer of one, and how long it takes from its fork to its painted
// window, in milliseconds.
struct PeerFigures {
    QByteArray name;
    Samples start;
};

// Starts those that are installed, `runs` times each. One that shows no window that can be measured
// is left out, and `tell` gets a line that says why.
std::vector<PeerFigures> measurePeers(
    Desktop& desktop, int runs, const std::function<void(const QByteArray& line)>& tell);
