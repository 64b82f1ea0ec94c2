// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <string>

class QWidget;

/// Services of the window system that Qt has no word for. A null widget is ignored everywhere, and
/// so is a widget while it is not a window of its own.
namespace morrant::native {

/// Gives a window a dark title bar, in place of the light one of the system's default.
///
/// Never makes a native window by itself, since that would make every sibling of the widget native
/// too: a window that has none yet gets its dark bar just before it first shows. The wish outlives
/// a native window that Qt has to make anew, and changes of the application's palette. Systems that
/// know no dark title bars are left alone.
MORRANT_UI_EXPORT void setDarkTitleBar(QWidget* window);

/// Lets a window float above all other windows, those of other applications too, or ends that.
///
/// A floating window belongs to the window of its Qt parent, when it has one: it stays above it,
/// is minimised with it and has no task-bar button. Ending the floating keeps it there; it only
/// lets other applications cover both again. While a modal dialog blocks the window it does not
/// float, so that it cannot cover the dialog.
///
/// The window is neither activated nor shown, and its window flags stay as they are. One that is
/// not shown yet floats as soon as it is.
MORRANT_UI_EXPORT void setFloating(QWidget* window, bool floating);

/// Shows a window, out of its minimised state if it is in that, and asks for it to become the
/// active one, above its neighbours. A system that guards the user's focus may only mark it as
/// wanting attention.
MORRANT_UI_EXPORT void activateWindow(QWidget* window);

/// Registers the fonts of a file for this process; nothing is installed. A file that is registered
/// already is not read again.
///
/// @param utf8Path  a file path, search-path prefixes allowed
/// @return false for a file that is missing or is not a font, and before there is a QGuiApplication
MORRANT_UI_EXPORT bool registerFontFile(const std::string& utf8Path);

} // namespace morrant::native
