// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "timeline/doperows.h"
#include <MorrantUI/timeeditor/TimeEditorUtils.h>

#include <QPointer>

#include <map>
#include <set>

class DopeSheetView;

namespace studio {

class DopeSheetRows;

/// What the user does to keys and clips of the dope sheet, as edits of the document. A drag is one
/// undo step, shown everywhere at every move; commands are a step each. What changes elsewhere is
/// shown in the rows once control returns to the event loop.
class DopeSheetEdits : public TimeEditorUtils
{
    Q_OBJECT

public:
    /// @param view and rows have to outlive it
    DopeSheetEdits(DopeSheetView& view, DopeSheetRows& rows);

    /// Edits another document from now on, whose rows are shown.
    void setEditor(DocumentEditor& editor);
    /// The layer that is chosen, into which keys of another one are pasted; -1 for none.
    void setLayer(int layer) { m_layer = layer; }
    /// Ends a drag where it is.
    void finish();
    bool isDragging() const { return m_isDragging; }

    void onCutKeyframes() override;
    void onCopyKeyframes() override;
    /// At the current frame. Keys of several layers go back to theirs.
    void onPasteKeyframes() override;
    void onDeleteKeyframes(std::set<TimeEditorKeyframeItem*> keys) override;

    void addKey(const PropertyAddress& address);
    /// To the current frame, or right behind what is copied where that begins there.
    void duplicate();
    void nudge(int frames);
    /// Selects these keys and nothing else; with none, all stays as it is.
    void select(const std::vector<KeyAddress>& keys);
    /// Brings the beginning or the end of the chosen layers to the current frame.
    void trim(bool start);

Q_SIGNALS:
    void dragStarted();
    void layersShown(); ///< anew, as they have changed

private:
    void followKeys();
    void followClip(int layer, const DopeSheetClip& from, const DopeSheetClip& to);
    void begin(const QString& text);
    void noteEdit(int layer);
    void showEdits();

    DopeSheetView& m_view;
    DopeSheetRows& m_rows;
    QPointer<DocumentEditor> m_editor;
    int m_layer = -1;
    bool m_isDragging = false;
    std::vector<std::optional<KeyAddress>> m_places; ///< of the selected keys, during a drag
    std::map<int, ClipTimes> m_clipsBefore;          ///< of the layers that are
    std::map<int, ClipTimes> m_clips;                ///< likewise, as they are now
    std::set<int> m_stale;                           ///< layers whose rows show what has been
};

} // namespace studio
