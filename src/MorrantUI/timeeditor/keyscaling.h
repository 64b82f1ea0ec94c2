// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace ui {

/// Maps a value linearly from one range to another. Not finite when the range to come from is
/// empty.
constexpr double mapped(
    double value, double fromFirst, double fromLast, double toFirst, double toLast)
{
    return toFirst + (toLast - toFirst) * (value - fromFirst) / (fromLast - fromFirst);
}

/// A scaling of keys: one edge of the selection goes from a frame to another, the opposite end
/// stays.
struct KeyScale
{
    double from = 0.0; ///< the frame that was pressed
    double to = 0.0;
    double first = 0.0; ///< where the selection's first key is now
    double last = 0.0;
    bool right = false; ///< which edge is dragged
};

/// Where a key goes; not rounded, and not finite where the selection has no length.
constexpr double scaledFrame(const KeyScale& scale, double frame)
{
    return scale.right ? mapped(frame, scale.first, scale.from, scale.first, scale.to)
                       : mapped(frame, scale.from, scale.last, scale.to, scale.last);
}

} // namespace ui
