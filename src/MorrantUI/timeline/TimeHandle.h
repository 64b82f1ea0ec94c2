// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QGraphicsRectItem>

class TimeEditorScene;

/// A line in the time editor at the current frame that can be dragged by whole frames; each step of
/// a drag commits the frame to the scene.
class MORRANT_UI_EXPORT TimeHandle : public QGraphicsRectItem
{
public:
    /// @param scene that the frame belongs to, and which outlives the handle
    TimeHandle(TimeEditorScene* scene, QGraphicsItem* parent);

    /// @param height scene units
    void setHeight(int height);

    bool isDragging() const { return m_dragging; }
    /// Takes a drag back to the frame before, which is committed, too. @return whether there was
    /// one
    bool cancelDrag();

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    /// Moves the handle alone, whatever is selected.
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    bool sceneEvent(QEvent* event) override;

private:
    TimeEditorScene* m_scene;
    bool m_dragging = false;
    double m_xAtPress = 0.0; ///< frames
};
