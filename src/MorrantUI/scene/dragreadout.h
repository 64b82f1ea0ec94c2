// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointF>
#include <QRectF>
#include <QString>

#include <optional>

/// What is told beside the pointer while something is dragged. Lengths are logical pixels of the
/// viewport.
namespace ui {

/// How far a drag has come, in scene units.
struct DragProgress
{
    double moved = 0.0;
    double now = 0.0;            ///< where what was pressed is
    std::optional<double> guide; ///< where it has snapped
};

/// "+12  →  48": how far it has come and where it is, in frames. Parts of a frame show two digits.
QString movedText(double moved, double now);

/// Where a text lies: above the pointer and to the right, or where there is room for it. Also
/// inside the viewport when the pointer is not.
QRectF readoutRect(QSizeF text, QPointF pointer, QSizeF viewport);

} // namespace ui
