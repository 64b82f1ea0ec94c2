// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/timeeditor/dopesheetlines.h>

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QString>

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

class DopeSheetView;
class QGraphicsItem;
class TimeEditorBaseItem;
class TimeEditorClipItem;
class TimeEditorKeyframeItem;
class TimeEditorRowHeader;
class TimeEditorScene;

namespace ui {
struct KeySum;
struct KeyTrace;
using KeyTraces = QHash<QString, KeyTrace>;
} // namespace ui

/// All rows of a dope sheet, as a list of lines that a host fills from its document and never keeps
/// in step by hand: rows, labels, folds, what is selected and what is being dragged.
///
/// A line is followed by those of its group, which are deeper. A group is folded by its arrow;
/// folded it shows the keys of all its lines in its own row, one mark for those at a frame, which
/// are selected and moved as the keys that they stand for. A mark that stands for a locked key
/// stays where it is: half of a movement would be another one. Lines that are folded away have no
/// items, so that large documents are folded quickly.
///
/// The scene's rows and the header's labels are the outline's alone: both are emptied whenever
/// lines come, go or change their order. Keys are shaded by their easing.
class MORRANT_UI_EXPORT DopeSheetOutline : public QObject
{
    Q_OBJECT

public:
    /// @param view with its scene, and header, as of a DopeSheetPane; without them, and once one of
    /// them has died, it shows nothing. The rows are the scene's: they outlive the outline.
    DopeSheetOutline(DopeSheetView& view, TimeEditorRowHeader& header, QObject* parent = nullptr);
    ~DopeSheetOutline() override;

    /// Shows what the document has now, in mid-drag too. The same lines in the same order keep
    /// their items, and all keep what is selected, the current row and what is scrolled to. Where
    /// other keys are selected afterwards, or the same ones stand at other places, the scene's
    /// selectionChanged() tells so once.
    ///
    /// A drag goes on while its lines stay and are not locked; a folded mark stands meanwhile for
    /// the keys of its press. A drag that cannot go on ends before anything else, as by its
    /// release: keysMoved() or clipsChanged(), and gestureEnded(), come while lines() is as before,
    /// and lines that are set by their slots are newer than these. A host that has a list of its
    /// own beside the lines calls DopeSheetView::finishGesture() before it changes that.
    void setLines(std::vector<DopeSheetLine> lines);
    /// The same for as many lines from one on, quicker where their ids and depths stay. What would
    /// lie behind the last line is ignored.
    void updateLines(std::size_t first, std::vector<DopeSheetLine> lines);
    const std::vector<DopeSheetLine>& lines() const { return m_lines; }

    /// The ids of groups that are folded, also of such as are no lines now. Where other lines are
    /// seen once they are set, a drag ends and rowsChanged() follows, as from setLines(), but not
    /// foldedChanged(). A mark is selected where all of its keys are: folding drops the selection
    /// of those that share one with others.
    const QSet<QString>& folded() const { return m_folded; }
    void setFolded(const QSet<QString>& ids);

    /// The keys that selected marks stand for, in order.
    std::vector<DopeSheetPlace> selectedKeys() const;
    /// Selects the marks all of whose keys are among these, and nothing else; what is no key of the
    /// lines does not count. Where that is another selection, the scene's selectionChanged() tells
    /// so once.
    void selectKeys(const std::vector<DopeSheetPlace>& keys);
    /// The lines whose row, or any mark in it, is selected, in order.
    std::vector<std::size_t> selectedLines() const;
    /// The selected keys, moved or not, and behind them others that have been taken away from where
    /// their lines say, as by a scaling that ripples. For TimeEditorView::keysMoving().
    std::vector<DopeSheetKeyMove> movedKeys() const;

    /// The row of a line, which is the scene's; null for one that is folded away, or none.
    TimeEditorBaseItem* row(std::size_t line) const;
    /// The line of a row; none for null and for rows that are not the outline's.
    std::optional<std::size_t> lineOf(const TimeEditorBaseItem* row) const;

Q_SIGNALS:
    /// The user drags a line's bar, by a step, or has taken that back. lines() has it as before.
    /// TimeEditorView::clipsChanged() or, also without a change, DopeSheetView::gestureEnded()
    /// tells that it is over.
    void clipChanging(std::size_t line, const DopeSheetClip& now);
    /// The user has folded or unfolded. A drag that was going on has been ended before.
    void foldedChanged();
    /// Rows have come or gone: for DopeSheetPane::rowsChanged().
    void rowsChanged();

private:
    struct Row;
    struct Selection;
    struct Kept;

    using Rows = std::span<const Row>;

    TimeEditorScene* scene() const;
    bool isShown(const Row& row, const DopeSheetLine& line, bool folded) const;
    bool showsRowsOf(const std::vector<DopeSheetLine>& lines, const QSet<QString>& folded) const;
    bool showsRowsOf(std::size_t first, const std::vector<DopeSheetLine>& lines, Rows rows) const;
    const QGraphicsItem* heldItem() const;
    bool endsGesture(const std::vector<DopeSheetLine>& lines) const;
    bool endGesture(std::vector<DopeSheetLine>& next);
    ui::KeyTraces tracesOf(Rows rows) const;
    std::vector<ui::KeySum> sumsOf(
        const ui::KeyTraces& traces,
        const std::vector<DopeSheetLine>& lines,
        std::size_t line) const;
    void sumUpAgain();
    template <typename Change>
    void refill(std::span<Row> rows, const Change& change);
    template <typename Change>
    void rebuild(const Change& change);
    Kept keep(const Selection& selection) const;
    void restore(const Kept& kept);
    void addRow(std::size_t line);
    TimeEditorBaseItem* makeItem(const DopeSheetLine& line);
    void tellClip(const TimeEditorClipItem& clip);
    void showRow(Row& row, const ui::KeyTraces& traces);
    void showItem(Row& row) const;
    std::size_t rowIndexOf(std::size_t line) const;
    void fold(const TimeEditorBaseItem* row, bool folded, bool all);
    Selection selectionOf(Rows rows) const;
    void tellSelection(bool isChanged);
    void select(Rows rows, std::vector<DopeSheetPlace> keys);
    template <typename Visit>
    void visitMarks(Rows rows, const Visit& visit) const;

    QPointer<DopeSheetView> m_view;
    QPointer<TimeEditorRowHeader> m_header;
    std::vector<DopeSheetLine> m_lines;
    QSet<QString> m_folded;
    std::vector<Row> m_rows; ///< of the lines that are seen, in order
    QHash<const TimeEditorBaseItem*, std::size_t> m_places; ///< of the rows, which may have died
    std::vector<DopeSheetLine>* m_next = nullptr; ///< while a gesture ends before they are shown
};
