// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/GraphDrag.h"

#include <MorrantUI/graph/GraphBezierHandleItem.h>
#include <MorrantUI/graph/GraphPointWidget.h>

#include <QGraphicsScene>

namespace ui {

void GraphEdit::add(TimeEditorBaseItem* item, bool moves)
{
    ItemEdit::add(item, moves);
    if (auto* const point = qobject_cast<GraphPointWidget*>(item)) {
        point->storePosition(); // an axis lock keeps to where this drag began
    }
    if (auto* const handle = qobject_cast<GraphBezierHandleItem*>(item); handle && moves) {
        if (GraphBezierHandleItem* const mirrored = handle->opposite()) {
            ItemEdit::add(mirrored, false);
        }
    }
}

void GraphEdit::restore()
{
    for (const QPointer<TimeEditorBaseItem>& item : ItemEdit::restore()) {
        if (auto* const point = qobject_cast<GraphPointWidget*>(item.data())) {
            point->reportChange();
        } else if (auto* const handle = qobject_cast<GraphBezierHandleItem*>(item.data())) {
            handle->reportChange();
        }
    }
}

std::vector<GraphPointWidget*> GraphEdit::points() const
{
    std::vector<GraphPointWidget*> living;
    for (const Entry& entry : m_entries) {
        if (auto* const point = qobject_cast<GraphPointWidget*>(entry.item.data())) {
            living.push_back(point);
        }
    }
    return living;
}

GraphDrag::GraphDrag(TimeEditorBaseItem* pressed, QPointF scenePosition)
    : m_pressed(pressed)
    , m_pressPosition(scenePosition)
{}

void GraphDrag::start()
{
    m_state = DragState::Dragging;
    if (m_pressed->flags().testFlag(QGraphicsItem::ItemIsMovable)) {
        m_edit.add(m_pressed); // a handle leaves its point, though that may be selected, too
    }
    for (TimeEditorBaseItem* const item : draggedItems(*m_pressed)) {
        if (item != m_pressed && !item->isAncestorOf(m_pressed)) {
            m_edit.add(item);
        }
    }
}

void GraphDrag::dragTo(QPointF scenePosition)
{
    if (!m_pressed || !m_pressed->scene()) {
        return;
    }
    if (m_state == DragState::Pressed) {
        start();
    }
    if (m_state == DragState::Dragging) {
        const QGraphicsItem* const parent = m_pressed->parentItem();
        const auto inParent = [parent](QPointF place) {
            return parent ? parent->mapFromScene(place) : place;
        };
        m_edit.moveBy(inParent(scenePosition) - inParent(m_pressPosition));
    }
}

void GraphDrag::cancel()
{
    m_edit.restore();
    m_state = DragState::Cancelled;
}

} // namespace ui
