// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Qt>

class QKeyEvent;

/// What the keys mean to a row of tabs.
namespace ui::tabs {

enum class Command
{
    None,
    SelectPrevious,
    SelectNext,
    SelectFirst,
    SelectLast,
    ScrollBack,
    ScrollOn,
    MoveBack, ///< the current tab, towards the beginning
    MoveOn,
    Rename,
};

/// @param direction of the layout: arrows mean what they point at
Command commandOf(const QKeyEvent& event, Qt::LayoutDirection direction);

} // namespace ui::tabs
