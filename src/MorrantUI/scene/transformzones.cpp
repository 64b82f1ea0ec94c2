// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/scene/transformzones.h"

#include <cmath>

namespace ui {

TransformZone transformZone(double x, const QRectF& tool, double scale)
{
    const double reach = kTransformEdge / scale;
    if (std::abs(x - tool.left()) < reach) {
        return TransformZone::LeftEdge;
    }
    return std::abs(x - tool.right()) < reach ? TransformZone::RightEdge : TransformZone::Body;
}

QRectF transformRect(const QRectF& selection)
{
    return selection.adjusted(0.0, -kTransformReach, 0.0, kTransformReach);
}

QPainterPath transformBar(const QRectF& tool, QSizeF edge, TransformZone side)
{
    const bool left = side == TransformZone::LeftEdge;
    const double width = edge.width();
    const QRectF bar(left ? tool.left() : tool.right() - width, tool.top(), width, tool.height());
    QPainterPath round;
    round.addRoundedRect(bar, width, edge.height());
    QPainterPath inner;
    inner.addRect(bar.adjusted(left ? width / 2.0 : 0.0, 0.0, left ? 0.0 : -width / 2.0, 0.0));
    return round.united(inner);
}

} // namespace ui
