// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/KeyMarks.h"

#include "MorrantUI/scene/placematching.h"
#include "MorrantUI/timeeditor/keylook.h"
#include "MorrantUI/timeeditor/outlinelines.h"
#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>
#include <MorrantUI/timeeditor/TimeEditorView.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace ui {

namespace {

/// @param rowIsOpen which Qt does not ask about when a child of it is enabled
void setOpen(TimeEditorKeyframeItem& mark, bool open, bool rowIsOpen)
{
    if (mark.isEnabled() != (open && rowIsOpen)) {
        mark.setEnabled(open && rowIsOpen);
    }
    if ((mark.acceptedMouseButtons() != Qt::NoButton) != open) {
        mark.setAcceptedMouseButtons(open ? Qt::AllButtons : Qt::NoButton);
        mark.setAcceptHoverEvents(open);
    }
}

/// Which of the items each key is shown by.
std::vector<std::optional<std::size_t>> matched(
    const KeyMarks::Items& items, const std::vector<DopeSheetKey>& keys)
{
    std::vector<QPointF> shown;
    std::vector<QPointF> wanted;
    shown.reserve(items.size());
    wanted.reserve(keys.size());
    for (const QPointer<TimeEditorKeyframeItem>& item : items) {
        shown.emplace_back(item->x(), 0.0);
    }
    for (const DopeSheetKey& key : keys) {
        wanted.emplace_back(shownFrame(key), 0.0);
    }
    return matchedPlaces(shown, wanted);
}

} // namespace

KeyMarks::KeyMarks(TimeEditorView* view, TimeEditorBaseItem* row)
    : m_view(view)
    , m_row(row)
{}

KeyMarks::Items KeyMarks::living() const
{
    Items items = m_items;
    items.erase(std::remove(items.begin(), items.end(), nullptr), items.end());
    return items;
}

void KeyMarks::set(const std::vector<DopeSheetKey>& keys, bool locked)
{
    if (!m_row) {
        return;
    }
    Items before = living();
    const auto matches = matched(before, keys);
    Items items;
    items.reserve(keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const double frame = shownFrame(keys[i]);
        TimeEditorKeyframeItem* const item =
            matches[i] ? std::exchange(before[*matches[i]], nullptr).data() : make(frame);
        items.emplace_back(item);
        if (item->x() != frame) {
            item->forceMove({frame, item->y()});
        }
        item->setEasing(keys[i].easing);
        setOpen(*item, !keys[i].locked && !locked, m_row->isEnabled());
    }
    for (const QPointer<TimeEditorKeyframeItem>& item : before) {
        delete item.data();
    }
    m_items = std::move(items);
}

bool KeyMarks::endDragOf(
    const QGraphicsItem* held, const std::vector<DopeSheetKey>& keys, bool locked) const
{
    const Items items = living();
    const auto isHeld = [held](const auto& item) { return item.data() == held; };
    bool goes = held && std::any_of(items.begin(), items.end(), isHeld);
    const auto matches = matched(items, keys);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const auto* const item = matches[i] ? items[*matches[i]].data() : nullptr;
        if (item && (item == held || item->isSelected()) && (locked || keys[i].locked)) {
            return true;
        }
        goes = goes && item != held;
    }
    return goes;
}

TimeEditorKeyframeItem* KeyMarks::make(double frame) const
{
    auto* const mark = new TimeEditorKeyframeItem(m_view, nullptr);
    mark->forceMove({frame, m_row->rect().center().y() - kKeyMiddle}); // before it is in the scene
    mark->setParentItem(m_row);
    return mark;
}

} // namespace ui
