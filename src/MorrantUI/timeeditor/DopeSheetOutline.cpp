// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/DopeSheetOutline.h"

#include "MorrantUI/timeeditor/KeyMarks.h"
#include "MorrantUI/timeeditor/keywalk.h"
#include "MorrantUI/timeeditor/outlinelines.h"
#include <MorrantUI/timeeditor/DopeSheetView.h>
#include <MorrantUI/timeeditor/TimeEditorClipItem.h>
#include <MorrantUI/timeeditor/TimeEditorCurveItem.h>
#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>
#include <MorrantUI/timeeditor/TimeEditorRowHeader.h>
#include <MorrantUI/timeeditor/TimeEditorScene.h>
#include <MorrantUI/timeeditor/TimeEditorSoundItem.h>
#include <MorrantUI/timeline/TimeHandle.h>

#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>
#include <utility>

struct DopeSheetOutline::Row
{
    std::size_t line = 0;
    bool folded = false;
    QPointer<TimeEditorBaseItem> item; ///< the scene's
    ui::KeyMarks marks;
    std::vector<ui::KeySum> sums = {}; ///< what marks stand for, of one that is folded
    bool keepsSums = false;            ///< as they were when the mouse took hold
    QColor usual = {};                 ///< the item's own, once a line has given another

    bool isSelected() const
    {
        const ui::KeyMarks::Items& items = marks.items();
        return (item && item->isSelected())
               || std::any_of(items.begin(), items.end(), [](const auto& mark) {
                      return mark && mark->isSelected();
                  });
    }
};

struct DopeSheetOutline::Selection
{
    std::vector<DopeSheetPlace> keys;
    std::vector<std::size_t> lines; ///< whose row itself is selected

    bool operator==(const Selection&) const = default;
};

struct DopeSheetOutline::Kept
{
    ui::KeyTraces keys;
    QSet<QString> rows;
    std::vector<QString> current; ///< and the groups around it, from the inside
};

DopeSheetOutline::DopeSheetOutline(
    DopeSheetView& view, TimeEditorRowHeader& header, QObject* parent)
    : QObject(parent)
    , m_view(&view)
    , m_header(&header)
{
    connect(&header, &TimeEditorRowHeader::foldRequested, this, &DopeSheetOutline::fold);
    connect(&view, &DopeSheetView::gestureEnded, this, &DopeSheetOutline::sumUpAgain);
}

DopeSheetOutline::~DopeSheetOutline() = default;

TimeEditorScene* DopeSheetOutline::scene() const
{
    return m_view && m_header ? m_view->getEditorScene() : nullptr;
}

// Lines

/// Whether a line is the one that a row shows already, in the same way.
bool DopeSheetOutline::isShown(const Row& row, const DopeSheetLine& line, bool folded) const
{
    const DopeSheetLine& shown = m_lines[row.line];
    return row.item && row.folded == folded && shown.id == line.id
           && shown.clip.has_value() == line.clip.has_value()
           && shown.sound.has_value() == line.sound.has_value();
}

bool DopeSheetOutline::showsRowsOf(
    const std::vector<DopeSheetLine>& lines, const QSet<QString>& folded) const
{
    const std::vector<std::size_t> seen = ui::seenLines(lines, folded);
    const auto isSame = [&](const Row& row, std::size_t line) {
        return isShown(row, lines[line], ui::isFolded(lines, folded, line));
    };
    return std::equal(m_rows.begin(), m_rows.end(), seen.begin(), seen.end(), isSame);
}

void DopeSheetOutline::setLines(std::vector<DopeSheetLine> lines)
{
    m_next = nullptr; // these are newer
    if (scene() && endsGesture(lines) && !endGesture(lines)) {
        return;
    }
    if (!scene()) {
        m_rows.clear();
        m_lines = std::move(lines);
        return;
    }
    if (!showsRowsOf(lines, m_folded)) {
        rebuild([&] { m_lines = std::move(lines); });
        return;
    }
    refill(m_rows, [&] {
        m_lines = std::move(lines);
        const std::vector<std::size_t> seen = ui::seenLines(m_lines, m_folded);
        for (std::size_t i = 0; i < seen.size(); ++i) {
            m_rows[i].line = seen[i];
        }
    });
}

