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

/// How many times as long `ours` takes as `floor`: the median over kRuns rounds of floor, ours,
/// ours, floor. Who runs after itself is faster, and the rounds give both the same share of that
/// and of a slow moment of the machine.
template <typename Ours, typename Floor>
double medianRatio(Ours&& ours, Floor&& floor)
{
    ours();
    floor();
    std::vector<double> ratios;
    ratios.reserve(kRuns);
    for (int run = 0; run < kRuns; ++run) {
        double floorTime = nanosecondsOf(floor);
        const double ourTime = nanosecondsOf(ours) + nanosecondsOf(ours);
        floorTime += nanosecondsOf(floor);
        ratios.push_back(ourTime / floorTime);
    }
    return median(ratios);
}

} // namespace ui::bench
