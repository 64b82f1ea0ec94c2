// SPDX-License-Identifier: Apache-2.0
#include "timeline/DopeSheetEdits.h"

#include "timeline/DopeSheetRows.h"
#include <MorrantUI/timeeditor/DopeSheetView.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <algorithm>
#include <cmath>
#include <utility>

namespace studio {

namespace {

QString nameOf(const DopeSheetClip& from, const DopeSheetClip& to)
{
    if (to.slip != from.slip) {
        return DopeSheetEdits::tr("Slip Layer");
    }
    const bool isMoved = to.start - from.start == to.end - from.end;
    return isMoved ? DopeSheetEdits::tr("Move Layer in Time") : DopeSheetEdits::tr("Trim Layer");
}

/// The one layer that copied keys come from; -1 for several.
int onlyLayerOf(const std::vector<CopiedKeys>& rows)
{
    const auto isElsewhere = [&rows](const CopiedKeys& row) {
        return row.property.layer != rows.front().property.layer;
    };
    return std::any_of(rows.begin(), rows.end(), isElsewhere) ? -1 : rows.front().property.layer;
}

} // namespace

DopeSheetEdits::DopeSheetEdits(DopeSheetView& view, DopeSheetRows& rows)
    : TimeEditorUtils(&view)
    , m_view(view)
    , m_rows(rows)
{
    connect(&view, &TimeEditorView::keysMoving, this, &DopeSheetEdits::followKeys);
    connect(&rows, &DopeSheetRows::clipDragged, this, &DopeSheetEdits::followClip);
    connect(&view, &DopeSheetView::gestureEnded, this, &DopeSheetEdits::finish);
}

void DopeSheetEdits::setEditor(DocumentEditor& editor)
{
    if (m_editor) {
        m_editor->disconnect(this);
    }
    m_editor = &editor;
    m_stale.clear();
    connect(&editor, &DocumentEditor::edited, this, [this](const PropertyAddress& address) {
        noteEdit(address.layer);
    });
    connect(&editor, &DocumentEditor::clipChanged, this, &DopeSheetEdits::noteEdit);
    connect(&editor, &DocumentEditor::layersAboutToChange, &m_view, &DopeSheetView::finishGesture);
    connect(&editor, &DocumentEditor::layersChanged, this, [this] {
        m_stale.clear();
        m_rows.refreshAll();
        Q_EMIT layersShown();
    });
}

/// Many properties may change together: their rows are shown once.
void DopeSheetEdits::noteEdit(int layer)
{
    if (m_stale.empty()) {
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (!m_isDragging) { // else its end does it: what is dragged must not be moved
                    showEdits();
                }
            },
            Qt::QueuedConnection);
    }
    m_stale.insert(layer);
}

void DopeSheetEdits::showEdits()
{
    if (!m_stale.empty()) {
        m_rows.refresh(std::exchange(m_stale, {}));
    }
}

void DopeSheetEdits::begin(const QString& text)
{
    if (!m_isDragging) {
        m_isDragging = true;
        Q_EMIT dragStarted();
        m_editor->beginGesture(text);
    }
}

void DopeSheetEdits::followKeys()
{
    if (!m_editor) {
        return;
    }
    if (!m_isDragging) {
        showEdits();
    }
    const DopeSheetRows::DraggedKeys keys = m_rows.draggedKeys();
    if (keys.moved > 0 || m_isDragging) {
        begin(keys.moved == 1 ? tr("Move Key") : tr("Move Keys"));
        m_places = m_editor->changeKeys(keys.changes);
        m_places.resize(keys.selected);
    }
}

void DopeSheetEdits::followClip(int layer, const DopeSheetClip& from, const DopeSheetClip& to)
{
    const auto times = m_editor ? m_editor->clipOf(layer) : std::nullopt;
    if (!times) {
        return;
    }
    begin(nameOf(from, to));
    const auto before = m_clipsBefore.insert({layer, *times}).first; // unless it is there
    m_clips[layer] = editedTimes(before->second, from, to);
    std::vector<ClipChange> changes; // several may go along, and tell one by one
    for (const auto& [each, now] : m_clips) {
        changes.push_back({each, now});
    }
    m_editor->setClips(changes);
}

