// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/timeeditor/EndPointHover.h>
#include <MorrantUI/timeeditor/TimeEditorBaseItem.h>
#include <MorrantUI/timeeditor/VisClip.h>
#include <MorrantUI/timeeditor/clipmoves.h>

#include <QPointer>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

class TimeEditorView;

namespace ui {
class ClipGesture;
class KeptSelection;
struct ClipSpan;
struct DragProgress;
} // namespace ui

/// A row of clip areas: bars that are trimmed at their ends, moved by their body and, with Alt,
/// whose contents are shifted within them. What is selected with the area goes along, in other
/// clips too. An area stops at its neighbours. Escape takes a drag back.
class MORRANT_UI_EXPORT TimeEditorClipItem : public TimeEditorBaseItem
{
    Q_OBJECT

public:
    /// @param view whose zoom and track height size the row; it may die before the item
    explicit TimeEditorClipItem(TimeEditorView* view, QGraphicsItem* parent = nullptr);
    ~TimeEditorClipItem() override;

    /// Adds an area, which belongs to the clip.
    VisClip* addClipArea(int start, int end);
    void removeClipArea(int index); ///< and deletes it
    /// In the order of their making. The host changes them and calls refresh().
    std::vector<VisClip*> getClipAreas() const;
    /// The areas were changed from outside.
    void refresh();

    /// Drawn in each area that has room for it.
    QString text() const { return m_text; }
    void setText(const QString& text);

    /// Selects the item and all its areas.
    void selectItemAndClips();
    void clearSelectedClipAreas(); ///< the item stays as it is

    /// Marks an area as being dragged by a part of it; -1 for none.
    void setDragClipIndex(int index, EndPointHover part);
    int dragClipIndex() const { return m_dragIndex; }
    /// The part of an area that the pointer is on.
    EndPointHover getEndPointHoverArea() const { return m_hover; }
    /// Shows what a press would take hold of.
    void updateEndPointFeedforward(EndPointHover part);

    /// While held, dragging a body shifts the contents instead of the area.
    void setAltHeld(bool held);
    bool isAltHeld() const { return m_altHeld; }

    bool isDragging() const { return m_drag != nullptr; }
    /// Takes a drag back. @return whether there was one
    bool cancelDrag();

    QColor getColor() const override;
    QRectF boundingRect() const override;
    /// The areas alone, so that a rubber band can start beside them.
    QPainterPath shape() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

Q_SIGNALS:
    /// A drag has changed an area by a step.
    void clipChanging(int index);
    /// A drag is complete: what changed of an area, once. Nothing for a click, or after Escape.
    /// TimeEditorView::clipsChanged() tells of all areas that went along together.
    void clipChanged(const ClipEdit& edit);

protected:
    void hoverMoveEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;
    bool sceneEvent(QEvent* event) override;

private:
    friend class TimeEditorView;
    friend class ui::ClipGesture;
    friend class ui::KeptSelection;

    double pixelsPerFrame() const;
    QRectF areaRect(const VisClip& area) const;
    int areaAt(QPointF position) const;
    int indexOf(const VisClip* area) const;
    void setHover(int index, EndPointHover part);
    double snapped(double frames, Qt::KeyboardModifiers modifiers);
    std::optional<ui::DragProgress> dragProgress() const;
    bool hasDragged() const;
    void finishDrag();
    void paintArea(QPainter& painter, const QTransform& world, int index);

    QPointer<TimeEditorView> m_view;
    std::vector<std::shared_ptr<VisClip>> m_areas;
    QString m_text;
    EndPointHover m_hover = EndPointHover::None;
    int m_hoverIndex = -1;
    int m_dragIndex = -1;
    EndPointHover m_dragPart = EndPointHover::None;
    bool m_altHeld = false;
    std::shared_ptr<ui::ClipGesture> m_drag;
    std::optional<int> m_snap; ///< the frame that the last step has snapped to
};
