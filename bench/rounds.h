#pragma once

#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

/// Times two pieces of work in turn, so that a drift of the machine's speed meets both alike, and
/// prints the median of each and their ratio.
inline double compare(const char *what, int rounds, const std::function<void()> &work,
                      const std::function<void()> &against)
{
    const auto time = [](const std::function<void()> &piece) {
        QElapsedTimer timer;
        timer.start();
        piece();
        return static_cast<double>(timer.nsecsElapsed()) / 1e6;
    };
    const auto median = [](std::vector<double> &values) {
        std::nth_element(values.begin(), values.begin() + static_cast<long>(values.size() / 2),
                         values.end());
        return values[values.size() / 2];
    };
    work(); // warm up both
    against();
    std::vector<double> first;
    std::vector<double> second;
    for (int i = 0; i < rounds; ++i) {
        first.push_back(time(work));
        second.push_back(time(against));
    }
    const double a = median(first);
    const double b = median(second);
    std::printf("%s: %.3f ms against %.3f ms, ratio %.2f\n", what, a, b, a / b);
    return a / b;
}
