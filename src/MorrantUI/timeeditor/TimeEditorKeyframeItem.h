// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/timeeditor/KeyEasing.h>
#include <MorrantUI/timeeditor/TimeEditorBaseItem.h>

#include <QPointer>

#include <vector>

class TimeEditorCurveItem;
class TimeEditorView;

namespace ui {
struct Glyph;
struct KeyColors;
} // namespace ui

/// A key of the time editor: a diamond of ten pixels at any zoom, a child of its row's curve item.
/// Its x is its frame. The user moves it by whole frames along its row, together with what else is
/// selected; forceMove() puts it anywhere. A step to a place that is not finite is dropped.
class MORRANT_UI_EXPORT TimeEditorKeyframeItem : public TimeEditorBaseItem
{
    Q_OBJECT

public:
    /// @param view whose zoom sizes the key; it may die before the key
    /// @param parent the curve item of the row, which owns the key
    TimeEditorKeyframeItem(TimeEditorView* view, QGraphicsItem* parent);
    ~TimeEditorKeyframeItem() override;

    TimeEditorView* view() const;
    /// The curve item that the key is a child of, or null.
    TimeEditorCurveItem* curve() const { return m_curve; }

    /// How the value leaves the key. A key that holds is a square, and its row shows a block up to
    /// the next key. Bezier by default.
    KeyEasing easing() const { return m_easing; }
    void setEasing(KeyEasing easing);

    /// A second outline in "Accent4", for a key that the host wants to stand out.
    bool hasExtraOutline() const { return m_extraOutline; }
    void setExtraOutline(bool extra);

    /// Keys that go with this one, such as the other dimensions' at the same frame. Kept for the
    /// host: the library neither moves nor selects them. Those that have died are left out.
    std::vector<TimeEditorKeyframeItem*> relatedItems() const;
    void setRelatedItems(const std::vector<TimeEditorKeyframeItem*>& items);

    /// A number of the host's, 15 at first; the library does not look at it.
    int tag() const { return m_tag; }
    void setTag(int tag) { m_tag = tag; }

    QColor getColor() const override;
    void updateRect() override;
    QRectF boundingRect() const override { return rect(); }
    bool collidesWithPath(const QPainterPath& path, Qt::ItemSelectionMode mode) const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    /// A drag that loses the mouse ends where it is.
    bool sceneEvent(QEvent* event) override;

private:
    friend class TimeEditorCurveItem;

    QPointF acceptedPosition(QPointF wanted) const;
    QColor fill(const ui::KeyColors& colors) const;
    ui::Glyph glyph(const ui::KeyColors& colors) const;

    std::vector<QPointer<TimeEditorKeyframeItem>> m_related;
    int m_tag = 15;
    QPointer<TimeEditorView> m_view;
    TimeEditorCurveItem* m_curve = nullptr; ///< the parent, which outlives its keys
    bool m_extraOutline = false;
    KeyEasing m_easing = KeyEasing::Bezier;
};
