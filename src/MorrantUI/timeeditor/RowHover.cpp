// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/RowHover.h"

#include <MorrantUI/timeeditor/TimeEditorBaseItem.h>

#include <QGraphicsScene>
#include <QGraphicsSceneHoverEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <iterator>
#include <utility>

namespace ui {

void RowHover::moveTo(TimeEditorBaseItem* front, const QGraphicsSceneMouseEvent& event)
{
    const Place place{event.scenePos(), event.screenPos(), event.modifiers(), event.widget()};
    const Place before = std::exchange(m_place, place);
    std::vector<QPointer<TimeEditorBaseItem>> chain;
    if (front) {
        if (auto* const row = dynamic_cast<TimeEditorBaseItem*>(front->parentItem())) {
            chain.emplace_back(row);
        }
        chain.emplace_back(front);
    }
    // Whoever is told may delete anything: nothing but the two lists is looked at from here on.
    const std::vector<QPointer<TimeEditorBaseItem>> left = std::exchange(m_chain, chain);
    const auto isIn = [](const auto& items, const auto& item) {
        return std::find(items.begin(), items.end(), item) != items.end();
    };
    for (auto item = left.rbegin(); item != left.rend(); ++item) {
        if (*item && !isIn(chain, *item)) {
            deliver(QEvent::GraphicsSceneHoverLeave, *item, place, before);
        }
    }
    for (const auto& item : chain) {
        if (item && !isIn(left, item)) {
            deliver(QEvent::GraphicsSceneHoverEnter, item, place, before);
        }
    }
    if (!chain.empty() && chain.back()) {
        deliver(QEvent::GraphicsSceneHoverMove, chain.back(), place, before);
    }
}

void RowHover::leave()
{
    const Place place = m_place;
    const std::vector<QPointer<TimeEditorBaseItem>> left = std::exchange(m_chain, {});
    for (auto item = left.rbegin(); item != left.rend(); ++item) {
        if (*item) {
            deliver(QEvent::GraphicsSceneHoverLeave, *item, place, place);
        }
    }
}

void RowHover::deliver(int type, TimeEditorBaseItem* item, const Place& place, const Place& before)
{
    if (!item->scene() || !item->acceptHoverEvents()) {
        return;
    }
    QGraphicsSceneHoverEvent event(static_cast<QEvent::Type>(type));
    event.setWidget(place.widget);
    event.setScenePos(place.scene);
    event.setScreenPos(place.screen);
    event.setModifiers(place.modifiers);
    event.setPos(item->mapFromScene(place.scene));
    event.setLastScenePos(before.scene);
    event.setLastScreenPos(before.screen);
    event.setLastPos(item->mapFromScene(before.scene));
    const QScopedValueRollback<bool> delivering(s_delivering, true);
    item->scene()->sendEvent(item, &event);
}

const TimeEditorBaseItem* RowHover::cursorOwner() const
{
    const auto owner = std::find_if(m_chain.rbegin(), m_chain.rend(), [](const auto& item) {
        return item && item->isEnabled() && item->hasCursor();
    });
    return owner != m_chain.rend() ? owner->data() : nullptr;
}

bool RowHover::isForeign(const QEvent& event)
{
    return !s_delivering && event.type() >= QEvent::GraphicsSceneHoverEnter
           && event.type() <= QEvent::GraphicsSceneHoverLeave;
}

} // namespace ui
