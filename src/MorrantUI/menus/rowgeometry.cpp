// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/rowgeometry.h"

#include <algorithm>

namespace ui::menus {

namespace {

constexpr int kSubActionGap = 8; ///< before the first button

/// What lies behind the label.
int tailWidth(const RowParts& parts)
{
    const int buttons =
        parts.subActions > 0 ? parts.subActions * parts.subActionSide + kSubActionGap : 0;
    const int shortcut = parts.shortcutWidth > 0 ? parts.shortcutWidth + parts.shortcutGap : 0;
    return shortcut + buttons + parts.trailing;
}

} // namespace

RowPlaces rowPlaces(const RowParts& parts)
{
    const int height = parts.row.height();
    const int side = parts.subActionSide;
    const auto placed = [&parts, height](int left, int width) {
        const int shown = parts.rightToLeft ? parts.row.width() - left - width : left;
        return QRect(shown, 0, std::max(0, width), height);
    };
    RowPlaces places;
    places.image = placed(0, parts.textOffset);
    places.label =
        placed(parts.textOffset, parts.row.width() - tailWidth(parts) - parts.textOffset);
    int right = parts.row.width() - parts.trailing;
    for (int i = 0; i < parts.subActions; ++i) {
        const QRect column = placed(right - (parts.subActions - i) * side, side);
        places.subActions << QRect(column.left(), (height - side) / 2, side, side);
    }
    if (parts.subActions > 0) {
        right -= parts.subActions * side + kSubActionGap;
    }
    places.shortcut = placed(right - parts.shortcutWidth, parts.shortcutWidth);
    return places;
}

int rowWidth(const RowParts& parts, int labelWidth)
{
    return parts.textOffset + labelWidth + tailWidth(parts);
}

} // namespace ui::menus
