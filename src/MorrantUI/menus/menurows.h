#pragma once

#include <QPointer>

class QAction;
class QMenu;
class WidgetMenuAction;

/// What menus with widgets as rows share.
namespace ui::menus {

/// Takes the highlight from one row to the active one, which may be of any kind or null.
/// @return whether it moved
bool moveHighlight(QPointer<WidgetMenuAction>& highlighted, QAction* active);

/// Gives an open menu that QMenu has made too high for its screen, as it does with every change of
/// a row, its place on the screen again; it goes on scrolling.
void keepOnScreen(QMenu& menu);

/// Lets a menu measure its rows again: a widget's size has changed.
void layOutAgain(QMenu& menu);

/// Rows of an overlong menu leave the scroll arrows free, which would otherwise lie below them.
void clipWidgetRows(QMenu& menu);

/// The menu in which `menu` is the open submenu; null if there is none.
QMenu* openerOf(const QMenu& menu);

/// Closes a menu and those that it was opened from.
void closeAll(QMenu* menu);

/// A menu can be no wider than the narrowest screen.
void limitToScreens(QMenu& menu);

} // namespace ui::menus
