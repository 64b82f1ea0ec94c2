// SPDX-License-Identifier: Apache-2.0
#include "playback.h"

#include <algorithm>
#include <cmath>

namespace studio {

namespace {

constexpr double kRounding = 1e-6; ///< frames
constexpr double kMostFrames = 1e15;

} // namespace

FrameRange frameRange(double in, double out)
{
    const int first = static_cast<int>(std::ceil(in));
    const int last = static_cast<int>(std::ceil(out)) - 1;
    return {first, std::max(first, last)};
}

qint64 framesPassed(double seconds, double rate)
{
    const double frames = std::floor(seconds * rate + kRounding);
    return frames > 0 && std::isfinite(frames) ? static_cast<qint64>(std::min(frames, kMostFrames))
                                               : 0;
}

int frameAt(double seconds, double rate, FrameRange range, int startFrame, bool loops)
{
    const qint64 fromFirst = range.clamped(startFrame) - range.first + framesPassed(seconds, rate);
    const qint64 shown =
        loops ? fromFirst % range.count() : std::min<qint64>(fromFirst, range.count() - 1);
    return range.first + static_cast<int>(shown);
}

} // namespace studio
