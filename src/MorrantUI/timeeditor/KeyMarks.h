// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/timeeditor/dopesheetlines.h>

#include <QPointer>

#include <vector>

class QGraphicsItem;
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

    /// As DopeSheetRow::setKeys() tells. Nothing once the row has died. What the mouse would lose
    /// by it has to be ended before, and the scene to be quiet: nobody may hear of a row half done.
    /// @param locked all of them
    void set(const std::vector<DopeSheetKey>& keys, bool locked = false);
    /// Whether these keys would take from the mouse the item that it holds, or lock it or another
    /// one that is selected, which goes along. @param held may be null, or no item of these
    bool endDragOf(
        const QGraphicsItem* held,
        const std::vector<DopeSheetKey>& keys,
        bool locked = false) const;
    TimeEditorView* view() const { return m_view; }
    /// As they were set; null where one has died since.
    const Items& items() const { return m_items; }

private:
    Items living() const;
    TimeEditorKeyframeItem* make(double frame) const;

    QPointer<TimeEditorView> m_view;
    QPointer<TimeEditorBaseItem> m_row;
    Items m_items;
};

} // namespace ui
