// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

class DockableWindow;

/// What concerns the arrangement of all panels.
namespace ui {

/// Locked, the user rearranges nothing: panels, tabs and splitter handles are not dragged, double
/// clicks on them do nothing, and "Undock" and "Close" in the menus of headers are off. What the
/// host does goes on, and so does a drag that has begun. Unlocked at first.
MORRANT_UI_EXPORT void setLayoutLocked(bool locked);
MORRANT_UI_EXPORT bool isLayoutLocked();

/// Hides everything in a panel's top-level window but the panel, or the tabs it is one of, until
/// restorePanels(). Whatever docks, leaves or is dragged ends it, too. By key it is Ctrl+F10, there
/// and back, where nothing in the panel uses that. Another panel that was maximised is restored
/// first.
/// @return false if there was nothing to hide, the panel is not in panelsInOrder(), or what was
/// hidden has ended it at once
MORRANT_UI_EXPORT bool maximizePanel(DockableWindow* panel);
/// Shows what maximizePanel() has hidden, with the sizes of then.
MORRANT_UI_EXPORT void restorePanels();
/// Null if none is, or it has died.
MORRANT_UI_EXPORT DockableWindow* maximizedPanel();

} // namespace ui
