// SPDX-License-Identifier: Apache-2.0
#include "viewmapping.h"

#include <algorithm>
#include <cmath>

namespace studio {

ViewMapping centred(QSizeF view, QSizeF composition, double scale)
{
    const double limited = std::clamp(scale, kSmallestScale, kLargestScale);
    const QSizeF left = view - composition * limited;
    return {limited, QPointF(left.width(), left.height()) / 2.0};
}

ViewMapping fitted(QSizeF view, QSizeF composition)
{
    const double margin = std::min({kFitMargin, view.width() / 8.0, view.height() / 8.0});
    const double horizontal = (view.width() - 2.0 * margin) / composition.width();
    const double vertical = (view.height() - 2.0 * margin) / composition.height();
    return centred(view, composition, std::min(horizontal, vertical));
}

ViewMapping zoomedAt(const ViewMapping& mapping, QPointF anchor, double scale)
{
    const double limited = std::clamp(scale, kSmallestScale, kLargestScale);
    return {limited, anchor - (anchor - mapping.origin) * (limited / mapping.scale)};
}

QPointF compositionPoint(const ViewMapping& mapping, QPointF point)
{
    return (point - mapping.origin) / mapping.scale;
}

QPointF middleOfPixel(QPointF point, double devicePixelRatio)
{
    const QPointF pixel = point * devicePixelRatio;
    return QPointF(std::floor(pixel.x()) + 0.5, std::floor(pixel.y()) + 0.5) / devicePixelRatio;
}

QPointF snappedToPixels(QPointF point, double devicePixelRatio)
{
    return QPointF(
               std::round(point.x() * devicePixelRatio), std::round(point.y() * devicePixelRatio))
           / devicePixelRatio;
}

} // namespace studio
