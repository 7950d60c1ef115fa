#pragma once

#include "Program.h"
#include "Samples.h"

// What programs send to a server that is far away, with which they share no memory.
struct FarFigures {
    Series start; // until the window is painted, kB
    Series letter; // a key that lights up and goes out again, kB
    Series shift; // Shift pressed: kB until the picture rests
    Series lock; // Caps Lock pressed and released twice: kB
    Series lockAnswers; // of the server to questions about that
};

// In turns: `rounds` starts of each program, which takes the focus.
FarFigures measureFar(Desktop& desktop, const Programs& programs, int rounds);
