// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>
#include <QRect>

class QAction;
class QMenu;
class QWidget;
class WidgetMenuAction;

/// What menus with widgets as rows share.
namespace ui::menus {

/// Takes the highlight from one row to the active one, which may be of any kind or null.
/// @return whether it moved
bool moveHighlight(QPointer<WidgetMenuAction>& highlighted, QAction* active);

/// Gives an open menu that QMenu has made too high for its screen, as it does with every change of
/// a row, its place on the screen again; it goes on scrolling.
void keepOnScreen(QMenu& menu);

/// The same for a menu that opens at a point outside of every screen, as below a window's lower
/// part: QMenu gives it no height there.
void bringOntoScreen(QMenu& menu);

/// Lets a menu measure its rows again: a widget's size has changed.
void layOutAgain(QMenu& menu);

/// The part of a menu that no scroll arrow takes; below an arrow a row may go on unseen.
QRect freeOfArrows(const QMenu& menu);

/// Whether the mouse is on a line between rows, which a click neither chooses nor closes the menu
/// by: QMenu would trigger it.
bool isOnSeparator(const QMenu& menu, QPoint position);

/// Gives the focus to what can have it in a row's widget, as QMenu does where its own keys lead.
void focusRow(const QAction& row);

/// Moves the focus to the next thing in a row's widget that Tab stops at, or to the one before.
/// @return false where there is none, or nothing in the row has the focus
bool stepInRow(const QAction* row, bool next);

/// Takes the focus to a menu, unless something in it has it already.
void claimFocus(QMenu& menu);

/// Gives the focus from a widget in a menu, or what lies in it, back to the menu.
void takeFocusFrom(QWidget& widget);

/// Rows of an overlong menu leave the scroll arrows free, which would otherwise lie below them.
void clipWidgetRows(QMenu& menu);

/// The menu in which `menu` is the open submenu; null if there is none.
QMenu* openerOf(const QMenu& menu);

/// Closes a menu and those that it was opened from.
void closeAll(QMenu* menu);

/// Closes a menu that is about to open when a window is hidden or minimised: its rows act on what
/// lies there.
/// Windows that are popups themselves, and null, are left alone.
void closeWith(QMenu& menu, QWidget* window);

/// What the widgets of a menu's rows hold may have changed since it was last open.
void updateRows(const QMenu& menu);

/// A menu can be no wider than the narrowest screen.
void limitToScreens(QMenu& menu);

} // namespace ui::menus
