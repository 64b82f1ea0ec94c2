// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/graph/graphtypes.h>

#include <Core/num2.h>

#include <QPointF>

/// A fixed graph's units: data has time and value from 0 to 1, value upward; the scene has a square
/// of kFixedScale units with the value downward.
namespace ui::Graph {

/// Where a key of a time (x) and a value (y) lies in the scene.
inline QPointF fixedPosition(num2<double> data)
{
    return {kFixedScale * data.x, kFixedScale * (1.0 - data.y)};
}

/// The time (x) and value (y) of a place in the scene; not limited to 0..1.
inline num2<double> fixedData(QPointF position)
{
    return {position.x() / kFixedScale, 1.0 - position.y() / kFixedScale};
}

/// A handle's offset from its key in time and value, as an item's from its point.
inline QPointF fixedOffset(num2<double> data)
{
    return {kFixedScale * data.x, -kFixedScale * data.y};
}

/// The same the other way round.
inline num2<double> fixedDataOffset(QPointF offset)
{
    return {offset.x() / kFixedScale, -offset.y() / kFixedScale};
}

} // namespace ui::Graph
