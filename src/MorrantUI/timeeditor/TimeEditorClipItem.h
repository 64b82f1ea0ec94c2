#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/timeeditor/EndPointHover.h>
#include <MorrantUI/timeeditor/TimeEditorBaseItem.h>
#include <MorrantUI/timeeditor/VisClip.h>

#include <QPointer>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

class TimeEditorView;

namespace ui {
struct ClipSpan;
}

/// What a gesture did to one area of a clip. Frames.
struct ClipEdit
{
    int index = 0;
    int startFrom = 0;
    int startTo = 0;
    int endFrom = 0;
    int endTo = 0;
    int slipFrom = 0;
    int slipTo = 0;
};

/// A row of clip areas: bars that are trimmed at their ends, moved by their body and, with Alt,
/// whose contents are shifted within them. An area stops at its neighbours. Escape takes a drag
/// back.
class MORRANT_UI_EXPORT TimeEditorClipItem : public TimeEditorBaseItem
{
    Q_OBJECT

public:
    /// @param view whose zoom and track height size the row; it may die before the item
    explicit TimeEditorClipItem(TimeEditorView* view, QGraphicsItem* parent = nullptr);
    ~TimeEditorClipItem() override;

    /// Adds an area, which belongs to the clip.
    VisClip* addClipArea(int start, int end);
    void removeClipArea(int index);
    /// In the order of their making. The host changes them and calls refresh().
    std::vector<VisClip*> getClipAreas() const;
    /// The areas were changed from outside.
    void refresh();

    /// Drawn in each area that has room for it.
    QString text() const { return m_text; }
    void setText(const QString& text);

    /// Selects the item and all its areas.
    void selectItemAndClips();
    void clearSelectedClipAreas();

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
    /// A drag is complete: what changed, once. Nothing for a click, or after Escape.
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
    struct Drag;

    double pixelsPerFrame() const;
    QRectF areaRect(const VisClip& area) const;
    int areaAt(QPointF position) const;
    void setHover(int index, EndPointHover part);
    void apply(int index, const ui::ClipSpan& span);
    double snapped(double frames) const;
    void finishDrag();
    void paintArea(QPainter& painter, const QTransform& world, int index);
    std::vector<ui::ClipSpan> spans() const;

    QPointer<TimeEditorView> m_view;
    std::vector<std::unique_ptr<VisClip>> m_areas;
    QString m_text;
    EndPointHover m_hover = EndPointHover::None;
    int m_hoverIndex = -1;
    int m_dragIndex = -1;
    EndPointHover m_dragPart = EndPointHover::None;
    bool m_altHeld = false;
    std::unique_ptr<Drag> m_drag;
};
