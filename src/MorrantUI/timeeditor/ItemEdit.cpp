// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/ItemEdit.h"

#include <MorrantUI/timeeditor/TimeEditorBaseItem.h>

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace ui {

namespace {

bool isMovable(const QGraphicsItem& item)
{
    return item.flags().testFlag(QGraphicsItem::ItemIsMovable);
}

bool goesWithParent(const QGraphicsItem& item)
{
    const QGraphicsItem* const parent = item.parentItem();
    return parent && parent->isSelected() && isMovable(*parent);
}

} // namespace

bool ItemEdit::Entry::isElsewhere() const
{
    return item && item->pos() != start;
}

void ItemEdit::add(TimeEditorBaseItem* item, bool moves)
{
    m_entries.push_back({item, item->pos(), item->scenePos().x(), moves});
}

void ItemEdit::moveBy(QPointF total)
{
    if (!std::isfinite(total.x()) || !std::isfinite(total.y())) {
        return;
    }
    for (const Entry& entry : m_entries) {
        if (entry.item && entry.moves) {
            entry.item->setPos(entry.start + total);
        }
    }
}

std::vector<QPointer<TimeEditorBaseItem>> ItemEdit::restore()
{
    std::vector<QPointer<TimeEditorBaseItem>> restored;
    for (const Entry& entry : m_entries) {
        if (entry.isElsewhere()) {
            entry.item->forceMove(entry.start);
            restored.push_back(entry.item);
        }
    }
    return restored;
}

bool ItemEdit::hasChanged() const
{
    return std::ranges::any_of(m_entries, &Entry::isElsewhere);
}

void steadyClick(QGraphicsSceneMouseEvent& event)
{
    const QPoint off = event.screenPos() - event.buttonDownScreenPos(Qt::LeftButton);
    if (std::max(std::abs(off.x()), std::abs(off.y())) < kLeastDrag) {
        event.setScenePos(event.buttonDownScenePos(Qt::LeftButton));
    }
}

std::vector<TimeEditorBaseItem*> draggedItems(TimeEditorBaseItem& pressed)
{
    QList<QGraphicsItem*> candidates = pressed.scene()->selectedItems();
    candidates.removeOne(&pressed);
    candidates.prepend(&pressed);
    std::vector<TimeEditorBaseItem*> dragged;
    for (QGraphicsItem* const candidate : candidates) {
        auto* const item = dynamic_cast<TimeEditorBaseItem*>(candidate);
        if (item && isMovable(*item) && !goesWithParent(*item)) {
            dragged.push_back(item);
        }
    }
    return dragged;
}

} // namespace ui
