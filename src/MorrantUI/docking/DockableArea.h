// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QObject>

namespace ui::docking {

Q_NAMESPACE_EXPORT(MORRANT_UI_EXPORT)

/// The place on a window at which another window is docked.
enum class DockableArea : int
{
    None = 0,
    Right = 1,
    Top = 2,
    Left = 3,
    Bottom = 4,
    Center = 5, ///< the header strip: the windows become tabs
};
Q_ENUM_NS(DockableArea)

/// Whether docking at the area puts windows one above the other. Center counts as horizontal
/// wherever an orientation is compared (deliberate).
MORRANT_UI_EXPORT bool isVertical(DockableArea area);

/// Where the newcomer goes among the children of the group: -1 appends. Values that are no place
/// on a window give 0.
MORRANT_UI_EXPORT int insertIndex(DockableArea area);

/// Whether the value names a place on a window.
MORRANT_UI_EXPORT bool isPlace(DockableArea area);

} // namespace ui::docking

using ui::docking::DockableArea;
