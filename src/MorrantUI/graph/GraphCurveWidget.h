// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/graph/graphsegments.h>
#include <MorrantUI/morrantui_export.h>

#include <QColor>
#include <QGraphicsWidget>
#include <QPainterPath>

#include <memory>
#include <optional>
#include <vector>

class GraphPointWidget;

namespace ui {
class CurveKnots;
}

/// The curve through its child points, in the order of their x, whatever the order of their making.
/// It goes on level and dotted from the left limit to its first point and from its last one to the
/// right limit.
///
/// By default it suits a fixed graph: limits of 0 to ui::Graph::kFixedScale on both axes, and the
/// theme's colour "Text". A graph of values in their own units sets limits that are infinite on y,
/// and a colour for each curve.
class MORRANT_UI_EXPORT GraphCurveWidget : public QGraphicsWidget
{
    Q_OBJECT

public:
    explicit GraphCurveWidget(QGraphicsItem* parent = nullptr);
    ~GraphCurveWidget() override;

    const ui::Graph::CurveLimits& limits() const { return m_limits; }
    /// Those that are not numbers are ignored.
    void setLimits(const ui::Graph::CurveLimits& limits);

    /// Invalid for "Text". A selected curve is "Yellow" whatever its colour.
    const QColor& color() const { return m_color; }
    void setColor(const QColor& color);

    /// Whether a point without its two handles ends the curve, unless it is the first. Otherwise
    /// such a point has straight segments.
    bool endsAtBarePoints() const { return m_endsAtBarePoints; }
    void setEndsAtBarePoints(bool ends);

    /// All points, by x.
    std::vector<GraphPointWidget*> points() const;
    std::size_t pointCount() const;
    GraphPointWidget* firstPoint() const;
    GraphPointWidget* lastPoint() const;
    /// The curve as it is drawn, by x, one segment less than points.
    std::vector<ui::Graph::Segment> segments() const;
    /// The curve's y at an x, level beyond its ends; empty without points.
    std::optional<double> valueAt(double x) const;

    /// What is drawn has changed: called by points and handles, and by hosts for what they draw
    /// otherwise.
    void refresh();

    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    bool collidesWithPath(const QPainterPath& path, Qt::ItemSelectionMode mode) const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

protected:
    /// What the curve is drawn in: "Yellow" when it is selected, else its colour, or "Text".
    virtual QColor lineColor() const;

    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;

private:
    friend class GraphPointWidget;

    void pointMoved(GraphPointWidget* point);
    void pointReshaped(GraphPointWidget* point);
    void announceChange();
    bool isOnPoint(const QRectF& place) const;
    void paintSolid(QPainter& painter, std::size_t first, std::size_t last) const;
    void paintEnds(QPainter& painter, double period) const;
    ui::CurveKnots& knots() const;

    std::unique_ptr<ui::CurveKnots> m_knots;
    ui::Graph::CurveLimits m_limits;
    QColor m_color;
    bool m_endsAtBarePoints = true;
};
