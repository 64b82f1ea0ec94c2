#pragma once

#include <utility>

/// Frames and scene units of the time editor and the ruler: one scene unit on x is one frame, and
/// frame f lies at scene x = f. Nothing here overflows: what leaves the 32 bits of a frame becomes
/// the nearest end of them, and what is not a number becomes frame 0.
namespace ui {

/// First and last frame. A range whose last frame is not after its first one is empty.
using FrameRange = std::pair<int, int>;

/// The frame that a scene x lies in, truncated toward 0.
int frameOf(double sceneX);

/// The frame that a scene x is nearest to; halves go away from 0.
int nearestFrame(double sceneX);

/// Last minus first, negative for a reversed range; exact over all of 32 bits.
double frameSpan(const FrameRange& range);

/// The frame a distance away from another.
int movedFrame(int frame, double distance);

} // namespace ui
