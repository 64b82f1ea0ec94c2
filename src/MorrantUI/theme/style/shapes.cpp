#include "MorrantUI/theme/style/shapes.h"

#include "MorrantUI/theme/style/pixelgrid.h"
#include "MorrantUI/theme/style/shades.h"

#include <QPainter>
#include <QPen>

#include <algorithm>

namespace ui::style {

namespace {

constexpr double kMarkWidth = 1.5;      ///< stroke of chevrons, ticks and crosses
constexpr double kFocusRingWidth = 2.0; ///< logical pixels

QPen markPen(const QColor& color, double width = kMarkWidth)
{
    return QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

void strokePath(QPainter& painter, const QPainterPath& path, const QPen& pen)
{
    const PainterState state(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(path, pen);
}

double rotation(Qt::ArrowType direction)
{
    switch (direction) {
    case Qt::LeftArrow: return 90.0;
    case Qt::UpArrow: return 180.0;
    case Qt::RightArrow: return 270.0;
    default: return 0.0;
    }
}

} // namespace

PainterState::PainterState(QPainter& painter)
    : m_painter(painter)
{
    m_painter.save();
}

PainterState::~PainterState()
{
    m_painter.restore();
}

void fillRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& fill)
{
    if (!fill.isValid() || fill.alpha() == 0) {
        return;
    }
    const PainterState state(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(PixelGrid(painter).snap(rect), radius, radius);
}

void strokeRounded(
    QPainter& painter, const QRectF& rect, double radius, const QColor& edge, double width)
{
    if (!edge.isValid() || edge.alpha() == 0) {
        return;
    }
    const PixelGrid grid(painter);
    const double line = grid.line(width);
    const QRectF outer = grid.snap(rect);
    const double innerRadius = std::max(0.0, radius - line);
    // Filled between two outlines: the ends of a stroke of fractional width miss the pixels' edges.
    QPainterPath ring;
    ring.setFillRule(Qt::OddEvenFill);
    ring.addRoundedRect(outer, radius, radius);
    ring.addRoundedRect(outer.adjusted(line, line, -line, -line), innerRadius, innerRadius);
    const PainterState state(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(ring, edge);
}

void drawFocusRing(QPainter& painter, const QRectF& rect, double radius)
{
    strokeRounded(painter, rect, radius, focusColor(), kFocusRingWidth);
}

void fillSharp(QPainter& painter, const QRectF& rect, const QColor& fill)
{
    const PainterState state(painter);
    painter.setRenderHint(QPainter::Antialiasing, false);
    const PixelGrid grid(painter);
    QRectF target = grid.snap(rect);
    // A line thinner than half a device pixel would be rounded away.
    target.setWidth(std::max(target.width(), grid.line(0.0)));
    target.setHeight(std::max(target.height(), grid.line(0.0)));
    painter.fillRect(target, fill);
}

void drawChevron(
    QPainter& painter, const QRectF& rect, Qt::ArrowType direction, const QColor& color)
{
    const double half = std::min({4.0, rect.width() / 3, rect.height() / 3});
    QPainterPath path;
    path.moveTo(-half, -half / 2);
    path.lineTo(0, half / 2);
    path.lineTo(half, -half / 2);
    QTransform place = QTransform::fromTranslate(rect.center().x(), rect.center().y());
    place.rotate(rotation(direction));
    strokePath(painter, place.map(path), markPen(color));
}

void drawTick(QPainter& painter, const QRectF& rect, const QColor& color)
{
    QPainterPath path;
    path.moveTo(rect.left() + rect.width() * 0.24, rect.top() + rect.height() * 0.52);
    path.lineTo(rect.left() + rect.width() * 0.43, rect.top() + rect.height() * 0.71);
    path.lineTo(rect.left() + rect.width() * 0.77, rect.top() + rect.height() * 0.31);
    strokePath(painter, path, markPen(color, std::max(kMarkWidth, rect.width() * 0.13)));
}

void drawCross(QPainter& painter, const QRectF& rect, const QColor& color)
{
    const QPointF center = rect.center();
    const double half = std::min(3.5, rect.width() / 3);
    QPainterPath path(center + QPointF(-half, -half));
    path.lineTo(center + QPointF(half, half));
    path.moveTo(center + QPointF(half, -half));
    path.lineTo(center + QPointF(-half, half));
    strokePath(painter, path, markPen(color));
}

QRectF centeredSquare(const QRectF& rect, double side)
{
    const double fitting = std::min({side, rect.width(), rect.height()});
    QRectF square(0, 0, fitting, fitting);
    square.moveCenter(rect.center());
    return square;
}

} // namespace ui::style
