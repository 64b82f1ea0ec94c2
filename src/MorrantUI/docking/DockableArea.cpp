// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/DockableArea.h"

#include <array>

namespace ui::docking {

bool isVertical(DockableArea area)
{
    return area == DockableArea::Top || area == DockableArea::Bottom;
}

int insertIndex(DockableArea area)
{
    constexpr std::array kIndices{-1, 0, 0, -1, -1}; // of the area less one
    return isPlace(area) ? kIndices[static_cast<std::size_t>(area) - 1] : 0;
}

bool isPlace(DockableArea area)
{
    return area >= DockableArea::Right && area <= DockableArea::Center;
}

} // namespace ui::docking
