// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QPointF>
#include <QRectF>
#include <QSizeF>

/// Where a page lies in a view that shows it, for the view and for what hosts draw over it. Lengths
/// in the view are logical pixels, those on the page are its own pixels.
namespace ui {

/// A place and a size in a view.
struct CanvasMapping
{
    double scale = 1; ///< logical pixels a pixel of the page; above 0
    QPointF origin;   ///< of the page's top left corner, in the view

    /// Where a point of the page lies in the view.
    QPointF toView(QPointF point) const { return origin + point * scale; }
    /// The same for an area.
    QRectF toView(const QRectF& area) const
    {
        return {toView(area.topLeft()), area.size() * scale};
    }
    /// What of the page lies at a point of the view.
    QPointF toPage(QPointF point) const { return (point - origin) / scale; }
    /// The same for an area.
    QRectF toPage(const QRectF& area) const
    {
        return {toPage(area.topLeft()), area.size() / scale};
    }

    bool operator==(const CanvasMapping& other) const = default;
};

/// The scales that a view allows.
struct CanvasZoom
{
    double least = 0.01;
    double most = 64;

    /// The nearest scale that is allowed; the least for what is not a number.
    MORRANT_UI_EXPORT double limited(double scale) const;
};

/// Free on every side of a page that is fitted, unless the view is too small for it: logical
/// pixels.
inline constexpr double kCanvasMargin = 32;

/// The page in the middle of the view at a scale, within the limits.
MORRANT_UI_EXPORT CanvasMapping
centredOnCanvas(QSizeF view, QSizeF page, double scale, const CanvasZoom& limits = {});

/// The page as large as it fits into the view, within the limits. The scale for an empty page means
/// nothing, but is within them too.
MORRANT_UI_EXPORT CanvasMapping
fittedOnCanvas(QSizeF view, QSizeF page, const CanvasZoom& limits = {});

/// Another scale, within the limits, that leaves the point of the page below `anchor` where it is.
MORRANT_UI_EXPORT CanvasMapping zoomedOnCanvas(
    const CanvasMapping& mapping, QPointF anchor, double scale, const CanvasZoom& limits = {});

/// The middle of the device pixel that a point of the view lies in, where lines of one device pixel
/// are sharp.
MORRANT_UI_EXPORT QPointF middleOfPixel(QPointF point, double devicePixelRatio);

/// The mapping with its origin on the nearest device pixel, where the page's edges are sharp.
MORRANT_UI_EXPORT CanvasMapping
snappedToPixels(const CanvasMapping& mapping, double devicePixelRatio);
/// An area with all its edges on the nearest device pixels, and at least one of them in each
/// direction.
MORRANT_UI_EXPORT QRectF snappedToPixels(const QRectF& area, double devicePixelRatio);

} // namespace ui