/// Shows in rows that are there already what a change of their lines makes of them.
template <typename Change>
void DopeSheetOutline::refill(std::span<Row> rows, const Change& change)
{
    const Selection before = selectionOf(rows);
    const ui::KeyTraces traces = tracesOf(rows);
    {
        const QSignalBlocker quiet(scene()); // one signal for all of them
        change();
        for (Row& row : rows) {
            if (row.item) { // the scene may have been cleared by others
                showRow(row, traces);
            }
        }
    }
    tellSelection(selectionOf(rows) != before);
}

/// Whether lines could take the place of as many from one on, in the rows that show those.
bool DopeSheetOutline::showsRowsOf(
    std::size_t first, const std::vector<DopeSheetLine>& lines, Rows rows) const
{
    const auto isSame = [](const DopeSheetLine& line, const DopeSheetLine& shown) {
        return line.id == shown.id && line.label.depth == shown.label.depth;
    };
    const auto isShownIn = [&](const Row& row) {
        const bool isGiven = row.line >= first; // else it is the group of the first one
        return isShown(row, isGiven ? lines[row.line - first] : m_lines[row.line], row.folded);
    };
    return std::equal(lines.begin(), lines.end(), m_lines.begin() + std::ptrdiff_t(first), isSame)
           && std::all_of(rows.begin(), rows.end(), isShownIn);
}

void DopeSheetOutline::updateLines(std::size_t first, std::vector<DopeSheetLine> lines)
{
    const std::size_t count = m_next ? m_next->size() : m_lines.size();
    lines.resize(std::min(lines.size(), count - std::min(first, count)));
    const auto place = [&](std::vector<DopeSheetLine>& all) {
        std::move(lines.begin(), lines.end(), all.begin() + std::ptrdiff_t(first));
    };
    if (lines.empty()) {
        return;
    }
    if (m_next) {
        place(*m_next);
        return;
    }
    const std::size_t begin = m_rows.empty() ? 0 : rowIndexOf(first);
    const std::size_t end = m_rows.empty() ? 0 : rowIndexOf(first + lines.size() - 1) + 1;
    const auto rows = std::span<Row>(m_rows).subspan(begin, end - begin);
    if (!scene() || rows.empty() || heldItem() || !showsRowsOf(first, lines, rows)) {
        std::vector<DopeSheetLine> all = m_lines;
        place(all);
        setLines(std::move(all));
        return;
    }
    refill(rows, [&] { place(m_lines); });
}

void DopeSheetOutline::setFolded(const QSet<QString>& ids)
{
    const QSet<QString> wanted = ids; // whoever hears of a gesture's end may change the host's
    const QPointer<DopeSheetOutline> alive(this);
    if (scene() && heldItem() && !showsRowsOf(m_lines, wanted)) {
        m_view->finishGesture();
    }
    if (!alive) {
        return;
    }
    if (!scene() || showsRowsOf(m_lines, wanted)) {
        m_folded = wanted;
    } else {
        rebuild([&] { m_folded = wanted; });
    }
}

void DopeSheetOutline::fold(const TimeEditorBaseItem* row, bool folded, bool all)
{
    const std::optional<std::size_t> line = lineOf(row);
    if (!line || !scene()) {
        return;
    }
    const QString id = m_lines[*line].id;
    const int depth = m_lines[*line].label.depth;
    const QPointer<DopeSheetOutline> alive(this);
    m_view->finishGesture(); // whoever hears of it may give other lines
    if (!alive || !scene()) {
        return;
    }
    QSet<QString> ids = m_folded;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        const DopeSheetLine& each = m_lines[i];
        if (ui::isGroup(m_lines, i) && (all ? each.label.depth == depth : each.id == id)) {
            if (folded) {
                ids.insert(each.id);
            } else {
                ids.remove(each.id);
            }
        }
    }
    setFolded(ids);
    if (alive) {
        Q_EMIT foldedChanged();
    }
}

// What the mouse holds

/// A row, a mark or the tool; the playhead is none of the outline's.
const QGraphicsItem* DopeSheetOutline::heldItem() const
{
    const QGraphicsItem* const held = scene()->mouseGrabberItem();
    return held != scene()->getTimeHandle() ? held : nullptr;
}

/// Whether new lines would take away or lock what the mouse holds, or what goes along with that.
bool DopeSheetOutline::endsGesture(const std::vector<DopeSheetLine>& lines) const
{
    const QGraphicsItem* const held = heldItem();
    if (!showsRowsOf(lines, m_folded)) {
        return held || m_view->rubberBandRect().isValid();
    }
    const std::vector<std::size_t> seen = ui::seenLines(lines, m_folded);
    for (std::size_t i = 0; held && i < seen.size(); ++i) {
        const Row& row = m_rows[i];
        if (held != row.item.data() && held->parentItem() != row.item.data() && !row.isSelected()) {
            continue;
        }
        const DopeSheetLine& line = lines[seen[i]];
        const auto keys =
            row.folded ? ui::keysOf(sumsOf(tracesOf(Rows(&row, 1)), lines, seen[i])) : line.keys;
        if (line.locked || row.marks.endDragOf(held, keys)) {
            return true;
        }
    }
    return false;
}

