// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/timeeditor/dopesheetlines.h>

#include <QPointer>

#include <vector>

class TimeEditorBaseItem;
class TimeEditorKeyframeItem;
class TimeEditorView;

namespace ui {

/// The keys of a row of whatever kind, as a list in the host's order. Items may die meanwhile, also
/// by the host's hand.
class KeyMarks
{
public:
    using Items = std::vector<QPointer<TimeEditorKeyframeItem>>;

    /// @param row whose children the keys are
    KeyMarks(TimeEditorView* view, TimeEditorBaseItem* row);

    /// As DopeSheetRow::setKeys() tells. Nothing once the row has died.
    void set(const std::vector<DopeSheetKey>& keys);
    /// As they were set; null where one has died since.
    const Items& items() const { return m_items; }

private:
    TimeEditorKeyframeItem* make(double frame) const;

    QPointer<TimeEditorView> m_view;
    QPointer<TimeEditorBaseItem> m_row;
    Items m_items;
};

} // namespace ui
