#pragma once

#include <vector>

// What was measured, one value for each run.
using Samples = std::vector<double>;

// Of several things, taken in turns: ours first, then what it is compared with.
using Series = std::vector<Samples>;

// Not a number when there are no samples.
double median(Samples samples);

// The median of ours divided by that of another of the series.
double ratioTo(const Series& series, std::size_t other);
