#pragma once

#include "Program.h"
#include "Samples.h"

// What the tests for font packages cost at a start of the program.
struct PackageFigures {
    int testsAsShipped = 0; // runs of dpkg at one start, with the keyboard table as it is
    int testsWithoutNames = 0; // the same with a table without names in a native script
    Series start; // with the one table and with the other, milliseconds
};

// `program` is started in its directory with the table that is there, in turns with a directory
// where the table has no native names, `runs` times each.
PackageFigures measurePackageTests(Desktop& desktop, const ProgramSetup& program, int runs);
