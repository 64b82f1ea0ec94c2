// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/scene/viewfit.h"

#include <algorithm>
#include <cmath>

namespace ui {

std::optional<double> horizontalFit(const QRectF& rect, QSize viewport)
{
    const double usable = viewport.width() - kFitMargin;
    if (usable < 1.0 || viewport.height() <= 0) {
        return std::nullopt;
    }
    const double factor = usable / rect.width();
    if (!std::isfinite(factor) || !(factor > 0.0)) {
        return std::nullopt;
    }
    return std::clamp(factor, kLeastZoom, kMostZoom);
}

QRectF spanned(const QRectF& a, const QRectF& b)
{
    return {
        QPointF(std::min(a.left(), b.left()), std::min(a.top(), b.top())),
        QPointF(std::max(a.right(), b.right()), std::max(a.bottom(), b.bottom()))};
}

double minimumScale(int viewWidth, const FrameRange& playback)
{
    return viewWidth / std::max(frameSpan(playback), 1.0) * kMinScaleShare;
}

QRectF sceneRectOf(double first, double last, int height)
{
    return {first, 0.0, last - first, static_cast<double>(height)};
}

QRectF scaledFrameRect(double first, double last, double scale, int height)
{
    return {first, 0.0, (last - first + kFramesBeyondEnd) * scale, static_cast<double>(height)};
}

QRectF framedRange(const FrameRange& range, double scale, const QRectF& items)
{
    const double margin = std::max(frameSpan(range) * kFitMarginShare * scale, 1.0);
    const double left = range.first - margin;
    return {left, items.y(), range.second + margin - left, items.height()};
}

QRectF evenBackground(const QRectF& visible)
{
    QRectF rect = visible;
    rect.setLeft(std::floor(visible.left() / 2.0) * 2.0);
    return rect;
}

} // namespace ui
