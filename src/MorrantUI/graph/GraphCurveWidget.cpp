// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/GraphCurveWidget.h"

#include "MorrantUI/graph/CurveKnots.h"
#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/graph/GraphBezierHandleItem.h>
#include <MorrantUI/graph/GraphPointWidget.h>
#include <MorrantUI/theme/colors.h>

#include <QGraphicsScene>
#include <QPainter>
#include <QPainterPathStroker>
#include <QStyleOptionGraphicsItem>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double kLineWidth = 2.0;              ///< pixels
constexpr double kDotPeriod = 3.0 * kLineWidth; ///< pixels from dot to dot
constexpr std::size_t kPieceLength = 32;        ///< segments that are drawn as one path
constexpr double kShapeReach = 0.5;             ///< scene units, of a default stroker's width

/// The part of a level line that lies in a stretch, with its dots where the whole line has them.
/// One that begins nowhere has them where its end has.
QLineF dottedPart(const QLineF& line, double left, double right, double period)
{
    QLineF part = line;
    if (line.x1() < left) {
        const double dot = std::isinf(line.x1()) ? line.x2() : line.x1();
        part.setP1({dot + std::floor((left - dot) / period) * period, line.y1()});
    }
    part.setP2({std::min(line.x2(), right), line.y2()});
    return part;
}

QPainterPath widened(const QPainterPath& path)
{
    return path.isEmpty() ? path : QPainterPathStroker().createStroke(path);
}

} // namespace

GraphCurveWidget::GraphCurveWidget(QGraphicsItem* parent)
    : QGraphicsWidget(parent)
    , m_knots(std::make_unique<ui::CurveKnots>())
{
    setFlag(ItemUsesExtendedStyleOption);
}

GraphCurveWidget::~GraphCurveWidget()
{
    for (QGraphicsItem* const child : childItems()) {
        if (auto* const point = dynamic_cast<GraphPointWidget*>(child)) {
            point->m_curve = nullptr;
        }
    }
}

void GraphCurveWidget::setLimits(const ui::Graph::CurveLimits& limits)
{
    const bool numbers = !std::isnan(limits.left) && !std::isnan(limits.top)
                         && !std::isnan(limits.right) && !std::isnan(limits.bottom);
    if (numbers && limits != m_limits) {
        m_limits = limits;
        refresh();
    }
}

void GraphCurveWidget::setColor(const QColor& color)
{
    m_color = color;
    update();
}

void GraphCurveWidget::setEndsAtBarePoints(bool ends)
{
    m_endsAtBarePoints = ends;
    refresh();
}

ui::CurveKnots& GraphCurveWidget::knots() const
{
    m_knots->update(*this, m_limits, m_endsAtBarePoints);
    return *m_knots;
}

std::vector<GraphPointWidget*> GraphCurveWidget::points() const
{
    std::vector<GraphPointWidget*> points;
    for (const ui::CurveKnots::Knot& knot : knots().knots()) {
        if (knot.point) {
            points.push_back(knot.point);
        }
    }
    return points;
}

std::size_t GraphCurveWidget::pointCount() const
{
    const auto& all = knots().knots();
    return static_cast<std::size_t>(std::count_if(
        all.begin(), all.end(), [](const ui::CurveKnots::Knot& knot) { return knot.point; }));
}

GraphPointWidget* GraphCurveWidget::firstPoint() const
{
    return knots().firstPoint();
}

GraphPointWidget* GraphCurveWidget::lastPoint() const
{
    return knots().lastPoint();
}

std::vector<ui::Graph::Segment> GraphCurveWidget::segments() const
{
    std::vector<ui::Graph::Segment> segments;
    const ui::CurveKnots& all = knots();
    for (std::size_t i = 1; i < all.drawnCount(); ++i) {
        segments.push_back(all.knots().at(i).segment);
    }
    return segments;
}

std::optional<double> GraphCurveWidget::valueAt(double x) const
{
    const ui::CurveKnots& all = knots();
    if (all.drawnCount() == 0) {
        return std::nullopt;
    }
    const ui::CurveKnots::Range range = all.segmentsBetween(x, x);
    if (range.first < range.last) {
        return ui::Graph::valueAt(all.knots().at(range.last - 1).segment, x);
    }
    const bool before = x < all.knots().front().x;
    return all.knots().at(before ? 0 : all.drawnCount() - 1).point->y();
}

void GraphCurveWidget::announceChange()
{
    if (m_knots->isCurrent()) { // else nobody has looked since the last change
        prepareGeometryChange();
        if (scene()) {
            scene()->update(); // the dotted ends lie beyond the bounds
        }
    }
}

void GraphCurveWidget::refresh()
{
    announceChange();
    m_knots->reshapeAll();
}

void GraphCurveWidget::pointMoved(GraphPointWidget* point)
{
    announceChange();
    const std::array before{m_knots->firstPoint(), m_knots->lastPoint()};
    m_knots->move(*point);
    const std::array after{m_knots->firstPoint(), m_knots->lastPoint()};
    for (std::size_t end = 0; end < after.size(); ++end) {
        if (before.at(end) != after.at(end)) { // the ends of a curve hide a handle
            before.at(end)->refreshHandles();
            after.at(end)->refreshHandles();
        }
    }
}

