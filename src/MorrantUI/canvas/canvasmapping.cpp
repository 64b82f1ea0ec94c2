// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/canvas/canvasmapping.h"

#include <algorithm>
#include <cmath>

namespace ui {

namespace {

QPointF nearestPixel(QPointF point, double devicePixelRatio)
{
    const QPointF pixel = point * devicePixelRatio;
    return QPointF(std::round(pixel.x()), std::round(pixel.y())) / devicePixelRatio;
}

} // namespace

double CanvasZoom::limited(double scale) const
{
    return std::min(most, std::max(least, scale)); // in the order that drops what is not a number
}

CanvasMapping centredOnCanvas(QSizeF view, QSizeF page, double scale, const CanvasZoom& limits)
{
    const double limited = limits.limited(scale);
    const QSizeF left = view - page * limited;
    return {limited, QPointF(left.width(), left.height()) / 2.0};
}

CanvasMapping fittedOnCanvas(QSizeF view, QSizeF page, const CanvasZoom& limits)
{
    const double margin = std::min({kCanvasMargin, view.width() / 8.0, view.height() / 8.0});
    const double horizontal = (view.width() - 2.0 * margin) / page.width();
    const double vertical = (view.height() - 2.0 * margin) / page.height();
    return centredOnCanvas(view, page, std::min(horizontal, vertical), limits);
}

CanvasMapping zoomedOnCanvas(
    const CanvasMapping& mapping, QPointF anchor, double scale, const CanvasZoom& limits)
{
    const double limited = limits.limited(scale);
    return {limited, anchor - (anchor - mapping.origin) * (limited / mapping.scale)};
}

QPointF middleOfPixel(QPointF point, double devicePixelRatio)
{
    const QPointF pixel = point * devicePixelRatio;
    return QPointF(std::floor(pixel.x()) + 0.5, std::floor(pixel.y()) + 0.5) / devicePixelRatio;
}

CanvasMapping snappedToPixels(const CanvasMapping& mapping, double devicePixelRatio)
{
    return {mapping.scale, nearestPixel(mapping.origin, devicePixelRatio)};
}

QRectF snappedToPixels(const QRectF& area, double devicePixelRatio)
{
    const QPointF corner = nearestPixel(area.topLeft(), devicePixelRatio);
    const QPointF size = nearestPixel(area.bottomRight(), devicePixelRatio) - corner;
    const double pixel = 1.0 / devicePixelRatio;
    return {corner, QSizeF(std::max(size.x(), pixel), std::max(size.y(), pixel))};
}

} // namespace ui
