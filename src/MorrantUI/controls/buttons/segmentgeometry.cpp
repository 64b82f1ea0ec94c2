// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/buttons/segmentgeometry.h"

#include <MorrantUI/theme/painting.h>

#include <algorithm>
#include <numeric>

namespace ui {

std::vector<QRect> segmentRects(
    const QRect& row, const std::vector<int>& wishes, Qt::LayoutDirection direction)
{
    std::vector<QRect> rects;
    const auto atLeastOne = [](qint64 sum, int wish) { return sum + std::max(1, wish); };
    const qint64 all = std::accumulate(wishes.begin(), wishes.end(), qint64{0}, atLeastOne);
    qint64 before = 0;
    // Both edges come from running sums, so that rounding leaves neither gaps nor overlaps.
    for (const int wish : wishes) {
        const int left = static_cast<int>(before * row.width() / all);
        before = atLeastOne(before, wish);
        const int right = static_cast<int>(before * row.width() / all);
        const int x = direction == Qt::RightToLeft ? row.width() - right : left;
        rects.emplace_back(row.left() + x, row.top(), right - left, row.height());
    }
    return rects;
}

SegmentEnds segmentEnds(int index, int count, Qt::LayoutDirection direction)
{
    const bool first = index == 0;
    const bool last = index == count - 1;
    return direction == Qt::RightToLeft ? SegmentEnds{last, first} : SegmentEnds{first, last};
}

QPainterPath segmentShape(const QRectF& rect, SegmentEnds ends, double radius)
{
    const double left = ends.left ? radius : 0.0;
    const double right = ends.right ? radius : 0.0;
    return radiusClip({{{left, left}, {right, right}, {right, right}, {left, left}}}, rect);
}

} // namespace ui
