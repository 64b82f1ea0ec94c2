// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWindowList>

class QWindow;

/// What native.h needs of the window system, for windows that have a native handle. Each system's
/// folder implements it; what the system cannot do is left undone.
namespace morrant::native::system {

void setDarkTitleBar(QWindow& window);

/// Keeps a window above its owner and lets it share the owner's task-bar button.
void setOwner(QWindow& window, QWindow& owner);

/// Moves a window between the ordinary windows and those that lie above all of them, without
/// activating it. A window that comes down lies just above its owner, where the system lets us say.
void setAlwaysOnTop(QWindow& window, bool on);

/// The application's top-level windows as they lie, the topmost first; newest first where the
/// system does not tell.
QWindowList windowsFromTop();

} // namespace morrant::native::system
