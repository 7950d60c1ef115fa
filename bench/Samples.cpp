#include "Samples.h"

#include <algorithm>
#include <limits>

double median(Samples samples)
{
    if (samples.empty())
        return std::numeric_limits<double>::quiet_NaN();
    std::sort(samples.begin(), samples.end());
    const std::size_t middle = samples.size() / 2;
    return samples.size() % 2 == 1 ? samples[middle] : (samples[middle - 1] + samples[middle]) / 2;
}

double ratioTo(const Series& series, std::size_t other)
{
    return median(series.front()) / median(series[other]);
}
