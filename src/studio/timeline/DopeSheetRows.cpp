// SPDX-License-Identifier: Apache-2.0
#include "timeline/DopeSheetRows.h"

#include "timeline/DopeSheetState.h"
#include "timeline/soundfile.h"
#include <MorrantUI/theme/icons.h>
#include <MorrantUI/timeeditor/TimeEditorClipItem.h>
#include <MorrantUI/timeeditor/TimeEditorCurveItem.h>
#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>
#include <MorrantUI/timeeditor/TimeEditorLayoutContainer.h>
#include <MorrantUI/timeeditor/TimeEditorRowHeader.h>
#include <MorrantUI/timeeditor/TimeEditorScene.h>
#include <MorrantUI/timeeditor/TimeEditorSoundItem.h>
#include <MorrantUI/timeeditor/TimeEditorView.h>

#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>
#include <set>
#include <tuple>
#include <utility>

namespace studio {

namespace {

constexpr int kMarginShare = 40;    ///< of the sheet's frames, left free on either side
constexpr double kMarkMiddle = 6.0; ///< scene units below a mark's own y

/// A key's address, in an order.
using KeyName = std::tuple<int, Attribute, std::vector<std::size_t>, std::size_t>;

KeyName nameOfKey(const KeyAddress& key)
{
    return {key.property.layer, key.property.attribute, key.property.item, key.key};
}

std::vector<double> timesOf(const std::vector<DopeKey>& keys)
{
    std::vector<double> times;
    for (const DopeKey& key : keys) {
        times.push_back(key.time);
    }
    return times;
}

ClipFrames framesOf(const TimeEditorClipItem& clip)
{
    const VisClip& area = *clip.getClipAreas().front();
    return {area.getStart(), area.getEnd(), area.slip()};
}

} // namespace

DopeSheetRows::DopeSheetRows(TimeEditorView& view, TimeEditorRowHeader& header, QObject* parent)
    : QObject(parent)
    , m_view(view)
    , m_header(header)
{}

void DopeSheetRows::setDocument(const DocumentEditor& editor, DopeSheetState& state)
{
    m_editor = &editor;
    m_state = &state;
    m_lines.clear(); // nothing of another document stays selected
    if (document() && !state.folded) {
        state.folded = firstFolded(*document());
    }
    rebuild();
    m_view.verticalScrollBar()->setValue(0);
}

TimeEditorScene& DopeSheetRows::scene() const
{
    return *m_view.getEditorScene();
}

const Document* DopeSheetRows::document() const
{
    return m_editor ? m_editor->document().get() : nullptr;
}

std::vector<DopeRow> DopeSheetRows::allRows() const
{
    std::vector<DopeRow> rows;
    const int count = document() ? static_cast<int>(document()->main.layers.size()) : 0;
    for (int layer = 0; layer < count; ++layer) {
        auto own = dopeRows(*document(), layer, *m_state->folded);
        std::move(own.begin(), own.end(), std::back_inserter(rows));
    }
    return rows;
}

void DopeSheetRows::rebuild()
{
    std::vector<std::pair<LayerId, KeyAddress>> selected; // layers may stand elsewhere by now
    for (const KeyAddress& key : selectedKeys()) {
        selected.emplace_back(find(rowOfLayer(key.property.layer))->row.id, key);
    }
    const int scrolled = m_view.verticalScrollBar()->value();
    const Line* const current = find(m_header.currentRow());
    const std::optional<DopeRow> chosen = current ? std::optional(current->row) : std::nullopt;

    m_lines.clear();
    m_header.clear();
    scene().clearScene();
    addSound();
    for (const DopeRow& row : allRows()) {
        addLine(row);
        if (chosen && row.id == chosen->id && (row.isLayer || row.isSameAs(*chosen))) {
            m_header.setCurrentRow(m_lines.back().item);
        }
    }
    fitScene();
    m_view.verticalScrollBar()->setValue(scrolled);
    std::vector<KeyAddress> keys;
    for (auto& [id, key] : selected) {
        key.property.layer = layerOf(id);
        keys.push_back(std::move(key));
    }
    selectKeys(keys);
}

void DopeSheetRows::addSound()
{
    if (!m_state || !m_state->sound || !document()) {
        return;
    }
    const Sound& sound = *m_state->sound;
    auto* item = new TimeEditorSoundItem(&m_view);
    item->setPeaks(sound.peaks);
    item->setPlacement({sound.rate / document()->frameRate, document()->inPoint, 1.0});
    item->setFlag(QGraphicsItem::ItemIsSelectable, false);
    scene().addLayoutItem(item);
    TimeRowLabel label{sound.name, ui::getCachedIcon(u"icons:audioLayer.png"_qs)};
    m_header.setLabel(item, label);
}

void DopeSheetRows::addLine(const DopeRow& row)
{
    Line line{row};
    if (row.isLayer) {
        auto* clip = new TimeEditorClipItem(&m_view);
        clip->addClipArea(0, 1);
        connectClip(*clip);
        line.item = clip;
    } else {
        auto* curve = new TimeEditorCurveItem(&m_view);
        curve->setColorMode(TimeEditorCurveItem::ColorMode::Easing);
        line.item = curve;
    }
    showRow(line, row); // before it is in the scene: nobody has to be told of each key
    scene().addLayoutItem(line.item);
    m_lines.push_back(std::move(line));
}

void DopeSheetRows::connectClip(TimeEditorClipItem& clip)
{
    connect(&clip, &TimeEditorClipItem::clipChanging, this, [this, item = &clip] {
        if (const Line* line = find(item)) {
            Q_EMIT clipDragged(line->row.layer, line->clip, framesOf(*item));
        }
    });
}

void DopeSheetRows::fitScene()
{
    const std::pair<int, int> range =
        document() ? sheetRange(*document()) : std::pair<int, int>(0, 0);
    const int margin = std::max(1, (range.second - range.first) / kMarginShare);
    const int first = range.first - margin;
    const int last = range.second + margin;
    m_view.setFrameRange(first, last);
    m_view.setPlaybackRange(first, last); // of a short one one could not zoom in
    scene().setSceneRect(first, 0, last - first, scene().layoutContainer()->rowsBottom());
}

void DopeSheetRows::refresh(const std::set<int>& layers)
{
    bool isSelectionChanged = false;
    for (const int layer : document() ? layers : std::set<int>()) {
        const auto isOfLayer = [layer](const Line& line) { return line.row.layer == layer; };
        const auto first = std::find_if(m_lines.begin(), m_lines.end(), isOfLayer);
        const auto last = std::find_if_not(first, m_lines.end(), isOfLayer);
        const bool isChanged =
            showRows(first, last, dopeRows(*document(), layer, *m_state->folded));
        isSelectionChanged = isSelectionChanged || isChanged;
    }
    tellSelection(isSelectionChanged);
}

void DopeSheetRows::refreshLayers()
{
    tellSelection(showRows(m_lines.begin(), m_lines.end(), allRows()));
}

/// The view's tool is about keys that may be elsewhere, even where the same ones are selected.
void DopeSheetRows::tellSelection(bool isChanged)
{
    isChanged ? Q_EMIT scene().selectionChanged() : m_view.selectionChanged();
}

/// Shows rows in the lines that they have already, if these are the same ones: a property's first
/// key brings a row, and its last one takes it away.
/// @return whether nobody has been told yet that the selection is another one
bool DopeSheetRows::showRows(
    Lines::iterator first, Lines::iterator last, const std::vector<DopeRow>& rows)
{
    const auto isSame = [](const Line& line, const DopeRow& row) {
        return line.row.isSameAs(row) && line.row.folded == row.folded;
    };
    if (!std::equal(first, last, rows.begin(), rows.end(), isSame)) {
        rebuild();
        return false;
    }
    const QSignalBlocker quiet(&scene()); // one signal for all of them
    bool isChanged = false;
    for (const DopeRow& row : rows) {
        Line& line = *first++;
        const std::vector<bool> before = selectionOf(line);
        showRow(line, row);
        isChanged = isChanged || selectionOf(line) != before;
    }
    return isChanged;
}

void DopeSheetRows::refreshSound()
{
    rebuild();
}

void DopeSheetRows::setFolded(const TimeEditorBaseItem* row, bool folded, bool all)
{
    const Line* line = find(row);
    if (!line || !document()) {
        return;
    }
    for (const Layer& layer : document()->main.layers) {
        const LayerId id = layer.span.begin;
        if (all || id == line->row.id) {
            folded ? void(m_state->folded->insert(id)) : void(m_state->folded->erase(id));
        }
    }
    rebuild();
}

std::vector<bool> DopeSheetRows::selectionOf(const Line& line)
{
    std::vector<bool> selected;
    for (const TimeEditorKeyframeItem* mark : line.marks) {
        selected.push_back(mark->isSelected());
    }
    return selected;
}

/// Shows a row's name, times and marks in the line that it has already.
void DopeSheetRows::showRow(Line& line, const DopeRow& row)
{
    const std::vector<double> before = timesOf(line.row.keys);
    const std::vector<bool> selected = selectionOf(line);
    const bool isChanged = line.row.keys != row.keys;
    line.row = row;
    if (line.item->isEnabled() != row.isOpen) {
        line.item->setEnabled(row.isOpen);
    }
    showMarks(line);
    if (isChanged && std::find(selected.begin(), selected.end(), true) != selected.end()) {
        const auto after = selectionAfter(before, selected, timesOf(row.keys));
        for (std::size_t i = 0; i < after.size(); ++i) {
            line.marks[i]->setSelected(after[i]);
        }
    }
    if (row.isLayer) {
        showClip(line);
    }
    showLabel(line);
}

void DopeSheetRows::showLabel(const Line& line)
{
    const DopeRow& row = line.row;
    const Layer* layer = findLayer(*document(), row.layer);
    TimeRowLabel label{row.name};
    label.depth = row.isLayer ? 0 : 1;
    label.foldable = row.foldable;
    label.folded = row.folded;
    if (auto* curve = dynamic_cast<TimeEditorCurveItem*>(line.item)) {
        curve->setText(row.name); // for who hears the keys
    }
    label.dimmed = (layer && layer->hidden) || !row.isOpen;
    m_header.setLabel(line.item, label);
}

void DopeSheetRows::showMarks(Line& line)
{
    while (line.marks.size() > line.row.keys.size()) {
        delete line.marks.back();
        line.marks.pop_back();
    }
    while (line.marks.size() < line.row.keys.size()) {
        line.marks.push_back(addMark(line));
    }
    for (std::size_t i = 0; i < line.marks.size(); ++i) {
        TimeEditorKeyframeItem& mark = *line.marks[i];
        const DopeKey& key = line.row.keys[i];
        if (mark.x() != key.time) {
            mark.forceMove({key.time, mark.y()});
        }
        mark.setEasing(key.easing);
        const bool isOpen = line.row.isOpen && !key.keys.empty();
        if (mark.isEnabled() != isOpen) {
            mark.setEnabled(isOpen);
            // A clip can still be taken by an end where a closed mark lies.
            mark.setAcceptedMouseButtons(isOpen ? Qt::AllButtons : Qt::NoButton);
            mark.setAcceptHoverEvents(isOpen);
        }
    }
}

TimeEditorKeyframeItem* DopeSheetRows::addMark(const Line& line) const
{
    if (auto* curve = dynamic_cast<TimeEditorCurveItem*>(line.item)) {
        return curve->addKeyframe(0);
    }
    auto* mark = new TimeEditorKeyframeItem(&m_view, nullptr);
    mark->forceMove({0, line.item->rect().center().y() - kMarkMiddle});
    mark->setParentItem(line.item);
    return mark;
}

void DopeSheetRows::showClip(Line& line)
{
    auto& clip = static_cast<TimeEditorClipItem&>(*line.item);
    line.clip = clipFrames(*m_editor->clipOf(line.row.layer));
    VisClip& area = *clip.getClipAreas().front();
    area.setRange(line.clip.start, line.clip.end);
    area.setSlip(0);
    clip.refresh();
}

DopeSheetRows::Line* DopeSheetRows::find(const QObject* item)
{
    return const_cast<Line*>(std::as_const(*this).find(item));
}

const DopeSheetRows::Line* DopeSheetRows::find(const QObject* item) const
{
    const auto found = std::find_if(
        m_lines.begin(), m_lines.end(), [item](const Line& line) { return line.item == item; });
    return found != m_lines.end() ? &*found : nullptr;
}

std::vector<KeyAddress> DopeSheetRows::selectedKeys() const
{
    std::vector<KeyAddress> keys;
    for (const Line& line : m_lines) {
        for (std::size_t i = 0; i < line.marks.size(); ++i) {
            if (line.marks[i]->isSelected()) {
                const auto& own = line.row.keys[i].keys;
                keys.insert(keys.end(), own.begin(), own.end());
            }
        }
    }
    return keys;
}

template <typename IsWanted>
void DopeSheetRows::selectMarks(const IsWanted& isWanted)
{
    {
        const QSignalBlocker quiet(&scene()); // one signal for all of them
        scene().clearSelection();
        for (const Line& line : m_lines) {
            for (std::size_t i = 0; i < line.marks.size(); ++i) {
                if (isWanted(line.row.keys[i])) {
                    line.marks[i]->setSelected(true);
                }
            }
        }
    }
    Q_EMIT scene().selectionChanged();
}

void DopeSheetRows::selectKeys(const std::vector<KeyAddress>& keys)
{
    std::set<KeyName> wanted;
    for (const KeyAddress& key : keys) {
        wanted.insert(nameOfKey(key));
    }
    selectMarks([&wanted](const DopeKey& mark) {
        const auto isWanted = [&wanted](const KeyAddress& key) {
            return wanted.count(nameOfKey(key)) > 0;
        };
        return !mark.keys.empty() && std::all_of(mark.keys.begin(), mark.keys.end(), isWanted);
    });
}

void DopeSheetRows::selectFrames(const std::function<bool(double frame)>& isWanted)
{
    selectMarks([&isWanted](const DopeKey& key) { return isWanted(key.time); });
}

std::vector<double> DopeSheetRows::selectedFrames() const
{
    std::set<double> frames;
    for (const TimeEditorKeyframeItem* mark : m_view.selectedKeyframes()) {
        frames.insert(mark->x());
    }
    return {frames.begin(), frames.end()};
}

std::vector<int> DopeSheetRows::selectedLayers() const
{
    std::set<int> layers;
    for (const Line& line : m_lines) {
        const bool hasMark =
            std::any_of(line.marks.begin(), line.marks.end(), [](const auto* mark) {
                return mark->isSelected();
            });
        if (hasMark || line.item->isSelected()) {
            layers.insert(line.row.layer);
        }
    }
    return {layers.begin(), layers.end()};
}

DopeSheetRows::DraggedKeys DopeSheetRows::draggedKeys() const
{
    DraggedKeys keys;
    std::vector<PropertyKeyChange> others;
    for (const Line& line : m_lines) {
        for (std::size_t i = 0; i < line.marks.size(); ++i) {
            const DopeKey& key = line.row.keys[i];
            const double distance = line.marks[i]->x() - key.time;
            const bool isSelected = line.marks[i]->isSelected();
            for (const KeyAddress& address : key.keys) {
                const auto* before =
                    isSelected || distance != 0.0 ? m_editor->keyAt(address) : nullptr;
                if (before) {
                    PropertyKeyChange change{address.property, {address.key}};
                    change.change.time = before->time + distance;
                    (isSelected ? keys.changes : others).push_back(std::move(change));
                    keys.moved += distance != 0.0 ? 1 : 0;
                }
            }
        }
    }
    keys.selected = keys.changes.size();
    std::move(others.begin(), others.end(), std::back_inserter(keys.changes));
    return keys;
}

int DopeSheetRows::layerOf(LayerId id) const
{
    const auto found = std::find_if(
        m_lines.begin(), m_lines.end(), [id](const Line& line) { return line.row.id == id; });
    return found != m_lines.end() ? found->row.layer : -1;
}

int DopeSheetRows::layerOf(const TimeEditorBaseItem* row) const
{
    const Line* line = find(row);
    return line ? line->row.layer : -1;
}

TimeEditorBaseItem* DopeSheetRows::rowOfLayer(int layer) const
{
    const auto found = std::find_if(m_lines.begin(), m_lines.end(), [layer](const Line& line) {
        return line.row.layer == layer && line.row.isLayer;
    });
    return found != m_lines.end() ? found->item : nullptr;
}

const PropertyAddress* DopeSheetRows::addressOf(const TimeEditorBaseItem* row) const
{
    const Line* line = find(row);
    return line && line->row.address ? &*line->row.address : nullptr;
}

} // namespace studio