/// Before anything is touched: whoever hears of the gesture's end finds rows and lines as before.
/// @return whether the next lines are still the next ones
bool DopeSheetOutline::endGesture(std::vector<DopeSheetLine>& next)
{
    const QPointer<DopeSheetOutline> alive(this);
    m_next = &next;
    m_view->finishGesture();
    return alive && std::exchange(m_next, nullptr) == &next;
}

/// What folded rows have to find again: which keys are selected and, in mid-drag, summed up.
ui::KeyTraces DopeSheetOutline::tracesOf(Rows rows) const
{
    ui::KeyTraces traces;
    for (const Row& row : rows) {
        if (!row.folded || !(heldItem() || row.isSelected())) {
            continue;
        }
        std::size_t number = 0;
        visitMarks(Rows(&row, 1), [&](const auto& mark, double frame, auto keys) {
            for (const auto& [line, key] : keys) {
                const double own = ui::shownFrame(m_lines[line].keys[key]);
                ui::trace(
                    traces, m_lines[line], key, own + mark.x() - frame, mark.isSelected(), number);
            }
            ++number;
        });
    }
    return traces;
}

/// A mark that is dragged over another one does not take it along.
std::vector<ui::KeySum> DopeSheetOutline::sumsOf(
    const ui::KeyTraces& traces, const std::vector<DopeSheetLine>& lines, std::size_t line) const
{
    const std::size_t end = ui::groupEnd(lines, line);
    return heldItem() ? ui::keptSums(traces, lines, line, end) : ui::keySums(lines, line, end);
}

void DopeSheetOutline::sumUpAgain()
{
    const auto keepsSums = [](const Row& row) { return row.keepsSums; };
    if (scene() && std::any_of(m_rows.begin(), m_rows.end(), keepsSums)) {
        refill(m_rows, [] {});
    }
}

// Rows

/// Builds all rows anew around a change, and finds again what was selected, current and in sight.
template <typename Change>
void DopeSheetOutline::rebuild(const Change& change)
{
    const Selection before = selectionOf(m_rows);
    const Kept kept = keep(before);
    const int scrolled = m_view->verticalScrollBar()->value();
    {
        const QSignalBlocker quiet(scene());
        change();
        m_rows.clear();
        m_places.clear();
        m_header->clear();
        scene()->clearScene();
        for (const std::size_t line : ui::seenLines(m_lines, m_folded)) {
            addRow(line);
        }
        restore(kept);
    }
    const QPointer<DopeSheetOutline> alive(this);
    Q_EMIT rowsChanged();
    if (alive && scene()) {
        m_view->verticalScrollBar()->setValue(scrolled);
        tellSelection(selectionOf(m_rows) != before);
    }
}

/// What outlives the rows, by the lines' ids.
DopeSheetOutline::Kept DopeSheetOutline::keep(const Selection& selection) const
{
    Kept kept;
    for (const DopeSheetPlace& place : selection.keys) {
        const DopeSheetLine& line = m_lines[place.line];
        ui::trace(kept.keys, line, place.key, ui::shownFrame(line.keys[place.key]), true, 0);
    }
    for (const std::size_t line : selection.lines) {
        kept.rows.insert(m_lines[line].id);
    }
    if (const auto current = lineOf(m_header->currentRow())) {
        kept.current = ui::idsAround(m_lines, *current);
    }
    return kept;
}

void DopeSheetOutline::restore(const Kept& kept)
{
    scene()->clearSelection();
    select(m_rows, ui::selectedAgain(kept.keys, m_lines, 0, m_lines.size()));
    for (const Row& row : m_rows) {
        auto* const clip = dynamic_cast<TimeEditorClipItem*>(row.item.data());
        if (kept.rows.contains(m_lines[row.line].id)) {
            clip ? clip->selectItemAndClips() : row.item->setSelected(true);
        }
    }
    TimeEditorBaseItem* current = nullptr;
    for (const QString& id : kept.current) {
        const auto seen = std::find_if(m_rows.begin(), m_rows.end(), [&](const Row& row) {
            return m_lines[row.line].id == id;
        });
        if (seen != m_rows.end()) {
            current = seen->item;
            break; // what is around it is farther from what was current
        }
    }
    m_header->setCurrentRow(current);
}

