#pragma once

#include <QColor>
#include <QPainterPath>
#include <QRectF>

class QPainter;

namespace ui::style {

inline constexpr double kRadius = 4.0;      ///< corners of controls, logical pixels
inline constexpr double kSmallRadius = 3.0; ///< corners of marks and rows inside a control

/// Gives a painter its state back.
class PainterState
{
public:
    explicit PainterState(QPainter& painter);
    ~PainterState();
    Q_DISABLE_COPY_MOVE(PainterState)

private:
    QPainter& m_painter;
};

/// A rounded rectangle on whole device pixels. An invalid or transparent colour draws nothing.
void fillRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& fill);

/// Just the edge of a rounded rectangle, inside `rect`, `width` logical pixels rounded to device
/// pixels.
void strokeRounded(
    QPainter& painter, const QRectF& rect, double radius, const QColor& edge, double width = 1.0);

/// The ring around what has the keyboard focus, drawn inside `rect`.
void drawFocusRing(QPainter& painter, const QRectF& rect, double radius = kRadius);

/// A rectangle without corners on whole device pixels; lines are thin rectangles.
void fillSharp(QPainter& painter, const QRectF& rect, const QColor& fill);

/// An open arrow head in the middle of `rect`, 8 × 4 logical pixels, shrunk to fit.
void drawChevron(
    QPainter& painter, const QRectF& rect, Qt::ArrowType direction, const QColor& color);

/// The tick of check boxes and menu rows, filling the square `rect`.
void drawTick(QPainter& painter, const QRectF& rect, const QColor& color);

/// A cross in the middle of `rect`, 7 logical pixels across, as on closing buttons.
void drawCross(QPainter& painter, const QRectF& rect, const QColor& color);

/// The largest square in the middle of `rect`, at most `side` wide.
QRectF centeredSquare(const QRectF& rect, double side);

} // namespace ui::style
