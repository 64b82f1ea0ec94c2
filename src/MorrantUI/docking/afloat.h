// SPDX-License-Identifier: Apache-2.0
#pragma once

class QMargins;
class QPoint;
class QRect;
class QWidget;

/// What becomes of windows that float, on the screen and in the eyes of the window manager.
namespace ui::docking {

/// A window that is off the screen is minimised or maximised no more.
void makeUsualSize(QWidget& window);

/// One that is seen and fills its screen takes its usual size.
/// @return whether it did fill it
bool shrinkToUsualSize(QWidget& window);

/// The window manager's frame around a window; before there is one, one like its owner's.
QMargins frameOf(const QWidget& window);

/// Puts a window where it was (position with, size without the frame), as a whole on the screen
/// there. Nothing happens when that screen is gone.
void placeOnScreen(QWidget& window, const QRect& place);

/// Moves a window, with its frame, as a whole onto the screen that is nearest to a global point.
void keepOnScreen(QWidget& window, const QPoint& point);

/// Minimised no more, above the others, and active.
void bringToFront(QWidget& window);

} // namespace ui::docking
