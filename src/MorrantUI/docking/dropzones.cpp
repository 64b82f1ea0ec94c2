// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/dropzones.h"

#include <QPolygonF>

#include <algorithm>
#include <array>

namespace ui::docking {

namespace {

QPainterPath quadrilateral(QPointF a, QPointF b, QPointF c, QPointF d)
{
    QPainterPath path(a);
    path.lineTo(b);
    path.lineTo(c);
    path.lineTo(d);
    path.closeSubpath();
    return path;
}

QPainterPath outlineOf(const DropZones& zones)
{
    QPainterPath outline;
    outline.addRect(zones.outer);
    outline.addRect(zones.inner);
    const std::array corners{
        std::pair(zones.outer.topLeft(), zones.inner.topLeft()),
        std::pair(zones.outer.topRight(), zones.inner.topRight()),
        std::pair(zones.outer.bottomRight(), zones.inner.bottomRight()),
        std::pair(zones.outer.bottomLeft(), zones.inner.bottomLeft())};
    for (const auto& [outer, inner] : corners) {
        outline.moveTo(outer);
        outline.lineTo(inner);
    }
    outline.addRect(zones.header);
    return outline;
}

} // namespace

QPainterPath DropZones::of(DockableArea area) const
{
    switch (area) {
    case DockableArea::Right: return right;
    case DockableArea::Top: return top;
    case DockableArea::Left: return left;
    case DockableArea::Bottom: return bottom;
    case DockableArea::Center: return center;
    case DockableArea::None: break;
    }
    return {};
}

DropZones dropZones(const DropZoneSetup& setup)
{
    const double w = setup.size.width();
    const double h = setup.size.height();
    const double t = setup.topOffset;
    const double m = std::min({setup.insetLimit, w / 2, h / 2});

    DropZones zones;
    zones.inset = m;
    zones.outer = QRectF(0, t, w, h - t);
    zones.inner = QRectF(m, t + m, w - 2 * m, h - t - 2 * m);
    zones.header = QRectF(0, 0, w, t);
    zones.outline = outlineOf(zones);
    if (!setup.topBottomDisabled) {
        zones.top = quadrilateral({0, t}, {m, t + m}, {w - m, t + m}, {w, t});
        zones.bottom = quadrilateral({0, h}, {w, h}, {w - m, h - m}, {m, h - m});
    }
    if (!setup.sidesDisabled) {
        zones.left = quadrilateral({0, t}, {0, h}, {m, h - m}, {m, t + m});
        zones.right = quadrilateral({w - m, t + m}, {w - m, h - m}, {w, h}, {w, t});
    }
    if (!setup.sidesDisabled && !setup.topBottomDisabled) {
        zones.center.addRect(zones.header);
    }
    return zones;
}

DockableArea hitTest(const DropZones& zones, const QPointF& point)
{
    // A disabled zone has an empty path, which contains nothing.
    for (const DockableArea area :
         {DockableArea::Left,
          DockableArea::Top,
          DockableArea::Right,
          DockableArea::Bottom,
          DockableArea::Center})
    {
        if (zones.of(area).contains(point)) {
            return area;
        }
    }
    return DockableArea::None;
}

} // namespace ui::docking
