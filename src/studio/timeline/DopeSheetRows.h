// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "timeline/doperows.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <set>
#include <vector>

class TimeEditorBaseItem;
class TimeEditorClipItem;
class TimeEditorCurveItem;
class TimeEditorKeyframeItem;
class TimeEditorRowHeader;
class TimeEditorScene;
class TimeEditorView;

namespace studio {

struct DopeSheetState;
struct Sound;

/// The rows of a document in a time editor's scene, and their labels. Shows what the document has,
/// and tells by their keys what of it is selected or has been moved by hand. What changes elsewhere
/// is shown row by row; rows are built anew only where others are to be seen.
class DopeSheetRows : public QObject
{
    Q_OBJECT

public:
    /// @param view and header have to outlive it
    DopeSheetRows(TimeEditorView& view, TimeEditorRowHeader& header, QObject* parent = nullptr);

    /// Shows a document, whose editor and state must outlive being shown.
    void setDocument(const DocumentEditor& editor, DopeSheetState& state);

    /// Shows some layers' times and keys as they are now.
    void refresh(const std::set<int>& layers);
    /// Names, order, visibility or locks of layers have changed, or anything else.
    void refreshLayers();
    /// The sound is another one.
    void refreshSound();

    /// Folds one layer, or all of them.
    void setFolded(const TimeEditorBaseItem* row, bool folded, bool all);

    std::vector<KeyAddress> selectedKeys() const;
    /// Selects these keys and nothing else.
    void selectKeys(const std::vector<KeyAddress>& keys);
    /// Selects the keys at the frames for which it is true, and nothing else.
    void selectFrames(const std::function<bool(double frame)>& isWanted);
    /// The frames of selected keys, upwards.
    std::vector<double> selectedFrames() const;
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
    void clipDragged(int layer, const studio::ClipFrames& from, const studio::ClipFrames& to);

private:
    struct Line
    {
        DopeRow row;
        TimeEditorBaseItem* item = nullptr;              ///< the scene's
        std::vector<TimeEditorKeyframeItem*> marks = {}; ///< one for each of the row's keys
        ClipFrames clip = {};                            ///< of a layer, as the document has it
    };
    using Lines = std::vector<Line>;

    TimeEditorScene& scene() const;
    const Document* document() const;
    std::vector<DopeRow> allRows() const;
    void rebuild();
    bool showRows(Lines::iterator first, Lines::iterator last, const std::vector<DopeRow>& rows);
    void tellSelection(bool isChanged);
    static std::vector<bool> selectionOf(const Line& line);
    void addSound();
    void addLine(const DopeRow& row);
    void connectClip(TimeEditorClipItem& clip);
    void fitScene();
    void showRow(Line& line, const DopeRow& row);
    void showLabel(const Line& line);
    void showMarks(Line& line);
    void showClip(Line& line);
    TimeEditorKeyframeItem* addMark(const Line& line) const;
    int layerOf(LayerId id) const;
    Line* find(const QObject* item);
    const Line* find(const QObject* item) const;
    template <typename IsWanted>
    void selectMarks(const IsWanted& isWanted);

    TimeEditorView& m_view;
    TimeEditorRowHeader& m_header;
    QPointer<const DocumentEditor> m_editor;
    DopeSheetState* m_state = nullptr;
    Lines m_lines;
};

} // namespace studio
