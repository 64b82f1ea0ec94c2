// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/playbackrules.h"

#include "MorrantUI/timeline/playbackrange.h"

#include <algorithm>
#include <cmath>

namespace ui {

namespace {

constexpr double kRounding = 1e-6; ///< frames
constexpr double kMostFrames = 1e15;
constexpr double kLongestWait = 3600.0 * 1000.0; ///< ms; timers count in 32 bits
constexpr double kMilliseconds = 1000.0;         ///< in a second

qint64 countOf(const FrameRange& frames)
{
    return qint64{frames.second} - frames.first + 1;
}

bool isPlayed(const PlaybackRun& run)
{
    return frameWithin(run.startFrame, run.frames) == run.startFrame;
}

/// Frames between the first one and where a run begins.
qint64 startOffset(const PlaybackRun& run)
{
    return isPlayed(run) ? qint64{run.startFrame} - run.frames.first : -1;
}

} // namespace

qint64 framesPassed(const PlaybackRun& run, double seconds)
{
    const double frames = std::floor(seconds * run.rate + kRounding);
    if (!(frames > 0.0) || !std::isfinite(frames)) {
        return 0;
    }
    const auto passed = static_cast<qint64>(std::min(frames, kMostFrames));
    return run.loops ? passed : std::min(passed, countOf(run.frames) - 1 - startOffset(run));
}

int frameAfter(const PlaybackRun& run, qint64 passed)
{
    const qint64 fromFirst = startOffset(run) + passed;
    if (fromFirst < 0) {
        return run.startFrame;
    }
    const qint64 count = countOf(run.frames);
    const qint64 shown = run.loops ? fromFirst % count : std::min(fromFirst, count - 1);
    return static_cast<int>(run.frames.first + shown);
}

bool isOver(const PlaybackRun& run, qint64 passed)
{
    return !run.loops && frameAfter(run, passed) == run.frames.second;
}

qint64 lapOf(const PlaybackRun& run, qint64 passed)
{
    const qint64 fromFirst = startOffset(run) + passed;
    return fromFirst < 0 ? -1 : fromFirst / countOf(run.frames);
}

bool canFollow(const PlaybackRun& run, double seconds, qint64 passed)
{
    return std::isfinite(seconds) && seconds * run.rate > static_cast<double>(passed - 1);
}

std::optional<int> waitForNextFrame(const PlaybackRun& run, double seconds, qint64 passed)
{
    const bool isStill = run.loops && countOf(run.frames) == 1 && isPlayed(run);
    if (!(run.rate > 0.0) || isStill) {
        return std::nullopt;
    }
    const double next = static_cast<double>(passed + 1) / run.rate;
    const double now = std::isfinite(seconds) ? seconds : static_cast<double>(passed) / run.rate;
    const double wait = std::ceil((next - now) * kMilliseconds);
    return static_cast<int>(std::clamp(wait, 1.0, kLongestWait));
}

int firstPlayed(const PlaybackRun& run)
{
    return isPlayed(run) && !isOver(run, 0) ? run.startFrame : run.frames.first;
}

int steppedFrame(int frame, int steps, const FrameRange& frames)
{
    const qint64 count = countOf(frames);
    const qint64 offset = qint64{frame} - frames.first + steps;
    return static_cast<int>(frames.first + (offset % count + count) % count);
}

} // namespace ui
