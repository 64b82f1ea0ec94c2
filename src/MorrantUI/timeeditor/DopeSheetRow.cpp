// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/DopeSheetRow.h"

#include "MorrantUI/timeeditor/KeyMarks.h"
#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>

DopeSheetRow::DopeSheetRow(TimeEditorView* view, QGraphicsItem* parent)
    : TimeEditorCurveItem(view, parent)
    , m_marks(std::make_unique<ui::KeyMarks>(view, this))
{}

DopeSheetRow::~DopeSheetRow() = default;

void DopeSheetRow::setKeys(const std::vector<DopeSheetKey>& keys)
{
    m_marks->set(keys);
}

std::vector<DopeSheetKey> DopeSheetRow::keys() const
{
    std::vector<DopeSheetKey> all;
    for (const QPointer<TimeEditorKeyframeItem>& item : m_marks->items()) {
        if (item) {
            all.push_back(
                {item->x(), item->easing(), item->acceptedMouseButtons() == Qt::NoButton});
        }
    }
    return all;
}

TimeEditorKeyframeItem* DopeSheetRow::item(std::size_t key) const
{
    for (const QPointer<TimeEditorKeyframeItem>& item : m_marks->items()) {
        if (item && key-- == 0) { // as keys() counts
            return item;
        }
    }
    return nullptr;
}
