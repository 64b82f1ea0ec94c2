// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QList>
#include <QRect>
#include <Qt>

#include <span>

class QObject;
class QWidget;

/// How the arrow keys get from one thing to the next in a panel.
namespace ui {

/// What in a widget the Tab key stops at now, in its order: visible, enabled and not behind a modal
/// dialog. Without the widget itself and without windows that lie in it. Empty for null.
MORRANT_UI_EXPORT QList<QWidget*> tabStops(const QWidget* container);

/// The index of the rectangle that one comes to from `from` in a direction; -1 when nothing lies
/// there. What stands in the same row or column comes before what is merely near.
MORRANT_UI_EXPORT int neighbourInDirection(
    std::span<const QRect> rectangles, const QRect& from, Qt::ArrowType direction);

/// Moves the focus to the tab stop of `container` that lies in a direction from what has the focus
/// there; to the first one when nothing there has it.
/// @return whether the focus has moved
MORRANT_UI_EXPORT bool moveFocusInDirection(QWidget* container, Qt::ArrowType direction);

/// Moves the focus among the tab stops of `container` by so many; the first one comes after the
/// last. When nothing there has the focus, to the first, or backwards to the last.
/// @return whether the focus has moved
MORRANT_UI_EXPORT bool moveFocusBy(QWidget* container, int steps);

/// Makes a list of a container: the arrow keys of its orientation step through its tab stops, round
/// the ends; Home and End go to the first and the last. Keys that mean something to what has the
/// focus, as in a field or a slider, stay there; plain buttons have no use for arrows.
/// @return ends this when it is deleted; owned by the container; null without one
MORRANT_UI_EXPORT QObject* installListNavigation(
    QWidget* container, Qt::Orientation orientation = Qt::Vertical);

/// The same for things that do not stand in a row: arrows go by moveFocusInDirection().
MORRANT_UI_EXPORT QObject* installArrowNavigation(QWidget* container);

} // namespace ui
