#pragma once

#include "Program.h"
#include "Samples.h"

// From the click on a key of the picture to the key's event at a window of our own, which has the
// focus, in milliseconds. In turns: `rounds` starts of each program and `clicks` in each of them.
Series measureClicks(Desktop& desktop, const Programs& programs, int rounds, int clicks);
