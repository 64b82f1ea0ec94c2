// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/scene/framemath.h>

/// Where current frame and playback range may be.
namespace ui {

/// A frame as the frame range allows it. A reversed range allows its last frame only.
int frameWithin(int frame, const FrameRange& frames);

/// Where one end of the playback range comes to lie that is wanted at a frame: inside the frame
/// range, and then at least a frame away from the other end, which goes before; at that end where
/// the frame range has no room between.
int bookendFrame(bool isStart, int wanted, const FrameRange& frames, const FrameRange& playback);

/// What is played of a wanted range: the part in the frame range, or all of that where there is
/// none.
FrameRange playedWithin(const FrameRange& wanted, const FrameRange& frames);

/// A playback range moved as a whole, as far as the frame range allows; where that has no room for
/// it, it stays.
FrameRange movedRange(const FrameRange& playback, double distance, const FrameRange& frames);

} // namespace ui
