// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QObject>

/// What view, points, handles and curves of the graph editor share.
namespace ui::Graph {

Q_NAMESPACE_EXPORT(MORRANT_UI_EXPORT)

/// How a curve leaves and enters a point.
enum class Interpolation : int
{
    Bezier = 0, ///< along the point's tangent handles
    Linear = 1, ///< straight
};
Q_ENUM_NS(Interpolation)

/// Of its point, a tangent handle is on.
enum class Side : int
{
    Left = 0,  ///< incoming
    Right = 1, ///< outgoing
};
Q_ENUM_NS(Side)

/// The axis that a drag of points keeps to.
enum class AxisSnappingMode : int
{
    None = 0,
    Vertical = 1,   ///< points keep their x
    Horizontal = 2, ///< points keep their y
};
Q_ENUM_NS(AxisSnappingMode)

/// Scene units that the unit square of a fixed graph is wide and high.
inline constexpr int kFixedScale = 10;

} // namespace ui::Graph
