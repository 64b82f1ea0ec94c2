// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>

namespace studio {

/// Where a composition lies in the viewport. View lengths are logical pixels.
struct ViewMapping
{
    double scale = 1; ///< logical pixels a composition pixel
    QPointF origin;   ///< of the composition's top left corner, in the view

    QRectF mapped(QSizeF composition) const { return {origin, composition * scale}; }
};

inline constexpr double kSmallestScale = 0.01;
inline constexpr double kLargestScale = 64;
inline constexpr double kFitMargin =
    32; ///< free on every side, unless the view is too small for it

/// The composition in the middle of the view at a given scale, within the limits.
ViewMapping centred(QSizeF view, QSizeF composition, double scale);

/// As large as fits into the view.
ViewMapping fitted(QSizeF view, QSizeF composition);

/// A new scale, within the limits, that leaves the composition's point below `anchor` where it is.
ViewMapping zoomedAt(const ViewMapping& mapping, QPointF anchor, double scale);

/// The composition's point below one of the view's, in its pixels.
QPointF compositionPoint(const ViewMapping& mapping, QPointF point);

/// The middle of the device pixel that a point lies in, where lines of one pixel are sharp.
QPointF middleOfPixel(QPointF point, double devicePixelRatio);

/// The origin on the nearest device pixel, so that straight edges stay sharp.
QPointF snappedToPixels(QPointF point, double devicePixelRatio);

} // namespace studio
