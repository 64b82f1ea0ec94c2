// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/DopeSheetRow.h"

#include "MorrantUI/scene/placematching.h"
#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

double shownFrame(const DopeSheetKey& key)
{
    return std::isfinite(key.frame) ? key.frame : 0.0;
}

} // namespace

DopeSheetRow::DopeSheetRow(TimeEditorView* view, QGraphicsItem* parent)
    : TimeEditorCurveItem(view, parent)
{}

DopeSheetRow::~DopeSheetRow() = default;

void DopeSheetRow::setKeys(const std::vector<DopeSheetKey>& keys)
{
    std::vector<QPointer<TimeEditorKeyframeItem>> before = std::exchange(m_items, {});
    before.erase(std::remove(before.begin(), before.end(), nullptr), before.end());
    std::vector<QPointF> shown;
    std::vector<QPointF> wanted;
    for (const QPointer<TimeEditorKeyframeItem>& item : before) {
        shown.emplace_back(item->x(), 0.0);
    }
    for (const DopeSheetKey& key : keys) {
        wanted.emplace_back(shownFrame(key), 0.0);
    }
    const auto matches = ui::matchedPlaces(shown, wanted);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        TimeEditorKeyframeItem* const item =
            matches[i] ? std::exchange(before[*matches[i]], nullptr).data() : addKeyframe(0);
        m_items.emplace_back(item);
        if (item->x() != wanted[i].x()) {
            item->forceMove({wanted[i].x(), item->y()});
        }
        item->setEasing(keys[i].easing);
    }
    for (const QPointer<TimeEditorKeyframeItem>& item : before) {
        delete item.data();
    }
}

std::vector<DopeSheetKey> DopeSheetRow::keys() const
{
    std::vector<DopeSheetKey> all;
    for (const QPointer<TimeEditorKeyframeItem>& item : m_items) {
        if (item) {
            all.push_back({item->x(), item->easing()});
        }
    }
    return all;
}

TimeEditorKeyframeItem* DopeSheetRow::item(std::size_t key) const
{
    for (const QPointer<TimeEditorKeyframeItem>& item : m_items) {
        if (item && key-- == 0) { // as keys() counts
            return item;
        }
    }
    return nullptr;
}
