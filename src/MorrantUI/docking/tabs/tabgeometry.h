// SPDX-License-Identifier: Apache-2.0
#pragma once // internal: hosts have no use for it

#include <MorrantUI/morrantui_export.h>

#include <Qt>

#include <vector>

/// The arithmetic of a row of tabs that scrolls, in whole logical pixels.
///
/// A position is the distance from the outer edge of the first tab, in reading direction and
/// whatever is scrolled out of sight; an x is where that is in the header, from its left edge. A
/// gap is a place between tabs: gap 0 lies before the first tab, gap n behind the n-th.
namespace ui::tabs {

/// A tab's place along the row.
struct Span
{
    int start = 0; ///< position of the edge at which reading begins
    int length = 0;

    int end() const { return start + length; }
};

/// The part of the row that the header shows.
struct View
{
    int viewport = 0; ///< the header's width
    int content = 0;  ///< of all tabs and what lies between them
    int offset = 0;   ///< how much of the row's beginning is scrolled out of sight
    Qt::LayoutDirection direction = Qt::LeftToRight;
};

/// 0 for a row that fits.
MORRANT_UI_EXPORT int largestOffset(const View& view);

/// The nearest offset that leaves no empty space behind the last tab.
MORRANT_UI_EXPORT int boundedOffset(const View& view, int offset);

/// The x of the row's left edge.
MORRANT_UI_EXPORT int rowLeft(const View& view);

MORRANT_UI_EXPORT int positionAt(const View& view, int x);
MORRANT_UI_EXPORT int xAt(const View& view, int position);

/// The offset nearest to the present one that shows a tab, and `margin` pixels of its neighbours
/// where there are any. A tab that is wider than the header is shown from its beginning.
MORRANT_UI_EXPORT int offsetShowing(const View& view, const Span& tab, int margin);

/// Widths of the faded edges, no wider than what is hidden there.
struct Fades
{
    int leading = 0; ///< where reading begins
    int trailing = 0;
};
/// @param widest of one edge; both together never take more than the header's width
MORRANT_UI_EXPORT Fades fades(const View& view, int widest);

/// The gap nearest to a position. Exactly in the middle of a tab it is the one behind it.
MORRANT_UI_EXPORT int gapAt(const std::vector<Span>& tabs, int position);

/// The middle of a gap; at the ends the outer edge of the row. 0 without tabs.
MORRANT_UI_EXPORT int gapPosition(const std::vector<Span>& tabs, int gap);

/// The index that the tab `from` has after it was dropped into a gap; `from` itself for the gaps
/// beside it.
MORRANT_UI_EXPORT int indexAfterDrop(int from, int gap);

/// How far the row scrolls in one step while a tab is held at `x`: nothing in the middle, up to
/// `fastest` where a band of `band` pixels ends at the header's edge, and beyond. Negative towards
/// the beginning.
MORRANT_UI_EXPORT int edgeScroll(const View& view, int x, int band, int fastest);

} // namespace ui::tabs
