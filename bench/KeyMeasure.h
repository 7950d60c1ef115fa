#pragma once

#include "Program.h"
#include "Samples.h"

struct KeyFigures {
    Compared oneKey; // from the press to the key lit on the picture, milliseconds
    Compared allLabels; // from the press of Shift to the last changed label, milliseconds
};

// Presses keys while the programs have the focus, in turns: `rounds` starts of each, and in each of
// them `presses` of each key.
KeyFigures measureKeys(Desktop& desktop, Program& ours, Program& bare, int rounds, int presses);
