// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QPoint>

#include <functional>

class QObject;
class QWidget;

/// How panels that are open only for a while go away. No input is grabbed: all of this looks at
/// events on their way.
namespace ui {

/// Whether a widget is `owner`, lies in it, or lies in a window that was opened from it, such as
/// its menus, dialogs and popovers. False for null.
MORRANT_UI_EXPORT bool belongsTo(const QWidget* widget, const QWidget* owner);

/// Told of a press outside.
/// @param pressed the widget that is about to get the press
/// @param position on screen
/// @return true keeps the press from it
using OutsidePress = std::function<bool(QWidget* pressed, QPoint position)>;

/// Calls back when the mouse, a pen or a finger is pressed in this application while the widget is
/// to be seen, anywhere but in what belongsTo() it. What is pressed while a menu or another popup
/// is open is meant for that popup, and does not count; neither does it while a modal dialog keeps
/// the widget waiting. The press comes before any change of focus that it causes, and is told once,
/// to whatever parents it goes on. The callback may delete the pressed widget; nobody gets it then.
///
/// Presses in other applications cannot be seen: see dismissOnDeactivation().
/// @return ends this when it is deleted; owned by the widget; null without widget or callback
MORRANT_UI_EXPORT QObject* dismissOnOutsidePress(QWidget* widget, OutsidePress dismiss);

/// Calls back when Escape, without modifiers, is pressed in the widget or in what lies in it and
/// has no use for it, also where the window has a shortcut for it. Repetitions of a key that is
/// held down are swallowed.
/// @return as above
MORRANT_UI_EXPORT QObject* dismissOnEscape(QWidget* widget, std::function<void()> dismiss);

/// Calls back when, after the widget's window or one that belongs to it was the active one, a
/// window becomes active that does not belong to it, or the whole application is left; a tenth of a
/// second later, when that has settled. A modal dialog that keeps the widget waiting does not
/// count.
/// @return as above
MORRANT_UI_EXPORT QObject* dismissOnDeactivation(QWidget* widget, std::function<void()> dismiss);

} // namespace ui
