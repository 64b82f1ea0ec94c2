// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/graphmoves.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace ui::Graph {

namespace {

QPointF slid(QPointF proposed, QPointF along)
{
    if (along.x() == 0.0) {
        return along.y() == 0.0 ? proposed : QPointF(0.0, proposed.y());
    }
    return {proposed.x(), proposed.x() * (along.y() / along.x())};
}

} // namespace

AxisSnappingMode lockedAxis(const AxisDrag& drag)
{
    if (!drag.shift) {
        return AxisSnappingMode::None;
    }
    const int x = std::abs(drag.press.x() - drag.position.x());
    const int y = std::abs(drag.press.y() - drag.position.y());
    const bool started = std::max(x, y) > drag.startDistance;
    if (!started || std::min(x, y) >= kAxisDecision) {
        return drag.present;
    }
    return y > x ? AxisSnappingMode::Vertical : AxisSnappingMode::Horizontal;
}

QPointF acceptedPoint(const PointStep& step)
{
    QPointF p = step.proposed;
    if (step.axis == AxisSnappingMode::Horizontal) {
        p.setY(step.stored.y());
    } else if (step.axis == AxisSnappingMode::Vertical) {
        p.setX(step.stored.x());
    }
    if (step.grid) {
        const double unit = *step.grid;
        p = QPointF(std::round(p.x() / unit) * unit, std::round(p.y() / unit) * unit);
    }
    if (step.limit && isFinite(p)) {
        const double most = *step.limit;
        p = QPointF(std::clamp(p.x(), 0.0, most), std::clamp(p.y(), 0.0, most));
    }
    return p;
}

HandleMove handleMove(const HandleStep& step)
{
    QPointF p = step.proposed;
    if (step.flat) {
        p.setY(0.0);
    }
    if (!step.locked) {
        return {p, {}};
    }
    p.setX(step.side == Side::Left ? std::min(p.x(), 0.0) : std::max(p.x(), 0.0));
    if (step.slide) {
        return {slid(p, step.current.isNull() ? step.direction : step.current), {}};
    }
    if (step.opposite.isNull() || p.isNull()) {
        return {p, {}}; // nothing to mirror, or no direction to mirror it in
    }
    const double own = lengthOf(step.current);
    const double ratio = own > 0.0 ? lengthOf(step.opposite) / own : step.ratio;
    const QPointF mirror = -p * ratio;
    return {p, isFinite(mirror) ? std::optional(mirror) : std::nullopt};
}

bool isFinite(QPointF point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

double lengthOf(QPointF offset)
{
    return std::hypot(offset.x(), offset.y());
}

} // namespace ui::Graph
