// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QColor>
#include <QPointF>
#include <QRectF>

class QPainter;

/// The vocabulary of the application style, so that a host's own widget looks like the library's.
///
/// Lengths are logical pixels. Edges and lines lie on whole device pixels at any device ratio, as
/// long as the painter is not rotated. Colours come from the current theme at the time of drawing.
/// Every function leaves the painter's state as it was.
namespace ui {

inline constexpr double kCornerRadius = 4.0;      ///< of controls, logical pixels
inline constexpr double kSmallCornerRadius = 3.0; ///< of marks and rows inside a control
inline constexpr double kDisabledOpacity = 0.4;   ///< strength of what a disabled control draws

/// A rounded rectangle. An invalid or transparent colour draws nothing.
MORRANT_UI_EXPORT void fillRounded(
    QPainter& painter, const QRectF& rect, double radius, const QColor& fill);

/// Just the edge of a rounded rectangle, inside `rect`, its width rounded to device pixels. An
/// invalid or transparent colour draws nothing.
MORRANT_UI_EXPORT void strokeRounded(
    QPainter& painter, const QRectF& rect, double radius, const QColor& edge, double width = 1.0);

/// A rectangle without corners. Lines are thin rectangles; none is thinner than a device pixel.
MORRANT_UI_EXPORT void fillSharp(QPainter& painter, const QRectF& rect, const QColor& fill);

/// A rounded rectangle of the chequer that shows behind translucent colours: white and the theme's
/// "Base" in squares of 4 pixels.
MORRANT_UI_EXPORT void fillChequer(QPainter& painter, const QRectF& rect, double radius = 0.0);

/// The ring around what has the keyboard focus, 2 pixels wide inside `rect`, in "Accent1".
MORRANT_UI_EXPORT void drawFocusRing(
    QPainter& painter, const QRectF& rect, double radius = kCornerRadius);

/// The quiet ground of a row under the pointer, "RowHighlight2" at half strength. Text drawn over
/// it keeps its colour.
MORRANT_UI_EXPORT void drawHoverWash(
    QPainter& painter, const QRectF& rect, double radius = kSmallCornerRadius);

/// The line along one edge of what is selected among its like, such as the current tab: 2 pixels
/// inside `rect` in "Accent1", bent around that edge's two rounded corners.
MORRANT_UI_EXPORT void drawSelectionEdge(
    QPainter& painter, const QRectF& rect, Qt::Edge edge = Qt::TopEdge, bool enabled = true);

/// Where something that is dragged will be put between two others: a line of 2 pixels in "Accent1",
/// which runs across or down, with a dot of 6 pixels at its start.
MORRANT_UI_EXPORT void drawDropMark(QPainter& painter, const QPointF& start, const QPointF& end);

/// An open arrow head in the middle of `rect`, 8 by 4 pixels, shrunk to fit. Qt::NoArrow points
/// down.
MORRANT_UI_EXPORT void drawChevron(
    QPainter& painter, const QRectF& rect, Qt::ArrowType direction, const QColor& color);

/// The tick of check boxes and menu rows, filling the square `rect`.
MORRANT_UI_EXPORT void drawTick(QPainter& painter, const QRectF& rect, const QColor& color);

/// A cross in the middle of `rect`, 7 pixels across, as on closing buttons.
MORRANT_UI_EXPORT void drawCross(QPainter& painter, const QRectF& rect, const QColor& color);

} // namespace ui
