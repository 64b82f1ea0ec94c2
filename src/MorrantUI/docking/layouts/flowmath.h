// SPDX-License-Identifier: Apache-2.0
#pragma once // internal: hosts have no use for it

#include <MorrantUI/docking/layouts/FlowAlignment.h>
#include <MorrantUI/morrantui_export.h>

#include <QRect>
#include <QSize>
#include <Qt>

#include <functional>
#include <vector>

/// The arithmetic of wrapping rows, in whole logical pixels.
namespace ui {

struct FlowItem
{
    QSize hint;
    QSize minimum;
    QSize maximum{16777215, 16777215};
    bool expands = false;              ///< takes a share of what is left of its row
    Qt::Alignment alignment = {};      ///< vertical, in the row; centred when empty
    bool fillsHeight = false;          ///< as high as its row
    std::function<int(int)> heightFor; ///< of an item whose height depends on its width
};

struct FlowRules
{
    int width = 0; ///< negative counts as 0
    int horizontalSpacing = 0;
    int verticalSpacing = 0;
    FlowAlignment rows = FlowAlignment::Leading;
    Qt::LayoutDirection direction = Qt::LeftToRight;
};

struct Flow
{
    std::vector<QRect> rects; ///< of the items, in their order, from 0, 0
    int height = 0;           ///< of all rows
    int rows = 0;
};

/// Wraps items into rows. Every row has at least one item; one that is too wide gets the width, but
/// no less than its minimum, which then sticks out at the trailing side.
MORRANT_UI_EXPORT Flow arrangeFlow(const std::vector<FlowItem>& items, const FlowRules& rules);

} // namespace ui
