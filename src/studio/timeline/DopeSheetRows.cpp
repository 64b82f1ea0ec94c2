// SPDX-License-Identifier: Apache-2.0
#include "timeline/DopeSheetRows.h"

#include "timeline/DopeSheetState.h"
#include <MorrantUI/theme/icons.h>
#include <MorrantUI/timeeditor/DopeSheetView.h>
#include <MorrantUI/timeeditor/TimeEditorLayoutContainer.h>
#include <MorrantUI/timeeditor/TimeEditorScene.h>

#include <QScrollBar>

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

namespace studio {

namespace {

constexpr int kMarginShare = 40; ///< of the sheet's frames, left free on either side

/// A property's address, in an order.
using PropertyName = std::tuple<int, Attribute, std::vector<std::size_t>>;

PropertyName nameOfProperty(const PropertyAddress& address)
{
    return {address.layer, address.attribute, address.item};
}

std::vector<DopeSheetLine> linesOf(const std::vector<DopeRow>& rows)
{
    std::vector<DopeSheetLine> lines;
    for (const DopeRow& row : rows) {
        lines.push_back(row.line);
    }
    return lines;
}

DopeRow soundRow(const ui::SoundFile& sound, const Document& document)
{
    DopeRow row;
    row.line.id = u"sound"_qs;
    row.line.label = {sound.name, ui::getCachedIcon(u"icons:audioLayer.png"_qs)};
    row.line.sound = {sound.peaks, {sound.rate / document.frameRate, document.inPoint, 1.0}};
    return row;
}

} // namespace

DopeSheetRows::DopeSheetRows(DopeSheetView& view, TimeEditorRowHeader& header, QObject* parent)
    : QObject(parent)
    , m_view(view)
    , m_outline(new DopeSheetOutline(view, header, this))
{
    connect(m_outline, &DopeSheetOutline::rowsChanged, this, &DopeSheetRows::fitScene);
    connect(m_outline, &DopeSheetOutline::foldedChanged, this, [this] {
        if (document()) {
            m_state->folded = m_outline->folded();
        }
    });
    connect(
        m_outline,
        &DopeSheetOutline::clipChanging,
        this,
        [this](std::size_t line, const DopeSheetClip& now) {
            Q_EMIT clipDragged(m_rows[line].layer, *m_rows[line].line.clip, now);
        });
}

void DopeSheetRows::setDocument(const DocumentEditor& editor, DopeSheetState& state)
{
    m_outline->setLines({}); // nothing of another document stays selected
    m_editor = &editor;
    m_state = &state;
    m_rows = allRows();
    if (document() && !state.folded) {
        state.folded = firstFolded(m_rows);
    }
    m_outline->setFolded(state.folded.value_or(QSet<QString>()));
    m_outline->setLines(linesOf(m_rows));
    fitScene();
    m_view.verticalScrollBar()->setValue(0);
}

const Document* DopeSheetRows::document() const
{
    return m_editor ? m_editor->document().get() : nullptr;
}

std::vector<DopeRow> DopeSheetRows::allRows() const
{
    std::vector<DopeRow> rows;
    if (!document()) {
        return rows;
    }
    if (m_state->sound.peaks) {
        rows.push_back(soundRow(m_state->sound, *document()));
    }
    for (int layer = 0; layer < static_cast<int>(document()->main.layers.size()); ++layer) {
        auto own = dopeRows(*document(), layer);
        std::move(own.begin(), own.end(), std::back_inserter(rows));
    }
    return rows;
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
    TimeEditorScene& scene = *m_view.getEditorScene();
    scene.setSceneRect(first, 0, last - first, scene.layoutContainer()->rowsBottom());
}

void DopeSheetRows::refresh(const std::set<int>& layers)
{
    if (layers.size() == 1 && document()) {
        auto own = dopeRows(*document(), *layers.begin());
        const auto first = std::find_if(m_rows.begin(), m_rows.end(), [&](const DopeRow& row) {
            return row.layer == *layers.begin();
        });
        const auto isSame = [](const DopeRow& row, const DopeRow& shown) {
            return row.line.id == shown.line.id;
        };
        const auto last = std::mismatch(own.begin(), own.end(), first, m_rows.end(), isSame);
        const bool goesOn = last.second != m_rows.end() && last.second->layer == *layers.begin();
        if (last.first == own.end() && !goesOn) {
            const auto line = static_cast<std::size_t>(first - m_rows.begin());
            auto lines = linesOf(own);
            std::move(own.begin(), own.end(), first);
            m_outline->updateLines(line, std::move(lines));
            return;
        }
    }
    refreshAll();
}

void DopeSheetRows::refreshAll()
{
    m_rows = allRows();
    m_outline->setLines(linesOf(m_rows));
}

std::vector<KeyAddress> DopeSheetRows::selectedKeys() const
{
    std::vector<KeyAddress> keys;
    for (const DopeSheetPlace& place : m_outline->selectedKeys()) {
        if (const auto& address = m_rows[place.line].address) {
            keys.push_back({*address, place.key});
        }
    }
    return keys;
}

void DopeSheetRows::selectKeys(const std::vector<KeyAddress>& keys)
{
    std::map<PropertyName, std::size_t> lines;
    for (std::size_t line = 0; line < m_rows.size(); ++line) {
        if (const auto& address = m_rows[line].address) {
            lines.emplace(nameOfProperty(*address), line);
        }
    }
    std::vector<DopeSheetPlace> places;
    for (const KeyAddress& key : keys) {
        const auto line = lines.find(nameOfProperty(key.property));
        if (line != lines.end()) {
            places.push_back({line->second, key.key});
        }
    }
    m_outline->selectKeys(places);
}

std::vector<int> DopeSheetRows::selectedLayers() const
{
    std::set<int> layers;
    for (const std::size_t line : m_outline->selectedLines()) {
        layers.insert(m_rows[line].layer);
    }
    return {layers.begin(), layers.end()};
}

DopeSheetRows::DraggedKeys DopeSheetRows::draggedKeys() const
{
    DraggedKeys keys;
    for (const DopeSheetKeyMove& move : m_outline->movedKeys()) {
        const auto& address = m_rows[move.place.line].address;
        if (address && m_editor->keyAt({*address, move.place.key})) {
            PropertyKeyChange change{*address, {move.place.key}};
            change.change.time = move.frame;
            keys.changes.push_back(std::move(change));
            keys.selected += move.selected ? 1 : 0;
            keys.moved += move.distance != 0.0 ? 1 : 0;
        }
    }
    return keys;
}

const DopeRow* DopeSheetRows::rowOf(const TimeEditorBaseItem* row) const
{
    const auto line = m_outline->lineOf(row);
    return line ? &m_rows[*line] : nullptr;
}

int DopeSheetRows::layerOf(const TimeEditorBaseItem* row) const
{
    const DopeRow* found = rowOf(row);
    return found ? found->layer : -1;
}

TimeEditorBaseItem* DopeSheetRows::rowOfLayer(int layer) const
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(), [layer](const DopeRow& row) {
        return row.layer == layer && row.isLayer;
    });
    return m_outline->row(static_cast<std::size_t>(found - m_rows.begin()));
}

const PropertyAddress* DopeSheetRows::addressOf(const TimeEditorBaseItem* row) const
{
    const DopeRow* found = rowOf(row);
    return found && found->address ? &*found->address : nullptr;
}

} // namespace studio
