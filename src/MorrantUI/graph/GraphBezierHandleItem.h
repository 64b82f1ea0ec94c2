// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/graph/graphtypes.h>
#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/timeeditor/TimeEditorBaseItem.h>

#include <QLineF>
#include <QPainterPath>
#include <QPointF>
#include <QPointer>

class GeneralGraphView;
class GraphPointWidget;
class QTransform;

namespace ui {
class GraphEdit;
}

/// A tangent handle of a point, which is its parent: a knob of ten pixels on a stem. Its position
/// is its distance from the point, in scene units, y downward.
///
/// Locked handles lie opposite each other: moving one turns the other along and scales it as much.
/// Neither passes to the other side of the point.
class MORRANT_UI_EXPORT GraphBezierHandleItem : public TimeEditorBaseItem
{
    Q_OBJECT

public:
    /// @param point whose handle it is @param parent usually the same
    GraphBezierHandleItem(ui::Graph::Side side, GraphPointWidget* point, QGraphicsItem* parent);
    ~GraphBezierHandleItem() override;

    void setup() {} ///< nothing to do; kept for subclasses
    /// Kept with the handle; what is drawn has sizes of its own.
    int handleSize() const { return m_handleSize; }

    ui::Graph::Side side() const { return m_side; }
    GraphPointWidget* getParentPoint() const;
    /// The point's other handle, or null.
    GraphBezierHandleItem* opposite() const;

    /// The distance from the point, y upward, times the view scale. That is scene units: in a fixed
    /// graph, divide by ui::Graph::kFixedScale for data units.
    QPointF dataPosition() const;
    void setInitialPosition(QPointF data); ///< as dataPosition()
    /// Makes the view scale 1 and keeps the data position, in silence.
    void handleViewScaleChange();

    /// While blocked, positions are taken as they are and nobody is told.
    void setBlockUpdates(bool block) { m_blockUpdates = block; }
    bool blocksUpdates() const { return m_blockUpdates; }
    /// Moves it without its own rules and without telling anybody.
    void placeSilently(QPointF offset);

    /// Shows or hides it. Hidden whatever is asked: where the point is not Bezier, where it lies on
    /// the point, and the last point's right one; the first point's left one stays as it is
    /// (deliberate).
    virtual void showHandle(bool show);
    /// Shows it where the scene has two or more points.
    void soloPointCheck();

    void updateRect() override;
    QPainterPath shape() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

Q_SIGNALS:
    /// The user's or the host's move of this handle, locked to the other one or not: one for both.
    void bezierDataChange();

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;

private:
    friend class GeneralGraphView;
    friend class GraphPointWidget;
    friend class ui::GraphEdit;

    GeneralGraphView* view() const;
    void showAsAsked();
    void sizeFor(const QTransform& zoom);
    void rememberPress(QPointF scenePosition);
    QPointF acceptedPosition(QPointF wanted);
    bool isQuiet() const;
    void retract();
    void toggleLock();
    void reportChange();

    QPointF m_pressPosition; ///< scene
    bool m_blockUpdates = false;
    ui::Graph::Side m_side = ui::Graph::Side::Left;
    int m_handleSize = 4;
    QLineF m_stem; ///< as last painted
    QPointer<GraphPointWidget> m_parentPoint;
    double m_viewScale = 1.0;
    bool m_horizontalOnly = false;
    bool m_slideAlongDirection = false;

    QPainterPath m_knobPath; ///< as large as it was last painted
    QPointF m_sizedFor;      ///< pixels a unit, of that size
    bool m_asked = true;     ///< what showHandle() was last asked for
    QPointF m_direction;     ///< at the press, to slide along
    double m_ratio = 1.0;    ///< of the opposite's length to this one's, at the press
    bool m_changeReported = false;
};
