// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>
#include <QRect>

/// Where the parts of a menu row lie, in logical pixels within the row.
namespace ui::menus {

struct RowParts
{
    QSize row;
    int textOffset = 0;    ///< the column of ticks and pictures, before the text
    int shortcutWidth = 0; ///< 0: no shortcut
    int shortcutGap = 0;   ///< from the text to the shortcut, at least
    int subActions = 0;    ///< how many are shown
    int subActionSide = 0;
    int trailing = 0; ///< left free behind everything
    bool rightToLeft = false;
};

struct RowPlaces
{
    QRect image;
    QRect label; ///< what is left for the text, which may be too narrow for it
    QRect shortcut;
    QList<QRect> subActions;
};

RowPlaces rowPlaces(const RowParts& parts);

/// The least width of a row in which a label of `labelWidth` is shown whole.
int rowWidth(const RowParts& parts, int labelWidth);

} // namespace ui::menus
