#pragma once

#include "Program.h"
#include "Samples.h"

struct StartFigures {
    Compared start; // from fork to the painted window, milliseconds
    Compared memory; // MB
};

// Starts the two programs in turns, `runs` times each.
StartFigures measureStart(Program& ours, Program& bare, int runs);

// How many answers of the server the programs wait for at start, one after the other: how much
// longer a start takes at the end of a slow line. `runs` starts with the line slow, as many with it
// fast.
Compared measureRoundTrips(Desktop& desktop, Program& ours, Program& bare, int runs);
