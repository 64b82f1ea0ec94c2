// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QString>

#include <functional>

class ContextMenu;
class QMenuBar;
class QPlainTextEdit;
class QPoint;
class QWidget;

/// What a host needs for menus of its own.
namespace ui {

/// A text as a row of a menu shows it: there "&" has a meaning.
MORRANT_UI_EXPORT QString menuText(QString text);
/// The text of a row as it is read: without the marks of its mnemonic and the shortcut behind a
/// tab.
MORRANT_UI_EXPORT QString plainMenuText(const QString& menuText);

/// Adds the rows of a menu that opens at a point of the widget.
using FillContextMenu = std::function<void(ContextMenu& menu, QPoint point)>;

/// Gives a widget a context menu: by the right button, the Menu key and Shift+F10, also in what
/// lies in it and has none of its own. It is filled each time, does not open without rows or while
/// the left button holds a drag, and goes when it closes. The last offer to a widget counts.
MORRANT_UI_EXPORT void offerContextMenu(QWidget& widget, FillContextMenu fill);

/// Adds Cut, Copy, Paste and Select All for a text field, as it can do them now.
MORRANT_UI_EXPORT void addEditRows(ContextMenu& menu, QPlainTextEdit& field);

/// Lets the shortcuts of a window's menu bar work in the windows that float above it as well, such
/// as floating panels, now and later. They stay off in dialogs, menus and pop-ups, and text fields
/// keep what they need. The actions should have the context Qt::WindowShortcut, which is Qt's
/// default.
MORRANT_UI_EXPORT void shareShortcuts(QMenuBar& bar);

} // namespace ui
