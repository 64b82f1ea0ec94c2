// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/GraphDrag.h"

#include "MorrantUI/graph/graphmoves.h"
#include <MorrantUI/graph/GraphBezierHandleItem.h>
#include <MorrantUI/graph/GraphPointWidget.h>

#include <QGraphicsScene>

#include <algorithm>

namespace ui {

namespace {

bool goesWithParent(const QGraphicsItem& item)
{
    const QGraphicsItem* const parent = item.parentItem();
    return parent != nullptr && parent->isSelected()
           && parent->flags().testFlag(QGraphicsItem::ItemIsMovable);
}

} // namespace

void GraphEdit::add(TimeEditorBaseItem* item, bool moves)
{
    m_entries.push_back({item, item->pos(), moves});
    if (auto* const point = qobject_cast<GraphPointWidget*>(item)) {
        point->storePosition(); // an axis lock keeps to where this drag began
    }
    if (auto* const handle = qobject_cast<GraphBezierHandleItem*>(item); handle && moves) {
        if (GraphBezierHandleItem* const mirrored = handle->opposite()) {
            m_entries.push_back({mirrored, mirrored->pos(), false});
        }
    }
}

void GraphEdit::moveBy(QPointF total)
{
    if (!Graph::isFinite(total)) {
        return;
    }
    for (const Entry& entry : m_entries) {
        if (entry.item && entry.moves) {
            entry.item->setPos(entry.start + total);
        }
    }
}

void GraphEdit::restore()
{
    for (const Entry& entry : m_entries) {
        if (entry.item && entry.item->pos() != entry.start) {
            entry.item->forceMove(entry.start);
            if (auto* const point = qobject_cast<GraphPointWidget*>(entry.item.data())) {
                point->reportChange();
            } else if (auto* const handle = qobject_cast<GraphBezierHandleItem*>(entry.item.data()))
            {
                handle->reportChange();
            }
        }
    }
}

bool GraphEdit::hasChanged() const
{
    return std::any_of(m_entries.begin(), m_entries.end(), [](const Entry& entry) {
        return entry.item && entry.item->pos() != entry.start;
    });
}

GraphDrag::GraphDrag(TimeEditorBaseItem* pressed, QPointF scenePosition)
    : m_pressed(pressed)
    , m_pressPosition(scenePosition)
{}

void GraphDrag::start()
{
    m_state = State::Dragging;
    if (!goesWithParent(*m_pressed)) {
        m_edit.add(m_pressed);
    }
    for (QGraphicsItem* const item : m_pressed->scene()->selectedItems()) {
        auto* const movable = dynamic_cast<TimeEditorBaseItem*>(item);
        if (movable && movable != m_pressed
            && movable->flags().testFlag(QGraphicsItem::ItemIsMovable) && !goesWithParent(*movable))
        {
            m_edit.add(movable);
        }
    }
}

void GraphDrag::dragTo(QPointF scenePosition)
{
    if (!m_pressed || !m_pressed->scene()) {
        return;
    }
    if (m_state == State::Pressed) {
        start();
    }
    if (m_state == State::Dragging) {
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
    m_state = State::Cancelled;
}

} // namespace ui
