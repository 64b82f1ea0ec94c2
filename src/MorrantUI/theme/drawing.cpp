// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/drawing.h"

#include "MorrantUI/theme/style/pixelgrid.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/images.h>

#include <QBrush>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPen>

#include <algorithm>
#include <cmath>

namespace ui {

namespace {

using style::PainterState;
using style::PixelGrid;

constexpr double kMarkWidth = 1.5;      ///< stroke of chevrons, ticks and crosses
constexpr double kFocusRingWidth = 2.0; ///< logical pixels
constexpr double kEdgeWidth = 2.0;      ///< of what is selected
constexpr double kDropLineWidth = 2.0;  ///< logical pixels
constexpr double kDropDot = 6.0;        ///< diameter
constexpr double kChequer = 4.0;        ///< side of a square
constexpr double kWash = 0.5;           ///< strength of the hovered row's ground

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

/// The strip of a rectangle along one of its edges.
QRectF along(const QRectF& rect, Qt::Edge edge, double width)
{
    switch (edge) {
    case Qt::BottomEdge: return {rect.left(), rect.bottom() - width, rect.width(), width};
    case Qt::LeftEdge: return {rect.left(), rect.top(), width, rect.height()};
    case Qt::RightEdge: return {rect.right() - width, rect.top(), width, rect.height()};
    default: return {rect.left(), rect.top(), rect.width(), width};
    }
}

} // namespace

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

void fillChequer(QPainter& painter, const QRectF& rect, double radius)
{
    const double ratio = painter.device()->devicePixelRatioF();
    const int tile = 2 * std::max(1, qRound(kChequer * ratio)); // device pixels
    QImage squares = drawChequerBox(colorQt(QStringLiteral("Base")), {tile, tile}, 0);
    squares.setDevicePixelRatio(ratio);
    const PainterState state(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QBrush(squares));
    painter.drawRoundedRect(PixelGrid(painter).snap(rect), radius, radius);
}

void drawFocusRing(QPainter& painter, const QRectF& rect, double radius)
{
    strokeRounded(painter, rect, radius, style::accentColor(), kFocusRingWidth);
}

void drawHoverWash(QPainter& painter, const QRectF& rect, double radius)
{
    fillRounded(painter, rect, radius, style::translucent(style::quietHighlight(), kWash));
}

void drawSelectionEdge(QPainter& painter, const QRectF& rect, Qt::Edge edge, bool enabled)
{
    const QColor color = enabled ? style::accentColor() : style::faded(style::accentColor());
    const PainterState state(painter);
    painter.setClipRect(along(rect, edge, kEdgeWidth), Qt::IntersectClip);
    fillRounded(painter, style::openedAgainst(rect, edge), kCornerRadius, color);
}

void drawDropMark(QPainter& painter, const QPointF& start, const QPointF& end)
{
    const QColor color = style::accentColor();
    const bool runsDown = std::abs(end.y() - start.y()) > std::abs(end.x() - start.x());
    const double length = runsDown ? end.y() - start.y() : end.x() - start.x();
    const double dotCenter = std::copysign(kDropDot / 2, length);
    const QPointF center = start + (runsDown ? QPointF(0, dotCenter) : QPointF(dotCenter, 0));
    const double half = kDropLineWidth / 2;
    const QRectF line = runsDown ? QRectF(center - QPointF(half, 0), end + QPointF(half, 0))
                                 : QRectF(center - QPointF(0, half), end + QPointF(0, half));
    fillSharp(painter, line.normalized(), color);
    const QPointF reach(kDropDot / 2, kDropDot / 2);
    fillRounded(painter, {center - reach, center + reach}, kDropDot / 2, color);
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

} // namespace ui
