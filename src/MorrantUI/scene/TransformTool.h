// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QGraphicsRectItem>
#include <QObject>
#include <QPointF>

/// The design of the tools that lie over a selection of keys: dragging the body moves the keys in
/// time, dragging an edge scales them about the opposite end. What the keys are, and how they are
/// moved and scaled, is the subclass's.
///
/// A click without movement leaves the selection as it was. Steps of the body add up to the drag,
/// whatever the keys round to.
class MORRANT_UI_EXPORT TransformTool : public QObject, public QGraphicsRectItem
{
    Q_OBJECT

public:
    explicit TransformTool(QObject* parent = nullptr);

    /// Lays the tool over a selection's rectangle, in scene units: it reaches 8 units above and
    /// below, however far the view is zoomed (deliberate).
    void setRect(const QRectF& selection);
    void setRect(double x, double y, double width, double height);

    /// 0 without the pointer, 1 left edge, 2 body, 3 right edge.
    int hoverZone() const { return m_hoverZone; }
    /// Whether an edge is being dragged.
    bool isScaling() const { return m_scaling; }
    bool isDragging() const { return m_dragging; }
    /// Scene units by which the body has moved the selection since the press.
    double movedBy() const { return m_moved; }

    /// Ends a drag as if it had not been: the keys are where they were at the press.
    void cancelDrag();

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

protected:
    /// Pixels a scene unit.
    virtual double horizontalScale() const = 0;
    /// Where the selection is, in scene units.
    virtual QRectF selectionRect() const = 0;
    /// An edge was pressed. @param position scene units, rounded; @param right which edge
    virtual void startScaling(QPoint position, bool right) = 0;
    virtual void scaleTo(QPoint position) = 0; ///< the edge is dragged here
    /// Puts the keys back to where they were at startScaling().
    virtual void cancelScaling() = 0;
    /// Moves the selected keys in time and returns by how much they moved, which may be less or
    /// more where they round. @param distance scene units
    virtual double moveSelection(double distance) = 0;

    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverMoveEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;
    /// A drag that loses the mouse ends where it is.
    bool sceneEvent(QEvent* event) override;

private:
    void setHoverZone(int zone);
    void moveBody(QPointF to);

    int m_hoverZone = 0;
    bool m_scaling = false;
    bool m_dragging = false;
    QPointF m_lastPosition;   ///< scene units
    double m_remainder = 0.0; ///< of the drag, not yet moved
    double m_moved = 0.0;     ///< by the body since the press
};