void DopeSheetOutline::addRow(std::size_t line)
{
    TimeEditorBaseItem* const item = makeItem(m_lines[line]);
    m_rows.push_back(
        {line, ui::isFolded(m_lines, m_folded, line), item, ui::KeyMarks(m_view, item)});
    m_places.insert(item, m_rows.size() - 1);
    showRow(m_rows.back(), {}); // before it is in the scene: nobody has to be told of each key
    scene()->addLayoutItem(item);
}

TimeEditorBaseItem* DopeSheetOutline::makeItem(const DopeSheetLine& line)
{
    if (line.clip) {
        auto* const clip = new TimeEditorClipItem(m_view);
        clip->addClipArea(0, 1);
        connect(clip, &TimeEditorClipItem::clipChanging, this, [this, clip] { tellClip(*clip); });
        return clip;
    }
    if (line.sound) {
        auto* const sound = new TimeEditorSoundItem(m_view);
        sound->setFlag(QGraphicsItem::ItemIsSelectable, false);
        return sound;
    }
    auto* const curve = new TimeEditorCurveItem(m_view);
    curve->setColorMode(TimeEditorCurveItem::ColorMode::Easing);
    return curve;
}

void DopeSheetOutline::tellClip(const TimeEditorClipItem& clip)
{
    const std::optional<std::size_t> line = lineOf(&clip);
    const std::vector<VisClip*> areas = clip.getClipAreas();
    if (line && !areas.empty()) {
        const VisClip& area = *areas.front();
        Q_EMIT clipChanging(*line, {area.getStart(), area.getEnd(), area.slip()});
    }
}

/// Shows its line in a row that is there already.
void DopeSheetOutline::showRow(Row& row, const ui::KeyTraces& traces)
{
    const DopeSheetLine& line = m_lines[row.line];
    if (row.item->isEnabled() == line.locked) {
        row.item->setEnabled(!line.locked);
    }
    if (row.folded) {
        row.keepsSums = heldItem();
        row.sums = sumsOf(traces, m_lines, row.line);
        row.marks.set(ui::keysOf(row.sums), line.locked);
        const std::size_t end = ui::groupEnd(m_lines, row.line);
        if (!traces.isEmpty()) {
            select(Rows(&row, 1), ui::selectedAgain(traces, m_lines, row.line, end));
        }
    } else {
        row.marks.set(line.keys, line.locked);
    }
    showItem(row);
    TimeRowLabel label = line.label;
    label.foldable = ui::isGroup(m_lines, row.line);
    label.folded = row.folded;
    m_header->setLabel(row.item, label);
}

void DopeSheetOutline::showItem(Row& row) const
{
    const DopeSheetLine& line = m_lines[row.line];
    row.item->setData(ui::kRowName, line.label.text);
    const QColor base = row.item->getBaseColor();
    if (line.color.isValid() && !row.usual.isValid()) {
        row.usual = base;
    }
    const QColor color = line.color.isValid() ? line.color : row.usual;
    if (color.isValid() && color != base) {
        row.item->setColor(color);
    }
    if (auto* const curve = dynamic_cast<TimeEditorCurveItem*>(row.item.data())) {
        curve->setText(line.label.text); // for who hears the keys
    } else if (auto* const sound = dynamic_cast<TimeEditorSoundItem*>(row.item.data())) {
        sound->setPeaks(line.sound->peaks);
        sound->setPlacement(line.sound->placement);
        if (line.sound->audible) {
            sound->setAudibleRange(line.sound->audible->first, line.sound->audible->second);
        }
        sound->setText(line.text);
    } else if (auto* const clip = dynamic_cast<TimeEditorClipItem*>(row.item.data())) {
        const std::vector<VisClip*> areas = clip->getClipAreas();
        if (!areas.empty()) {
            areas.front()->setRange(line.clip->start, line.clip->end);
            areas.front()->setSlip(line.clip->slip);
            clip->setText(line.text);
            clip->refresh();
        }
    }
}

/// The row that shows a line, by itself or as a part of its sums.
std::size_t DopeSheetOutline::rowIndexOf(std::size_t line) const
{
    const auto behind = std::upper_bound(
        m_rows.begin(), m_rows.end(), line, [](std::size_t wanted, const Row& row) {
            return wanted < row.line;
        });
    return static_cast<std::size_t>(behind - m_rows.begin()) - 1; // the first line is always seen
}

