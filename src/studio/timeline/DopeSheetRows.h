// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "timeline/doperows.h"

#include <QObject>
#include <QPointer>

#include <set>
#include <vector>

namespace studio {

struct DopeSheetState;

/// The rows of a document in a dope sheet, and which of its keys and layers the user has selected
/// or moved there.
class DopeSheetRows : public QObject
{
    Q_OBJECT

public:
    /// @param view and header have to outlive it
    DopeSheetRows(DopeSheetView& view, TimeEditorRowHeader& header, QObject* parent = nullptr);

    /// Shows a document, whose editor and state must outlive being shown.
    void setDocument(const DocumentEditor& editor, DopeSheetState& state);

    /// Shows some layers' times and keys as they are now.
    void refresh(const std::set<int>& layers);
    /// Names, order, visibility or locks of layers have changed, the sound, or anything else.
    void refreshAll();

    std::vector<KeyAddress> selectedKeys() const;
    /// Selects these keys and nothing else.
    void selectKeys(const std::vector<KeyAddress>& keys);
    /// The layers of selected keys and clips, upwards.
    std::vector<int> selectedLayers() const;

    struct DraggedKeys
    {
        std::vector<PropertyKeyChange> changes; ///< first those of selected keys, moved or not
        std::size_t selected = 0;               ///< how many these are
        std::size_t moved = 0;
    };
    /// The keys that are selected, and others that have been taken away from their frames on the
    /// screen, as with a scaling that ripples.
    DraggedKeys draggedKeys() const;

    /// The layer of a row, -1 for none.
    int layerOf(const TimeEditorBaseItem* row) const;
    TimeEditorBaseItem* rowOfLayer(int layer) const;
    const PropertyAddress* addressOf(const TimeEditorBaseItem* row) const;

Q_SIGNALS:
    /// The user drags the times of a layer, by a step; or has taken the drag back.
    void clipDragged(int layer, const DopeSheetClip& from, const DopeSheetClip& to);

private:
    const Document* document() const;
    const DopeRow* rowOf(const TimeEditorBaseItem* row) const;
    std::vector<DopeRow> allRows() const;
    void fitScene();

    DopeSheetView& m_view;
    DopeSheetOutline* m_outline;
    QPointer<const DocumentEditor> m_editor;
    DopeSheetState* m_state = nullptr;
    std::vector<DopeRow> m_rows; ///< the outline's lines
};

} // namespace studio
