// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPainterPath>
#include <QRectF>

namespace ui {

/// Where on a transform tool the pointer is.
enum class TransformZone
{
    None = 0,
    LeftEdge = 1,
    Body = 2,
    RightEdge = 3,
};

inline constexpr double kTransformEdge = 4.0;  ///< pixels, an edge's width and its reach
inline constexpr double kTransformReach = 8.0; ///< scene units above and below the selection

/// The zone at an x of the tool; the left edge wins where both overlap.
/// @param scale pixels a scene unit; the edges' reach is in pixels
TransformZone transformZone(double x, const QRectF& tool, double scale);

/// A selection's rectangle as the tool covers it.
QRectF transformRect(const QRectF& selection);

/// An edge's bar, with its outer corners round. Units are those of the rectangle.
/// @param edge the corners' radii across and down; the bar is as wide as the first
QPainterPath transformBar(const QRectF& tool, QSizeF edge, TransformZone side);

} // namespace ui
