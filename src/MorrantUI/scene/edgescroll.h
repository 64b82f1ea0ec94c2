// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace ui {

inline constexpr double kEdgeBand = 2.0; ///< pixels inside: a screen's edge has no beyond
inline constexpr double kSlowestEdgeScroll = 150.0; ///< pixels a second, at the edge itself
inline constexpr double kEdgeScrollGain = 12.0;     ///< more of them for each pixel beyond
inline constexpr double kFastestEdgeScroll = 4000.0;

/// How fast a view scrolls while something is dragged at a place, in pixels a second; negative
/// towards the beginning, 0 within the view.
/// @param position across the viewport or down it, logical pixels @param extent of the viewport
double edgeScrollSpeed(double position, double extent);

} // namespace ui
