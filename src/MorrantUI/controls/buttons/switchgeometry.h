// SPDX-License-Identifier: Apache-2.0
#pragma once // internal: hosts have no use for it

#include <MorrantUI/morrantui_export.h>

#include <QRectF>

/// Where the parts of a toggle switch are, in logical pixels.
namespace ui {

inline constexpr int kSwitchTextGap = 6; ///< from the track to the text

struct SwitchParts
{
    QRectF track;
    QRectF knob; ///< a circle
    QRectF text; ///< beside the track, over the whole height; may be empty
};

/// Lays a switch out: the track at the leading edge, in the middle of the height, the knob inside
/// it at `position` between its off and its on end, the text behind. Right to left mirrors all
/// three.
/// @param trackHeight limited to the height of `bounds`; the track is 1.75 times as wide, rounded
///        to an even number so that the knob's ends are whole pixels
/// @param position 0 is off, 1 is on; limited to that range, NaN counts as 0
MORRANT_UI_EXPORT SwitchParts switchParts(
    const QRectF& bounds, double trackHeight, double position, Qt::LayoutDirection direction);

/// The width of a track of that height.
MORRANT_UI_EXPORT double switchTrackWidth(double trackHeight);

} // namespace ui
