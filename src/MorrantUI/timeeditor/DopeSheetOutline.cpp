// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/DopeSheetOutline.h"

#include "MorrantUI/scene/placematching.h"
#include "MorrantUI/timeeditor/KeyMarks.h"
#include "MorrantUI/timeeditor/outlinelines.h"
#include <MorrantUI/timeeditor/DopeSheetView.h>
#include <MorrantUI/timeeditor/TimeEditorClipItem.h>
#include <MorrantUI/timeeditor/TimeEditorCurveItem.h>
#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>
#include <MorrantUI/timeeditor/TimeEditorRowHeader.h>
#include <MorrantUI/timeeditor/TimeEditorScene.h>
#include <MorrantUI/timeeditor/TimeEditorSoundItem.h>

#include <QHash>
#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

/// What keys are known by when rows are built anew.
std::vector<QPointF> framesOf(const DopeSheetLine& line)
{
    std::vector<QPointF> frames;
    for (const DopeSheetKey& key : line.keys) {
        frames.emplace_back(ui::shownFrame(key), 0.0);
    }
    return frames;
}

} // namespace

struct DopeSheetOutline::Row
{
    std::size_t line = 0;
    bool folded = false;
    QPointer<TimeEditorBaseItem> item; ///< the scene's
    ui::KeyMarks marks;
    std::vector<ui::KeySum> sums = {}; ///< what marks stand for, of one that is folded
};

struct DopeSheetOutline::Selection
{
    std::vector<DopeSheetPlace> keys;
    std::vector<std::size_t> lines; ///< whose row itself is selected

    bool operator==(const Selection&) const = default;
};

