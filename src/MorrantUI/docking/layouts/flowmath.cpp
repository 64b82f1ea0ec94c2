// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/layouts/flowmath.h"

#include <algorithm>
#include <span>

namespace ui {

namespace {

/// A row of the flow: which items, and how much of the width they use.
struct Row
{
    std::size_t first = 0;
    std::size_t count = 0;
    int used = 0; ///< widths and spacings
    int height = 0;
};

int clampedWidth(const FlowItem& item, int available)
{
    const int least = std::max(0, item.minimum.width());
    const int wanted = std::min(std::max(item.hint.width(), least), item.maximum.width());
    return std::max(std::min(wanted, available), least);
}

int heightOf(const FlowItem& item, int width)
{
    const int wanted = item.heightFor ? item.heightFor(width) : item.hint.height();
    return std::max(0, std::min(std::max(wanted, item.minimum.height()), item.maximum.height()));
}

/// Hands what is left of the row to the items that expand, in equal shares up to their maximum.
void expandRow(const std::vector<FlowItem>& items, std::span<int> widths, Row& row, int available)
{
    int left = available - row.used;
    std::vector<std::size_t> growing;
    for (std::size_t i = 0; i < row.count; ++i) {
        if (items[row.first + i].expands) {
            growing.push_back(i);
        }
    }
    // Each round either spends everything or takes an item that is full out of the next one.
    while (left > 0 && !growing.empty()) {
        std::vector<std::size_t> next;
        const int share = left / static_cast<int>(growing.size());
        int spare = left % static_cast<int>(growing.size());
        for (const std::size_t i : growing) {
            const int room = std::max(0, items[row.first + i].maximum.width() - widths[i]);
            const int gift = std::min(room, share + (spare > 0 ? 1 : 0));
            spare -= spare > 0 ? 1 : 0;
            widths[i] += gift;
            left -= gift;
            if (gift < room) {
                next.push_back(i);
            }
        }
        if (next.size() == growing.size()) {
            break;
        }
        growing = std::move(next);
    }
    row.used = available - left;
}

int topOf(const FlowItem& item, int height, int rowHeight)
{
    if (item.alignment.testFlag(Qt::AlignTop)) {
        return 0;
    }
    return item.alignment.testFlag(Qt::AlignBottom) ? rowHeight - height : (rowHeight - height) / 2;
}

int leadingRoom(const FlowRules& rules, int used, int width)
{
    const int room = std::max(0, width - used);
    switch (rules.rows) {
    case FlowAlignment::Center: return room / 2;
    case FlowAlignment::Trailing: return room;
    case FlowAlignment::Leading: break;
    }
    return 0;
}

std::vector<Row> brokenIntoRows(const std::vector<int>& widths, int available, int spacing)
{
    std::vector<Row> rows;
    for (std::size_t i = 0; i < widths.size(); ++i) {
        const bool fits = !rows.empty() && rows.back().used + spacing + widths[i] <= available;
        if (fits) {
            rows.back().used += spacing + widths[i];
            ++rows.back().count;
        } else {
            rows.push_back({i, 1, widths[i], 0});
        }
    }
    return rows;
}

} // namespace

Flow arrangeFlow(const std::vector<FlowItem>& items, const FlowRules& rules)
{
    const int available = std::max(0, rules.width);
    std::vector<int> widths;
    widths.reserve(items.size());
    for (const FlowItem& item : items) {
        widths.push_back(clampedWidth(item, available));
    }

    Flow flow;
    flow.rects.resize(items.size());
    int top = 0;
    for (Row& row : brokenIntoRows(widths, available, rules.horizontalSpacing)) {
        const std::span<int> rowWidths(widths.data() + row.first, row.count);
        expandRow(items, rowWidths, row, available);
        std::vector<int> heights;
        for (std::size_t i = 0; i < row.count; ++i) {
            heights.push_back(heightOf(items[row.first + i], rowWidths[i]));
            row.height = std::max(row.height, heights.back());
        }
        int x = leadingRoom(rules, row.used, available);
        for (std::size_t i = 0; i < row.count; ++i) {
            const FlowItem& item = items[row.first + i];
            const int height =
                item.fillsHeight ? std::min(row.height, item.maximum.height()) : heights[i];
            const int left = rules.direction == Qt::RightToLeft ? available - x - rowWidths[i] : x;
            flow.rects[row.first + i] = {
                left, top + topOf(item, height, row.height), rowWidths[i], height};
            x += rowWidths[i] + rules.horizontalSpacing;
        }
        top += row.height + rules.verticalSpacing;
        flow.height = top - rules.verticalSpacing;
        ++flow.rows;
    }
    return flow;
}

} // namespace ui
