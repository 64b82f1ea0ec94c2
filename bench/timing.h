// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <vector>

namespace ui::bench {

inline constexpr int kRuns = 21; ///< of everything whose median is taken

/// The middle value; NaN for none.
double median(std::vector<double> values);

template <typename Work>
double nanosecondsOf(Work&& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    const auto stop = std::chrono::steady_clock::now();
    return std::chrono::duration<double, std::nano>(stop - start).count();
}

/// The median over kRuns runs, after one that is not counted.
template <typename Work>
double medianNanosecondsOf(Work&& work)
{
    work();
    std::vector<double> times;
    times.reserve(kRuns);
    for (int run = 0; run < kRuns; ++run) {
        times.push_back(nanosecondsOf(work));
    }
    return median(times);
}

/// How many times as long `ours` takes as `floor`: the median over kRuns pairs of runs, one right
/// after the other and in turns first, so that a slow moment of the machine meets both.
template <typename Ours, typename Floor>
double medianRatio(Ours&& ours, Floor&& floor)
{
    ours();
    floor();
    std::vector<double> ratios;
    ratios.reserve(kRuns);
    for (int run = 0; run < kRuns; ++run) {
        const bool floorFirst = run % 2 == 0;
        double floorTime = floorFirst ? nanosecondsOf(floor) : 0.0;
        const double ourTime = nanosecondsOf(ours);
        floorTime = floorFirst ? floorTime : nanosecondsOf(floor);
        ratios.push_back(ourTime / floorTime);
    }
    return median(ratios);
}

} // namespace ui::bench
