// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/graph/graphtypes.h>

#include <QPoint>
#include <QPointF>

#include <optional>

/// Where points and handles go when they are told to: the rules of the graph editor's drags on
/// plain numbers, in graph units. A result that is not finite means a step to be dropped.
namespace ui::Graph {

inline constexpr int kAxisDecision = 50; ///< pixels; a drag farther off on both axes is undecided

struct AxisDrag
{
    QPoint press;    ///< pixels
    QPoint position; ///< pixels
    bool shift = false;
    int startDistance = 0; ///< pixels that are not yet a drag
    AxisSnappingMode present = AxisSnappingMode::None;
};

/// The axis that a drag keeps to. Decided while it is still near its start; it then stays, however
/// the drag goes on (deliberate).
AxisSnappingMode lockedAxis(const AxisDrag& drag);

struct PointStep
{
    QPointF proposed = {};
    QPointF stored = {}; ///< where the drag began
    AxisSnappingMode axis = AxisSnappingMode::None;
    std::optional<int> grid = std::nullopt;  ///< units between its lines
    std::optional<int> limit = std::nullopt; ///< both coordinates stay from 0 to here
};

QPointF acceptedPoint(const PointStep& step);

/// Handle positions are offsets from their point.
struct HandleStep
{
    QPointF proposed = {};
    QPointF current = {};
    QPointF opposite = {}; ///< the other handle's; on the point if there is none
    Side side = Side::Left;
    bool locked = false;
    bool flat = false;
    bool slide = false;
    QPointF direction = {}; ///< along which a handle slides that lies on its point
    double ratio = 1.0;     ///< of the opposite's length to this one's, while either is 0
};

struct HandleMove
{
    QPointF position;
    std::optional<QPointF> opposite; ///< where the other handle goes; it stays without
};

HandleMove handleMove(const HandleStep& step);

bool isFinite(QPointF point);
double lengthOf(QPointF offset);

} // namespace ui::Graph