struct DopeSheetOutline::Kept
{
    struct Keys
    {
        std::vector<QPointF> frames; ///< of all keys of a line
        std::vector<bool> selected;
    };
    QHash<QString, Keys> keys;
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

bool DopeSheetOutline::showsRowsOf(const std::vector<DopeSheetLine>& lines) const
{
    const std::vector<std::size_t> seen = ui::seenLines(lines, m_folded);
    const auto isSame = [&](const Row& row, std::size_t line) {
        return isShown(row, lines[line], ui::isFolded(lines, m_folded, line));
    };
    return std::equal(m_rows.begin(), m_rows.end(), seen.begin(), seen.end(), isSame);
}

void DopeSheetOutline::setLines(std::vector<DopeSheetLine> lines)
{
    if (!scene()) {
        m_rows.clear();
        m_lines = std::move(lines);
        return;
    }
    if (!showsRowsOf(lines)) {
        rebuild([&] { m_lines = std::move(lines); });
        return;
    }
    const Selection before = selectionOf(m_rows);
    {
        const QSignalBlocker quiet(scene()); // one signal for all of them
        m_lines = std::move(lines);
        const std::vector<std::size_t> seen = ui::seenLines(m_lines, m_folded);
        for (std::size_t i = 0; i < seen.size(); ++i) {
            m_rows[i].line = seen[i];
            showRow(m_rows[i]);
        }
    }
    tellSelection(selectionOf(m_rows) != before);
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
    lines.resize(std::min(lines.size(), m_lines.size() - std::min(first, m_lines.size())));
    if (lines.empty()) {
        return;
    }
    const std::size_t begin = m_rows.empty() ? 0 : rowIndexOf(first);
    const std::size_t end = m_rows.empty() ? 0 : rowIndexOf(first + lines.size() - 1) + 1;
    const Rows rows = Rows(m_rows).subspan(begin, end - begin);
    const auto place = [&](std::vector<DopeSheetLine>& all) {
        std::move(lines.begin(), lines.end(), all.begin() + std::ptrdiff_t(first));
    };
    if (!scene() || rows.empty() || !showsRowsOf(first, lines, rows)) {
        std::vector<DopeSheetLine> all = m_lines;
        place(all);
        setLines(std::move(all));
        return;
    }
    const Selection before = selectionOf(rows);
    {
        const QSignalBlocker quiet(scene());
        place(m_lines);
        std::for_each(
            m_rows.begin() + std::ptrdiff_t(begin),
            m_rows.begin() + std::ptrdiff_t(end),
            [this](Row& row) { showRow(row); });
    }
    tellSelection(selectionOf(rows) != before);
}

void DopeSheetOutline::setFolded(const QSet<QString>& ids)
{
    if (!scene()) {
        m_folded = ids;
    } else if (m_folded != ids) {
        rebuild([&] { m_folded = ids; });
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
            folded ? void(ids.insert(each.id)) : void(ids.remove(each.id));
        }
    }
    setFolded(ids);
    if (alive) {
        Q_EMIT foldedChanged();
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
        Kept::Keys& keys = kept.keys[line.id];
        if (keys.frames.empty()) {
            keys.frames = framesOf(line);
        }
        keys.selected.resize(std::max(keys.frames.size(), place.key + 1)); // ids may be shared
        keys.selected[place.key] = true;
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
    std::vector<DopeSheetPlace> places;
    for (std::size_t line = 0; line < m_lines.size(); ++line) {
        const auto keys = kept.keys.constFind(m_lines[line].id);
        if (keys == kept.keys.cend()) {
            continue;
        }
        const auto matches = ui::matchedPlaces(keys->frames, framesOf(m_lines[line]));
        for (std::size_t key = 0; key < matches.size(); ++key) {
            if (matches[key] && keys->selected[*matches[key]]) {
                places.push_back({line, key});
            }
        }
    }
    select(places);
    for (const Row& row : m_rows) {
        auto* const clip = dynamic_cast<TimeEditorClipItem*>(row.item.data());
        if (kept.rows.contains(m_lines[row.line].id)) {
            clip ? clip->selectItemAndClips() : row.item->setSelected(true);
        }
    }
    for (const QString& id : kept.current) {
        const auto seen = std::find_if(m_rows.begin(), m_rows.end(), [&](const Row& row) {
            return m_lines[row.line].id == id;
        });
        if (seen != m_rows.end()) {
            m_header->setCurrentRow(seen->item);
            break; // what is around it is farther from what was current
        }
    }
}

void DopeSheetOutline::addRow(std::size_t line)
{
    TimeEditorBaseItem* const item = makeItem(m_lines[line]);
    m_rows.push_back(
        {line, ui::isFolded(m_lines, m_folded, line), item, ui::KeyMarks(m_view, item)});
    showRow(m_rows.back()); // before it is in the scene: nobody has to be told of each key
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
void DopeSheetOutline::showRow(Row& row)
{
    const DopeSheetLine& line = m_lines[row.line];
    if (row.item->isEnabled() == line.locked) {
        row.item->setEnabled(!line.locked);
    }
    if (row.folded) {
        row.sums = ui::keySums(m_lines, row.line, ui::groupEnd(m_lines, row.line));
        std::vector<DopeSheetKey> keys;
        std::transform(
            row.sums.begin(), row.sums.end(), std::back_inserter(keys), [](const auto& sum) {
                return sum.key;
            });
        row.marks.set(keys);
    } else {
        row.marks.set(line.keys);
    }
    showItem(row);
    TimeRowLabel label = line.label;
    label.foldable = ui::isGroup(m_lines, row.line);
    label.folded = row.folded;
    m_header->setLabel(row.item, label);
}

void DopeSheetOutline::showItem(const Row& row) const
{
    const DopeSheetLine& line = m_lines[row.line];
    if (auto* const curve = dynamic_cast<TimeEditorCurveItem*>(row.item.data())) {
        curve->setText(line.label.text); // for who hears the keys
    } else if (auto* const sound = dynamic_cast<TimeEditorSoundItem*>(row.item.data())) {
        sound->setPeaks(line.sound->peaks);
        sound->setPlacement(line.sound->placement);
    } else if (auto* const clip = dynamic_cast<TimeEditorClipItem*>(row.item.data())) {
        const std::vector<VisClip*> areas = clip->getClipAreas();
        if (!areas.empty()) {
            areas.front()->setRange(line.clip->start, line.clip->end);
            areas.front()->setSlip(line.clip->slip);
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
    const auto found = std::find_if(
        m_rows.begin(), m_rows.end(), [row](const Row& each) { return row && each.item == row; });
    return found != m_rows.end() ? std::optional(found->line) : std::nullopt;
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
        select(keys);
    }
    tellSelection(selectionOf(m_rows) != before);
}

void DopeSheetOutline::select(const std::vector<DopeSheetPlace>& keys)
{
    std::vector<std::vector<bool>> wanted(m_lines.size());
    for (const auto& [line, key] : keys) {
        if (line < m_lines.size() && key < m_lines[line].keys.size()) {
            wanted[line].resize(m_lines[line].keys.size());
            wanted[line][key] = true;
        }
    }
    const auto isWanted = [&wanted](const DopeSheetPlace& place) {
        return !wanted[place.line].empty() && wanted[place.line][place.key];
    };
    scene()->clearSelection();
    visitMarks(m_rows, [&](TimeEditorKeyframeItem& mark, double, auto own) {
        if (std::all_of(own.begin(), own.end(), isWanted)) {
            mark.setSelected(true);
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
        const ui::KeyMarks::Items& marks = row.marks.items();
        const bool hasMark = std::any_of(marks.begin(), marks.end(), [](const auto& mark) {
            return mark && mark->isSelected();
        });
        if (hasMark || (row.item && row.item->isSelected())) {
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
