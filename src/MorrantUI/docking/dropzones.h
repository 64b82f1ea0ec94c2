// SPDX-License-Identifier: Apache-2.0
#pragma once // internal: hosts have no use for it

#include <MorrantUI/docking/DockableArea.h>
#include <MorrantUI/morrantui_export.h>

#include <QPainterPath>
#include <QRectF>
#include <QSizeF>

/// Where on a window another one can be dropped: painting, hit test and tests read the same shapes.
namespace ui::docking {

inline constexpr double kZoneDepth = 20.0; ///< of the bands along the edges, in logical pixels

struct DropZoneSetup
{
    QSizeF size;                    ///< of the target
    double topOffset = 0.0;         ///< height of the target's header strip
    double insetLimit = kZoneDepth; ///< most that a band is deep; small targets have thinner ones
    bool sidesDisabled = false;     ///< no left, right and centre zone
    bool topBottomDisabled = false; ///< no top, bottom and centre zone
};

struct DropZones
{
    QRectF outer;
    QRectF inner;
    QRectF header;
    double inset = 0.0; ///< how deep the bands are
    QPainterPath left;
    QPainterPath top;
    QPainterPath right;
    QPainterPath bottom;
    QPainterPath center;
    QPainterPath outline; ///< drawn around the zones, enabled or not

    /// Empty for None.
    QPainterPath of(DockableArea area) const;
};

MORRANT_UI_EXPORT DropZones dropZones(const DropZoneSetup& setup);

/// The zone that holds a point. Where zones meet, left comes before top, right, bottom and centre.
MORRANT_UI_EXPORT DockableArea hitTest(const DropZones& zones, const QPointF& point);

} // namespace ui::docking
