// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace ui {

/// Frames in a second of a time code: the rate rounded to a whole number, at least one; 0 unless it
/// is finite and above 0.
inline std::int64_t wholeRate(double framesPerSecond)
{
    if (!std::isfinite(framesPerSecond) || framesPerSecond <= 0.0) {
        return 0;
    }
    const double most = std::numeric_limits<int>::max();
    return static_cast<std::int64_t>(std::clamp(std::round(framesPerSecond), 1.0, most));
}

} // namespace ui
