#pragma once

#include <algorithm>
#include <vector>

#include <QElapsedTimer>

// The milliseconds since the timer's start, restarting it for the next step.
inline double MsSince(QElapsedTimer& t)
{
    const double ms = t.nsecsElapsed() / 1e6;
    t.restart();
    return ms;
}

inline double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const size_t n = values.size();
    return n == 0 ? 0.0 : (n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2);
}
