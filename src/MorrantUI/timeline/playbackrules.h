// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/scene/framemath.h>

#include <QtGlobal>

#include <optional>

/// Which frame is shown when.
namespace ui {

/// What plays from a moment on.
struct PlaybackRun
{
    FrameRange frames{0, 0}; ///< both are played; never reversed
    double rate = 0.0;       ///< frames a second; one that is not above 0 never leaves a frame
    int startFrame = 0;      ///< at that moment; one that is not played comes before the first
    bool loops = true;       ///< begins again behind the last frame, or stays there
};

/// Whole frames that have passed after so many seconds, without looping at most those up to the
/// last one. A millionth of a frame counts as rounding. Negative or non-finite times count as none.
qint64 framesPassed(const PlaybackRun& run, double seconds);

/// The frame that is shown when so many have passed.
int frameAfter(const PlaybackRun& run, qint64 passed);

/// Whether that is the end of it.
bool isOver(const PlaybackRun& run, qint64 passed);

/// How often it has begun anew by then; -1 before the first frame that is played.
qint64 lapOf(const PlaybackRun& run, qint64 passed);

/// Whether a time can follow a moment at which so many had passed. One that is no number, or more
/// than a frame before, is of a source that has begun anew.
bool canFollow(const PlaybackRun& run, double seconds, qint64 passed);

/// Milliseconds from a time to the frame behind those that have passed by then, at least one; less
/// where a timer could not count so far. None where no other frame follows. A time that is not
/// finite is that of the frame.
std::optional<int> waitForNextFrame(const PlaybackRun& run, double seconds, qint64 passed);

/// Where playing begins that is wanted at a frame: there, or with the first frame where that one
/// is not played, or is the last one and nothing follows.
int firstPlayed(const PlaybackRun& run);

/// A frame so many steps away, past either end looping.
int steppedFrame(int frame, int steps, const FrameRange& frames);

} // namespace ui
