// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/playbackrange.h"

#include <algorithm>
#include <cmath>

namespace ui {

int frameWithin(int frame, const FrameRange& frames)
{
    return std::min(std::max(frame, frames.first), frames.second);
}

int bookendFrame(bool isStart, int wanted, const FrameRange& frames, const FrameRange& playback)
{
    const int frame = frameWithin(wanted, frames);
    if (isStart) {
        const int latest =
            std::max(movedFrame(playback.second, -1.0), std::min(frames.first, playback.second));
        return std::min(frame, latest);
    }
    const int earliest =
        std::min(movedFrame(playback.first, 1.0), std::max(frames.second, playback.first));
    return std::max(frame, earliest);
}

FrameRange playedWithin(const FrameRange& wanted, const FrameRange& frames)
{
    const FrameRange played(
        std::max(wanted.first, frames.first), std::min(wanted.second, frames.second));
    return played.first <= played.second ? played : frames;
}

FrameRange movedRange(const FrameRange& playback, double distance, const FrameRange& frames)
{
    const double least = static_cast<double>(frames.first) - playback.first;
    const double most = static_cast<double>(frames.second) - playback.second;
    if (least > most || std::isnan(distance)) {
        return playback;
    }
    const double moved = std::round(std::clamp(distance, least, most));
    return {movedFrame(playback.first, moved), movedFrame(playback.second, moved)};
}

} // namespace ui
