// SPDX-License-Identifier: Apache-2.0
#pragma once

class DockableWindow;
class QKeyEvent;
class QPoint;
class QWidget;

/// What dockable windows make of keys that nothing inside them has a use for.
namespace ui::docking {

/// Goes to the next or the previous panel, if that is what the key means.
/// @return whether it did
bool walkPanels(const QKeyEvent& key);

/// Maximises the panel in a window, or the one in front there, or restores what that has hidden, if
/// that is what the key means.
/// @return whether it did
bool maximizeByKey(const QKeyEvent& key, DockableWindow& window);

/// Asks a widget for its menu, as the Menu key does.
/// @param position in the widget
/// @return whether it had one
bool requestMenu(QWidget& widget, const QPoint& position);

/// Asks what has the focus for its menu if the key is Shift+F10, which not every system does by
/// itself as it does for the Menu key.
/// @return whether something had a menu
bool askForMenu(const QKeyEvent& key);

/// Where the window's menu opens when a key asks for it: at the lower edge of its header or tab,
/// where the title begins. A global position.
QPoint menuPlace(DockableWindow& window);

} // namespace ui::docking
