// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/DopeSheetRow.h"

#include "MorrantUI/timeeditor/KeyMarks.h"
#include "MorrantUI/timeeditor/SelectionTold.h"
#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>
#include <MorrantUI/timeeditor/TimeEditorView.h>

#include <optional>

DopeSheetRow::DopeSheetRow(TimeEditorView* view, QGraphicsItem* parent)
    : TimeEditorCurveItem(view, parent)
    , m_marks(std::make_unique<ui::KeyMarks>(view, this))
{}

DopeSheetRow::~DopeSheetRow() = default;

void DopeSheetRow::setKeys(const std::vector<DopeSheetKey>& keys)
{
    const int turn = ++m_turn;
    if (scene() && m_marks->endDragOf(scene()->mouseGrabberItem(), keys) && m_marks->view()) {
        const QPointer<DopeSheetRow> alive(this);
        m_marks->view()->finishDrags(); // before anything is touched
        if (!alive || turn != m_turn) {
            return; // what was set by whoever heard of it is newer
        }
    }
    std::optional<ui::SelectionTold> told; // tells at the end, when the row may die
    if (scene() && !scene()->signalsBlocked()) {
        told.emplace(*scene());
    }
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
