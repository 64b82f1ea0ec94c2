// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QList>

class DockableWindow;
class QWidget;

/// How the keyboard gets from panel to panel.
///
/// F6 goes to the next panel and Shift+F6 to the one before, from anywhere in a dockable window
/// where nothing else has a use for these keys and the window has no shortcut for them. The Menu
/// key, or Shift+F10, opens the menu of the panel's header, unless what has the focus has a menu of
/// its own.
namespace ui {

/// The panels that can be seen, as they are read: those of gMainWindow by their places in the tree,
/// of tabs only the active one's, then those that float, the first to float first. Without
/// minimised and closing windows.
MORRANT_UI_EXPORT QList<DockableWindow*> panelsInOrder();

/// Gives a panel the keyboard focus, where it last was in the content, or else in the first widget
/// there that the Tab key would stop at, or else in the header or tab. Its window becomes the
/// active one.
/// @return false, and nothing is done, unless the panel is in panelsInOrder()
MORRANT_UI_EXPORT bool focusPanel(DockableWindow* panel);

/// focusPanel() for the panel after the one with the focus, a header or tab being part of its
/// panel; the first one comes after the last. From outside of all panels it goes to the first.
/// Nothing happens while a mouse button is down or while a popup or a modal dialog is open.
/// @return whether a panel has the focus now
MORRANT_UI_EXPORT bool focusNextPanel();
/// The same for the panel before; from outside to the last.
MORRANT_UI_EXPORT bool focusPreviousPanel();

/// Lets F6 and Shift+F6 also work in a widget around or beside the panels, such as the host's
/// window that gMainWindow lies in, and in what lies in that widget and has no use for them. Null
/// is ignored.
MORRANT_UI_EXPORT void addPanelNavigation(QWidget* widget);

} // namespace ui
