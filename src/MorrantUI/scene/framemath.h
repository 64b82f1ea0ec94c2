// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cmath>
#include <limits>
#include <utility>

/// Frames and scene units of the time editor and the ruler: one scene unit on x is one frame, and
/// frame f lies at scene x = f. Nothing here overflows: what leaves the 32 bits of a frame becomes
/// the nearest end of them, and what is not a number becomes frame 0. For hosts whose own items
/// move by frames, too.
namespace ui {

/// First and last frame. Both are played; as a stretch between them equal ones are empty.
using FrameRange = std::pair<int, int>;

/// A whole number as a frame.
inline int saturatedFrame(double whole)
{
    if (std::isnan(whole)) {
        return 0;
    }
    if (whole <= std::numeric_limits<int>::min()) {
        return std::numeric_limits<int>::min();
    }
    if (whole >= std::numeric_limits<int>::max()) {
        return std::numeric_limits<int>::max();
    }
    return static_cast<int>(whole);
}

/// The frame that a scene x lies in, truncated toward 0.
inline int frameOf(double sceneX)
{
    return saturatedFrame(std::trunc(sceneX));
}

/// The frame that a scene x is nearest to; halves go away from 0.
inline int nearestFrame(double sceneX)
{
    return saturatedFrame(std::round(sceneX));
}

/// Last minus first, negative for a reversed range; exact over all of 32 bits.
inline double frameSpan(const FrameRange& range)
{
    return static_cast<double>(range.second) - range.first;
}

/// The frame a distance away from another.
inline int movedFrame(int frame, double distance)
{
    return nearestFrame(frame + distance);
}

} // namespace ui