TimeEditorBaseItem* DopeSheetOutline::row(std::size_t line) const
{
    const Row* const shown =
        line < m_lines.size() && !m_rows.empty() ? &m_rows[rowIndexOf(line)] : nullptr;
    return shown && shown->line == line ? shown->item.data() : nullptr;
}

std::optional<std::size_t> DopeSheetOutline::lineOf(const TimeEditorBaseItem* row) const
{
    const auto place = m_places.constFind(row);
    const bool isSeen = row && place != m_places.cend() && m_rows[*place].item == row;
    return isSeen ? std::optional(m_rows[*place].line) : std::nullopt;
}

// What is selected and moved

/// Calls with each mark, the frame that it was given, and the keys that it stands for.
template <typename Visit>
void DopeSheetOutline::visitMarks(Rows rows, const Visit& visit) const
{
    for (const Row& row : rows) {
        const ui::KeyMarks::Items& items = row.marks.items();
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (!items[i]) {
                continue;
            }
            const DopeSheetPlace own{row.line, i};
            const DopeSheetKey& key = row.folded ? row.sums[i].key : m_lines[row.line].keys[i];
            const auto keys = row.folded ? std::span<const DopeSheetPlace>(row.sums[i].keys)
                                         : std::span<const DopeSheetPlace>(&own, 1);
            visit(*items[i], ui::shownFrame(key), keys);
        }
    }
}

DopeSheetOutline::Selection DopeSheetOutline::selectionOf(Rows rows) const
{
    Selection selection;
    visitMarks(rows, [&](const TimeEditorKeyframeItem& mark, double, auto keys) {
        if (mark.isSelected()) {
            selection.keys.insert(selection.keys.end(), keys.begin(), keys.end());
        }
    });
    for (const Row& row : rows) {
        if (row.item && row.item->isSelected()) {
            selection.lines.push_back(row.line);
        }
    }
    return selection;
}

std::vector<DopeSheetPlace> DopeSheetOutline::selectedKeys() const
{
    std::vector<DopeSheetPlace> keys = selectionOf(m_rows).keys;
    std::sort(keys.begin(), keys.end());
    return keys;
}

void DopeSheetOutline::selectKeys(const std::vector<DopeSheetPlace>& keys)
{
    if (!scene()) {
        return;
    }
    const Selection before = selectionOf(m_rows);
    {
        const QSignalBlocker quiet(scene());
        scene()->clearSelection();
        select(m_rows, keys);
    }
    tellSelection(selectionOf(m_rows) != before);
}

/// Selects the rows' marks all of whose keys are among these, and no other marks of theirs.
void DopeSheetOutline::select(Rows rows, std::vector<DopeSheetPlace> keys)
{
    std::sort(keys.begin(), keys.end());
    const auto isWanted = [&keys](const DopeSheetPlace& place) {
        return std::binary_search(keys.begin(), keys.end(), place);
    };
    visitMarks(rows, [&](TimeEditorKeyframeItem& mark, double, auto own) {
        const bool selected = std::all_of(own.begin(), own.end(), isWanted);
        if (mark.isSelected() != selected) {
            mark.setSelected(selected);
        }
    });
}

/// The view's tool is about keys that may be elsewhere, even where the same ones are selected.
void DopeSheetOutline::tellSelection(bool isChanged)
{
    isChanged ? Q_EMIT scene()->selectionChanged() : m_view->selectionChanged();
}

std::vector<std::size_t> DopeSheetOutline::selectedLines() const
{
    std::vector<std::size_t> lines;
    for (const Row& row : m_rows) {
        if (row.isSelected()) {
            lines.push_back(row.line);
        }
    }
    return lines;
}

std::vector<DopeSheetKeyMove> DopeSheetOutline::movedKeys() const
{
    std::vector<DopeSheetKeyMove> moves;
    std::vector<DopeSheetKeyMove> others;
    visitMarks(m_rows, [&](const TimeEditorKeyframeItem& mark, double frame, auto keys) {
        const double distance = mark.x() - frame;
        if (!mark.isSelected() && distance == 0.0) {
            return;
        }
        for (const DopeSheetPlace& place : keys) {
            const double from = ui::shownFrame(m_lines[place.line].keys[place.key]);
            (mark.isSelected() ? moves : others)
                .push_back({place, from + distance, distance, mark.isSelected()});
        }
    });
    moves.insert(moves.end(), others.begin(), others.end());
    return moves;
}
