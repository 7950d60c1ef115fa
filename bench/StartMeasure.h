#pragma once

#include "Program.h"
#include "Samples.h"

struct StartFigures {
    Series start; // from fork to the painted window, milliseconds
    Series memory; // MB
};

// Starts the programs in turns, `runs` times each.
StartFigures measureStart(const Programs& programs, int runs);

// How many answers of the server the programs wait for at start, one after the other: how much
// longer a start takes at the end of a slow line. `runs` starts with the line slow, as many with it
// fast.
Series measureRoundTrips(Desktop& desktop, const Programs& programs, int runs);
