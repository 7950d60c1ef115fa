#pragma once

#include <vector>

// What was measured in each run.
using Samples = std::vector<double>;

// Of ours and of what it is compared with, taken in turns.
struct Compared {
    Samples ours;
    Samples other;

    double ratio() const;
};

// Not a number when there are no samples.
double median(Samples samples);
