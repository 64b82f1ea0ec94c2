// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/scene/framemath.h>

#include <QLineF>
#include <QRectF>

#include <vector>

namespace ui {

/// A musical grid over frames: a line a beat, a stronger one a bar.
struct BeatGrid
{
    double framesPerSecond = 30.0;
    float bpm = 60.0F; ///< below 1 counts as 1
    int beatsPerBar = 4;
    float offset = 0.0F; ///< the frame of the first bar line
};

/// The rate that was meant before it became a float: so many frames in 1.001 seconds, or else the
/// number as it is written, such as 59.94. Beats go on with a ruler that counts in doubles.
double meantRate(float framesPerSecond);

/// Frames from one beat to the next; 0 for a grid that cannot be drawn.
double framesPerBeat(const BeatGrid& grid);

/// Fills both lists with the grid's lines of a range of frames: those in sight, and only as many as
/// lie at least a pixel apart (bars alone where the beats do not, nothing where bars do not).
/// @param exposed what is painted, scene units; its y is where lines begin, their end adds its
///     height to its top, like everything behind the rows
/// @param scale pixels a frame
void beatGridLines(
    const BeatGrid& grid,
    const FrameRange& frames,
    const QRectF& exposed,
    double scale,
    std::vector<QLineF>& beats,
    std::vector<QLineF>& bars);

} // namespace ui
