#pragma once

#include "Program.h"
#include "Samples.h"

struct KeyFigures {
    Series oneKey; // from the press to the key lit on the picture, milliseconds
    Series allLabels; // from the press of Shift to the last changed label, milliseconds
};

// Presses keys while the programs have the focus, in turns: `rounds` starts of each, and in each of
// them `presses` of each key.
KeyFigures measureKeys(Desktop& desktop, const Programs& programs, int rounds, int presses);