void DopeSheetEdits::finish()
{
    if (!std::exchange(m_isDragging, false) || !m_editor) {
        return;
    }
    m_editor->commit();
    m_clipsBefore.clear();
    m_clips.clear();
    m_stale.clear();
    m_rows.refreshAll(); // also where the document has refused something
    std::vector<KeyAddress> keys;
    for (const auto& place : std::exchange(m_places, {})) {
        if (place) {
            keys.push_back(*place);
        }
    }
    if (!keys.empty()) {
        m_rows.selectKeys(keys);
    }
}

void DopeSheetEdits::select(const std::vector<KeyAddress>& keys)
{
    showEdits();
    if (!keys.empty()) {
        m_rows.selectKeys(keys);
    }
}

void DopeSheetEdits::onCutKeyframes()
{
    onCopyKeyframes();
    onDeleteKeyframes({});
}

void DopeSheetEdits::onCopyKeyframes()
{
    showEdits();
    const auto rows =
        m_editor ? m_editor->copyKeys(m_rows.selectedKeys()) : std::vector<CopiedKeys>();
    if (!rows.empty()) { // what was copied before stays
        auto* data = new QMimeData;
        data->setData(QLatin1String(kKeysMimeType), toJson(rows));
        QGuiApplication::clipboard()->setMimeData(data);
    }
}

void DopeSheetEdits::onPasteKeyframes()
{
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    const auto rows =
        data ? keysFromJson(data->data(QLatin1String(kKeysMimeType))) : std::vector<CopiedKeys>();
    if (m_editor && !rows.empty()) {
        const int layer = onlyLayerOf(rows) < 0 ? -1 : m_layer;
        select(m_editor->pasteKeys(rows, m_view.frameNumber(), layer));
    }
}

/// Those that are selected: the view asks for no others.
void DopeSheetEdits::onDeleteKeyframes(std::set<TimeEditorKeyframeItem*> /*keys*/)
{
    showEdits();
    const auto keys = m_rows.selectedKeys();
    if (m_editor && !keys.empty()) {
        m_editor->deleteKeys(keys);
        m_view.clearSelection();
        showEdits();
    }
}

void DopeSheetEdits::addKey(const PropertyAddress& address)
{
    const auto key = m_editor ? m_editor->addKey(address, m_view.frameNumber()) : std::nullopt;
    if (key) {
        select({*key});
    }
}

void DopeSheetEdits::duplicate()
{
    showEdits();
    const auto keys = m_rows.selectedKeys();
    const auto frames = m_view.selectedFrames();
    if (m_editor && !keys.empty()) {
        const int distance = static_cast<int>(std::lround(m_view.frameNumber() - frames.front()));
        const int behind = static_cast<int>(std::lround(frames.back() - frames.front())) + 1;
        select(m_editor->duplicateKeys(keys, distance != 0 ? distance : behind));
    }
}

void DopeSheetEdits::nudge(int frames)
{
    showEdits();
    const auto keys = m_rows.selectedKeys();
    if (m_editor && !keys.empty()) {
        select(m_editor->nudgeKeys(keys, frames));
    }
}

void DopeSheetEdits::trim(bool start)
{
    std::vector<int> layers = m_rows.selectedLayers();
    if (layers.empty() && m_layer >= 0) {
        layers.push_back(m_layer);
    }
    std::vector<ClipChange> changes;
    for (const int layer : layers) {
        auto times = m_editor ? m_editor->clipOf(layer) : std::nullopt;
        if (times) {
            // The current frame is the first one shown, or the last one.
            (start ? times->inPoint : times->outPoint) = m_view.frameNumber() + (start ? 0 : 1);
            changes.push_back({layer, *times});
        }
    }
    if (!changes.empty()) {
        m_editor->beginGesture(changes.size() == 1 ? tr("Trim Layer") : tr("Trim Layers"));
        m_editor->setClips(changes);
        m_editor->commit();
        showEdits();
    }
}

} // namespace studio
