// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QPoint>
#include <QRect>

#include <span>

class QScreen;
class QWidget;

/// The screen that holds a global point, or else the nearest one; null when there is no screen.
MORRANT_UI_EXPORT QScreen* getClosestScreenAt(const QPoint& globalPoint);

namespace qtutils {

/// The widget of this application at a global point, the innermost one; null if there is none.
MORRANT_UI_EXPORT QWidget* findWidgetAt(const QPoint& globalPoint);

} // namespace qtutils

namespace ui {

/// The index of the rectangle that holds a point, or else of the nearest one by straight distance;
/// the first one of equals. Empty rectangles do not count; -1 when there is no other.
MORRANT_UI_EXPORT int closestRectangle(std::span<const QRect> rectangles, QPoint point);

/// The device pixel ratio (1.0, 1.5, 2.0, ...) of the screen closest to the widget's top-left
/// corner, not dots per inch: the name is kept for its callers. Without a screen it is the widget's
/// own ratio, and 1.0 for a null widget.
MORRANT_UI_EXPORT double getMonitorDPI(QWidget* widget);

} // namespace ui
