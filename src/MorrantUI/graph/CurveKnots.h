// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/graph/graphsegments.h>

#include <QPainterPath>
#include <QRectF>

#include <cstddef>
#include <utility>
#include <vector>

class GraphPointWidget;
class QGraphicsItem;

namespace ui {

/// A curve's children in the order of their x, with the segments between them. Of a change, only
/// what it touches is computed anew: a moved point shifts to its new place, and the segments beside
/// it are read again.
class CurveKnots
{
public:
    struct Knot
    {
        double x = 0.0;
        QGraphicsItem* item = nullptr;
        GraphPointWidget* point = nullptr; ///< null for another kind of child
        bool bare = false;                 ///< without its two handles
        bool stale = true;
        Graph::Segment segment; ///< from the knot before
        QRectF bounds;          ///< of the segment
    };
    /// What of the segments is drawn: those that end at knots from `first` up to, but without,
    /// `last`.
    struct Range
    {
        std::size_t first = 1;
        std::size_t last = 1;
    };

    /// Whether nothing has changed since the last update().
    bool isCurrent() const { return m_current; }

    /// Children have come or gone, or all of them may be anywhere.
    void invalidate();
    /// Limits or handles have changed, but no order.
    void reshapeAll();
    void move(GraphPointWidget& point);
    void reshape(const GraphPointWidget& point);

    void update(
        const QGraphicsItem& curve, const Graph::CurveLimits& limits, bool endsAtBarePoints);

    // As of the last update
    const std::vector<Knot>& knots() const { return m_knots; }
    /// How many knots the curve runs through, from the first on.
    std::size_t drawnCount() const { return m_drawn; }
    const QRectF& bounds() const { return m_bounds; }
    Range segmentsBetween(double left, double right) const;
    QPainterPath pathOf(Range range) const;
    GraphPointWidget* firstPoint() const;
    GraphPointWidget* lastPoint() const;

private:
    void reachFor(const Graph::CurveLimits& limits);
    void rebuild(const QGraphicsItem& curve);
    void readSegment(std::size_t index, const Graph::CurveLimits& limits);
    std::size_t indexOf(const GraphPointWidget& point) const;
    void markAround(std::size_t index);

    std::vector<Knot> m_knots;
    std::size_t m_drawn = 0;
    QRectF m_bounds;
    bool m_childrenStale = true;
    bool m_hasOthers = false; ///< children whose moves nobody tells of
    bool m_current = false;
};

} // namespace ui
