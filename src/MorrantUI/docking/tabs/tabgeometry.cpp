// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/tabs/tabgeometry.h"

#include <algorithm>

namespace ui::tabs {

int largestOffset(const View& view)
{
    return std::max(0, view.content - view.viewport);
}

int boundedOffset(const View& view, int offset)
{
    return std::clamp(offset, 0, largestOffset(view));
}

int rowLeft(const View& view)
{
    const bool mirrored = view.direction == Qt::RightToLeft;
    return mirrored ? view.viewport + view.offset - view.content : -view.offset;
}

int positionAt(const View& view, int x)
{
    return view.offset + (view.direction == Qt::RightToLeft ? view.viewport - x : x);
}

int xAt(const View& view, int position)
{
    const int seen = position - view.offset;
    return view.direction == Qt::RightToLeft ? view.viewport - seen : seen;
}

int offsetShowing(const View& view, const Span& tab, int margin)
{
    int first = std::max(0, tab.start - margin);
    int last = std::min(view.content, tab.end() + margin);
    if (last - first > view.viewport) {
        first = tab.start;
        last = std::min(tab.end(), tab.start + view.viewport);
    }
    int offset = view.offset;
    if (first < offset) {
        offset = first;
    } else if (last > offset + view.viewport) {
        offset = last - view.viewport;
    }
    return boundedOffset(view, offset);
}

Fades fades(const View& view, int widest)
{
    const int limit = std::max(0, std::min(widest, view.viewport / 2));
    const int offset = boundedOffset(view, view.offset);
    return {
        .leading = std::min(limit, offset),
        .trailing = std::min(limit, largestOffset(view) - offset),
    };
}

int gapAt(const std::vector<Span>& tabs, int position)
{
    const auto passed = [position](const Span& tab) {
        return tab.start + tab.length / 2.0 <= position;
    };
    return static_cast<int>(std::count_if(tabs.begin(), tabs.end(), passed));
}

int gapPosition(const std::vector<Span>& tabs, int gap)
{
    if (tabs.empty()) {
        return 0;
    }
    const int count = static_cast<int>(tabs.size());
    if (gap <= 0) {
        return tabs.front().start;
    }
    if (gap >= count) {
        return tabs.back().end();
    }
    const auto behind = static_cast<std::size_t>(gap);
    return (tabs[behind - 1].end() + tabs[behind].start) / 2;
}

int indexAfterDrop(int from, int gap)
{
    return gap > from ? gap - 1 : gap; // the tab itself no longer counts
}

int edgeScroll(const View& view, int x, int band, int fastest)
{
    const int depth = std::min(band, view.viewport / 2);
    if (depth <= 0) {
        return 0;
    }
    const int left = depth - x;
    const int right = depth - (view.viewport - x);
    const int into = std::min(depth, std::max(left, right));
    if (into <= 0) {
        return 0;
    }
    const int step = std::max(1, fastest * into / depth);
    const bool towardsBeginning = (left > right) == (view.direction == Qt::LeftToRight);
    const int offset = boundedOffset(view, view.offset + (towardsBeginning ? -step : step));
    return offset - view.offset;
}

} // namespace ui::tabs
