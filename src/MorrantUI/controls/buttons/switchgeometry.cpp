// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/buttons/switchgeometry.h"

#include <algorithm>
#include <cmath>

namespace ui {

namespace {

constexpr double kTrackProportion = 1.75; ///< width to height
constexpr double kKnobInset = 2.0;        ///< from the track's edge to the knob

QRectF mirrored(const QRectF& rect, const QRectF& bounds)
{
    return rect.translated(bounds.left() + bounds.right() - rect.left() - rect.right(), 0);
}

} // namespace

double switchTrackWidth(double trackHeight)
{
    return 2 * std::round(trackHeight * kTrackProportion / 2);
}

SwitchParts switchParts(
    const QRectF& bounds, double trackHeight, double position, Qt::LayoutDirection direction)
{
    const double height = std::clamp(trackHeight, 0.0, std::max(0.0, bounds.height()));
    const double top = bounds.top() + std::floor((bounds.height() - height) / 2);
    const QRectF track(bounds.left(), top, switchTrackWidth(height), height);

    const double diameter = std::max(0.0, height - 2 * kKnobInset);
    const double way = std::max(0.0, track.width() - 2 * kKnobInset - diameter);
    const double share = std::isnan(position) ? 0.0 : std::clamp(position, 0.0, 1.0);
    const QRectF knob(
        track.left() + kKnobInset + way * share, top + kKnobInset, diameter, diameter);

    const double textLeft = track.right() + kSwitchTextGap;
    const QRectF text(
        textLeft, bounds.top(), std::max(0.0, bounds.right() - textLeft), bounds.height());

    if (direction == Qt::RightToLeft) {
        return {mirrored(track, bounds), mirrored(knob, bounds), mirrored(text, bounds)};
    }
    return {track, knob, text};
}

} // namespace ui
