// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/CurveKnots.h"

#include <MorrantUI/graph/GraphBezierHandleItem.h>
#include <MorrantUI/graph/GraphPointWidget.h>

#include <algorithm>
#include <cmath>

namespace ui {

namespace {

bool byX(const CurveKnots::Knot& a, const CurveKnots::Knot& b)
{
    return a.x < b.x;
}

QPointF controlOf(GraphPointWidget& point, Graph::Side side)
{
    if (point.getInterpolation() != Graph::Interpolation::Bezier) {
        return point.pos();
    }
    const GraphBezierHandleItem* const handle =
        side == Graph::Side::Left ? point.getLeftBezier() : point.getRightBezier();
    return handle ? point.pos() + handle->pos() : point.pos();
}

void append(QPainterPath& path, const Graph::Segment& segment)
{
    if (segment.hold) {
        path.lineTo(segment.end.x(), segment.start.y());
        path.lineTo(segment.end);
    } else if (segment.firstControl == segment.start && segment.secondControl == segment.end) {
        path.lineTo(segment.end);
    } else {
        path.cubicTo(segment.firstControl, segment.secondControl, segment.end);
    }
}

} // namespace

void CurveKnots::invalidate()
{
    m_childrenStale = true;
    m_current = false;
}

void CurveKnots::reshapeAll()
{
    for (Knot& knot : m_knots) {
        knot.stale = true;
    }
    m_current = false;
}

void CurveKnots::markAround(std::size_t index)
{
    for (std::size_t i = index; i < std::min(index + 2, m_knots.size()); ++i) {
        m_knots.at(i).stale = true;
    }
}

std::size_t CurveKnots::indexOf(const GraphPointWidget& point) const
{
    if (point.m_knotIndex < m_knots.size() && m_knots.at(point.m_knotIndex).point == &point) {
        return point.m_knotIndex; // others have not pushed it along since
    }
    const auto before = [](const Knot& knot, double x) { return knot.x < x; };
    auto found = std::lower_bound(m_knots.begin(), m_knots.end(), point.m_knotX, before);
    while (found != m_knots.end() && found->point != &point) {
        ++found;
    }
    return static_cast<std::size_t>(found - m_knots.begin());
}

void CurveKnots::move(GraphPointWidget& point)
{
    m_current = false;
    const std::size_t from = m_childrenStale ? m_knots.size() : indexOf(point);
    if (from == m_knots.size()) {
        return;
    }
    markAround(from);
    const double x = point.x();
    point.m_knotX = x;
    point.m_knotIndex = from;
    const auto knot = m_knots.begin() + static_cast<std::ptrdiff_t>(from);
    knot->x = x;
    // To the right of all that lie before it, and no farther than it has to go.
    auto to = knot;
    if (knot + 1 != m_knots.end() && (knot + 1)->x < x) {
        to = std::lower_bound(knot + 1, m_knots.end(), *knot, byX) - 1;
        std::rotate(knot, knot + 1, to + 1);
    } else if (knot != m_knots.begin() && (knot - 1)->x > x) {
        to = std::upper_bound(m_knots.begin(), knot, *knot, byX);
        std::rotate(to, knot, knot + 1);
    }
    if (to != knot) {
        point.m_knotIndex = static_cast<std::size_t>(to - m_knots.begin());
        markAround(from);
        markAround(point.m_knotIndex);
    }
}

void CurveKnots::reshape(const GraphPointWidget& point)
{
    m_current = false;
    if (!m_childrenStale) {
        markAround(indexOf(point));
    }
}

void CurveKnots::rebuild(const QGraphicsItem& curve)
{
    const QList<QGraphicsItem*> children = curve.childItems();
    m_knots.clear();
    m_knots.reserve(static_cast<std::size_t>(children.size()));
    m_hasOthers = false;
    for (QGraphicsItem* const child : children) {
        Knot knot;
        knot.x = child->x();
        knot.item = child;
        knot.point = dynamic_cast<GraphPointWidget*>(child);
        if (knot.point) {
            knot.point->m_knotX = knot.x;
        }
        m_hasOthers = m_hasOthers || !knot.point;
        m_knots.push_back(knot);
    }
    std::stable_sort(m_knots.begin(), m_knots.end(), byX);
    m_childrenStale = false;
}

void CurveKnots::readSegment(std::size_t index, const Graph::CurveLimits& limits)
{
    Knot& knot = m_knots.at(index);
    knot.stale = false;
    knot.bare = knot.point && !knot.point->getLeftBezier();
    GraphPointWidget* const before = index > 0 ? m_knots.at(index - 1).point : nullptr;
    if (before && knot.point) {
        const Graph::Segment segment{
            before->pos(),
            controlOf(*before, Graph::Side::Right),
            controlOf(*knot.point, Graph::Side::Left),
            knot.point->pos(),
            before->isHolding()};
        knot.segment = Graph::limited(segment, limits);
        knot.bounds = Graph::segmentBounds(knot.segment);
    } else {
        knot.bounds = knot.point ? QRectF(knot.point->pos(), QSizeF()) : QRectF();
    }
}

void CurveKnots::update(
    const QGraphicsItem& curve, const Graph::CurveLimits& limits, bool endsAtBarePoints)
{
    if (m_current) {
        return;
    }
    if (m_childrenStale || m_hasOthers) {
        rebuild(curve);
    }
    m_current = true;
    m_drawn = 0;
    m_bounds = QRectF();
    double top = 0.0;
    double bottom = 0.0;
    for (std::size_t i = 0; i < m_knots.size(); ++i) {
        if (m_knots.at(i).stale) {
            readSegment(i, limits);
        }
        const Knot& knot = m_knots.at(i);
        if (!knot.point || (i > 0 && knot.bare && endsAtBarePoints)) {
            break;
        }
        top = i == 0 ? knot.bounds.top() : std::min(top, knot.bounds.top());
        bottom = i == 0 ? knot.bounds.bottom() : std::max(bottom, knot.bounds.bottom());
        ++m_drawn;
    }
    if (m_drawn > 0) {
        m_bounds =
            QRectF(QPointF(m_knots.front().x, top), QPointF(m_knots.at(m_drawn - 1).x, bottom));
        if (limits != Graph::CurveLimits()) {
            reachFor(limits);
        }
    }
}

/// Takes the dotted ends into the bounds. They would not be painted while the rest is out of sight,
/// which a fixed graph's never is.
void CurveKnots::reachFor(const Graph::CurveLimits& limits)
{
    if (std::isfinite(limits.left)) {
        m_bounds.setLeft(std::min(limits.left, m_bounds.left()));
    }
    if (std::isfinite(limits.right)) {
        m_bounds.setRight(std::max(limits.right, m_bounds.right()));
    }
}

CurveKnots::Range CurveKnots::segmentsBetween(double left, double right) const
{
    const auto begin = m_knots.begin();
    const auto end = begin + static_cast<std::ptrdiff_t>(m_drawn);
    // The first knot that is not left of the place ends the first segment that reaches it.
    auto first =
        std::lower_bound(begin, end, left, [](const Knot& knot, double x) { return knot.x < x; });
    auto last =
        std::upper_bound(first, end, right, [](double x, const Knot& knot) { return x < knot.x; });
    if (first == begin && first != end) {
        ++first; // which ends no segment
    }
    if (last != end) {
        ++last;
    }
    return {static_cast<std::size_t>(first - begin), static_cast<std::size_t>(last - begin)};
}

QPainterPath CurveKnots::pathOf(Range range) const
{
    QPainterPath path;
    if (range.first < 1 || range.first >= range.last) {
        return path;
    }
    path.reserve(static_cast<int>(3 * (range.last - range.first) + 1));
    path.moveTo(m_knots.at(range.first).segment.start);
    for (std::size_t i = range.first; i < range.last; ++i) {
        append(path, m_knots.at(i).segment);
    }
    return path;
}

GraphPointWidget* CurveKnots::firstPoint() const
{
    const auto found = std::find_if(
        m_knots.begin(), m_knots.end(), [](const Knot& knot) { return knot.point != nullptr; });
    return found == m_knots.end() ? nullptr : found->point;
}

GraphPointWidget* CurveKnots::lastPoint() const
{
    const auto found = std::find_if(
        m_knots.rbegin(), m_knots.rend(), [](const Knot& knot) { return knot.point != nullptr; });
    return found == m_knots.rend() ? nullptr : found->point;
}

} // namespace ui