void GraphCurveWidget::pointReshaped(GraphPointWidget* point)
{
    announceChange();
    m_knots->reshape(*point);
}

QRectF GraphCurveWidget::boundingRect() const
{
    return knots().bounds();
}

QPainterPath GraphCurveWidget::shape() const
{
    const ui::CurveKnots& all = knots();
    return widened(all.pathOf({1, std::max<std::size_t>(all.drawnCount(), 1)}));
}

bool GraphCurveWidget::collidesWithPath(const QPainterPath& path, Qt::ItemSelectionMode mode) const
{
    const QRectF reached = path.controlPointRect();
    if (mode == Qt::ContainsItemShape || mode == Qt::ContainsItemBoundingRect) {
        return reached.contains(boundingRect());
    }
    const ui::CurveKnots& all = knots();
    const ui::CurveKnots::Range range =
        all.segmentsBetween(reached.left() - kShapeReach, reached.right() + kShapeReach);
    if (isOnPoint(reached)) {
        return false;
    }
    const QPainterPath near = widened(all.pathOf(range));
    return near.intersects(reached) && near.intersects(path);
}

/// Whether a place lies within the diamond of a point, which may lie behind the curve.
bool GraphCurveWidget::isOnPoint(const QRectF& place) const
{
    const std::vector<ui::CurveKnots::Knot>& all = knots().knots();
    const double reach = all.empty() ? 0.0 : all.front().item->boundingRect().width();
    const auto before = [](const ui::CurveKnots::Knot& knot, double x) { return knot.x < x; };
    auto knot = std::lower_bound(all.begin(), all.end(), place.left() - reach, before);
    for (; knot != all.end() && knot->x <= place.right() + reach; ++knot) {
        if (knot->point && knot->point->rect().translated(knot->point->pos()).contains(place)) {
            return true;
        }
    }
    return false;
}

QColor GraphCurveWidget::lineColor() const
{
    if (isSelected()) {
        return ui::colorQt(QStringLiteral("Yellow"));
    }
    return m_color.isValid() ? m_color : ui::colorQt(QStringLiteral("Text"));
}

void GraphCurveWidget::paint(
    QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* /*widget*/)
{
    const ui::CurveKnots& all = knots();
    const double scale = std::abs(painter->worldTransform().m11());
    if (all.drawnCount() == 0 || !(scale > 0.0)) {
        return;
    }
    const ui::style::PainterState state(*painter);
    // Qt finds nothing exposed of bounds without a height, which are those of a level curve.
    const double margin = kLineWidth / scale;
    const QRectF bounds = boundingRect();
    const QRectF exposed =
        (bounds.height() > 0.0 ? option->exposedRect : bounds).adjusted(-margin, 0.0, margin, 0.0);
    QPen pen(lineColor(), kLineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    pen.setCosmetic(true);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(pen);
    const ui::CurveKnots::Range shown = all.segmentsBetween(exposed.left(), exposed.right());
    paintSolid(*painter, shown.first, shown.last);
    pen.setStyle(Qt::DotLine);
    painter->setPen(pen);
    paintEnds(*painter, kDotPeriod / scale);
}

/// The segments that end at knots from `first` up to `last`.
void GraphCurveWidget::paintSolid(QPainter& painter, std::size_t first, std::size_t last) const
{
    // Qt's time for a path grows faster than its length. The pieces' round ends hide in each other,
    // which only shows through a line that is translucent.
    const bool opaque = painter.pen().color().alpha() == 255;
    const std::size_t length = opaque ? kPieceLength : std::max<std::size_t>(last, 1);
    for (; first < last; first += length) {
        painter.drawPath(m_knots->pathOf({first, std::min(first + length, last)}));
    }
}

/// What lies beyond the first and the last point; nothing beyond one at which the curve ends early.
void GraphCurveWidget::paintEnds(QPainter& painter, double period) const
{
    const ui::CurveKnots& all = knots();
    const QPointF first = all.knots().front().point->pos();
    const QPointF last = all.knots().at(all.drawnCount() - 1).point->pos();
    const double right = all.drawnCount() == all.knots().size() ? m_limits.right : last.x();
    const QRectF seen = painter.worldTransform().inverted().mapRect(QRectF(painter.window()));
    for (const QLineF& line : {
             QLineF(QPointF(m_limits.left, first.y()), first),
             QLineF(last, QPointF(right, last.y())),
         })
    {
        const QLineF part = dottedPart(line, seen.left() - period, seen.right(), period);
        if (std::isfinite(part.dx()) && part.x1() < part.x2()) {
            painter.drawLine(part);
        }
    }
}

QVariant GraphCurveWidget::itemChange(GraphicsItemChange change, const QVariant& value)
{
    switch (change) {
    case ItemChildAddedChange:
    case ItemChildRemovedChange:
        announceChange();
        m_knots->invalidate();
        break;
    case ItemSelectedHasChanged: update(); break;
    default: break;
    }
    return QGraphicsWidget::itemChange(change, value);
}
