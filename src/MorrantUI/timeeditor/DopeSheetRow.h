// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/timeeditor/TimeEditorCurveItem.h>
#include <MorrantUI/timeeditor/dopesheetlines.h>

#include <cstddef>
#include <memory>
#include <vector>

class TimeEditorKeyframeItem;

namespace ui {
class KeyMarks;
} // namespace ui

/// A row of keys that a host fills from its document and reads back: as a list, in the host's own
/// order, instead of one item for each key.
class MORRANT_UI_EXPORT DopeSheetRow : public TimeEditorCurveItem
{
    Q_OBJECT

public:
    explicit DopeSheetRow(TimeEditorView* view, QGraphicsItem* parent = nullptr);
    ~DopeSheetRow() override;

    /// Shows what the host has now; during a drag too, which goes on. Items stay selected as the
    /// keys that they show, wherever in the list these have come: an item goes on as the key at its
    /// frame, and what is left of both in its order. Nothing is told of the keys; where a selected
    /// one has gone or been locked, the scene's selectionChanged() is. Where that is the one that
    /// is dragged, the drag ends before, as by its release, and keys that its slots set are newer.
    /// Frames that are not finite are shown at 0.
    void setKeys(const std::vector<DopeSheetKey>& keys);
    /// What is shown, as the user has moved it: in the order in which the host gave the keys, also
    /// where they have passed each other.
    std::vector<DopeSheetKey> keys() const;
    /// The item of a key by its place in that order; null for none.
    TimeEditorKeyframeItem* item(std::size_t key) const;

private:
    std::unique_ptr<ui::KeyMarks> m_marks;
    int m_turn = 0; ///< of setKeys()
};
