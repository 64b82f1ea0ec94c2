// SPDX-License-Identifier: Apache-2.0
#pragma once // internal: hosts have no use for it

#include <MorrantUI/morrantui_export.h>

#include <QPainterPath>
#include <QRect>
#include <QRectF>

#include <vector>

/// How a row of segments is divided and cut, in logical pixels.
namespace ui {

/// Divides `row` into one rectangle a segment, in reading order, without gaps: room to spare or
/// missing is shared in proportion to the wishes. Right to left the first one is at the right.
/// @param wishes preferred widths; less than 1 counts as 1
MORRANT_UI_EXPORT std::vector<QRect> segmentRects(
    const QRect& row, const std::vector<int>& wishes, Qt::LayoutDirection direction);

/// Which ends of the row a segment is at, as drawn: a single one is at both.
struct SegmentEnds
{
    bool left = true;
    bool right = true;
};
MORRANT_UI_EXPORT SegmentEnds segmentEnds(int index, int count, Qt::LayoutDirection direction);

/// A segment's outline: corners are round only where the row ends.
MORRANT_UI_EXPORT QPainterPath segmentShape(const QRectF& rect, SegmentEnds ends, double radius);

} // namespace ui
