// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/KeyMarks.h"

#include "MorrantUI/scene/placematching.h"
#include "MorrantUI/timeeditor/keylook.h"
#include "MorrantUI/timeeditor/outlinelines.h"
#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>
#include <MorrantUI/timeeditor/TimeEditorView.h>

#include <algorithm>
#include <utility>

namespace ui {

namespace {

void setOpen(TimeEditorKeyframeItem& mark, bool open)
{
    if (mark.isEnabled() != open) {
        mark.setEnabled(open);
    }
    if ((mark.acceptedMouseButtons() != Qt::NoButton) != open) {
        mark.setAcceptedMouseButtons(open ? Qt::AllButtons : Qt::NoButton);
        mark.setAcceptHoverEvents(open);
    }
}

} // namespace

KeyMarks::KeyMarks(TimeEditorView* view, TimeEditorBaseItem* row)
    : m_view(view)
    , m_row(row)
{}

void KeyMarks::set(const std::vector<DopeSheetKey>& keys)
{
    if (!m_row) {
        return;
    }
    Items before = std::exchange(m_items, {});
    before.erase(std::remove(before.begin(), before.end(), nullptr), before.end());
    std::vector<QPointF> shown;
    std::vector<QPointF> wanted;
    shown.reserve(before.size());
    wanted.reserve(keys.size());
    for (const QPointer<TimeEditorKeyframeItem>& item : before) {
        shown.emplace_back(item->x(), 0.0);
    }
    for (const DopeSheetKey& key : keys) {
        wanted.emplace_back(shownFrame(key), 0.0);
    }
    const auto matches = matchedPlaces(shown, wanted);
    m_items.reserve(keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        TimeEditorKeyframeItem* const item =
            matches[i] ? std::exchange(before[*matches[i]], nullptr).data() : make(wanted[i].x());
        m_items.emplace_back(item);
        if (item->x() != wanted[i].x()) {
            item->forceMove({wanted[i].x(), item->y()});
        }
        item->setEasing(keys[i].easing);
        setOpen(*item, !keys[i].locked);
    }
    for (const QPointer<TimeEditorKeyframeItem>& item : before) {
        delete item.data();
    }
}

TimeEditorKeyframeItem* KeyMarks::make(double frame) const
{
    auto* const mark = new TimeEditorKeyframeItem(m_view, nullptr);
    mark->forceMove({frame, m_row->rect().center().y() - kKeyMiddle}); // before it is in the scene
    mark->setParentItem(m_row);
    return mark;
}

} // namespace ui
