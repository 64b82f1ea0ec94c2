// SPDX-License-Identifier: Apache-2.0
#include "graph/GraphEditor.h"

#include "editing/keyrows.h"
#include <MorrantUI/controls/values/NumericField.h>
#include <MorrantUI/graph/EasingEditor.h>
#include <MorrantUI/graph/KeyFields.h>
#include <MorrantUI/graph/ValueGraphView.h>
#include <MorrantUI/menus/ContextMenu.h>
#include <MorrantUI/timeline/PlaybackClock.h>

#include <QGraphicsScene>
#include <QMenu>
#include <QScopedValueRollback>

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace studio {

namespace {

constexpr double kColorStep = 0.01; ///< for a pixel, of a channel from 0 to 1

template <typename Values, typename Value>
bool contains(const Values& values, const Value& value)
{
    return std::find(values.begin(), values.end(), value) != values.end();
}

} // namespace

GraphEditor::GraphEditor(PlaybackClock& player, QWidget* parent)
    : ValueGraphPane(parent)
    , m_player(player)
    , m_curves(new ValueCurves(view()))
    , m_menu(new QMenu(tr("&Graph"), this))
{
    setWindowTitle(tr("Graph Editor"));
    setAccessibleName(windowTitle());
    m_menu->addActions(commands());
    for (NumericField* field : {&fields().frame(), &fields().value()}) {
        field->setContextMenuPolicy(Qt::NoContextMenu); // the panel's is the one to open
    }
    connectParts();
}

GraphEditor::~GraphEditor()
{
    for (QObject* part : std::initializer_list<QObject*>{m_curves, &view(), &easingEditor()}) {
        part->disconnect(this); // they outlive what is a graph editor of this object
    }
}

void GraphEditor::connectParts()
{
    setClock(&m_player);
    connect(&m_player, &PlaybackClock::frameChanged, this, [this] {
        if (m_curves->selection().empty()) {
            showEasing();
        }
    });
    connect(m_curves, &ValueCurves::editingStarted, &m_player, &PlaybackClock::pause);
    connect(m_curves, &ValueCurves::selectionChanged, this, &GraphEditor::chooseKeys);
    connect(this, &GraphEditor::propertiesChosen, this, &GraphEditor::showProperties);
    connect(this, &GraphEditor::deleteWanted, this, &GraphEditor::deleteSelected);
    connect(&fields(), &KeyFields::editStarted, &m_player, &PlaybackClock::pause);
    connect(&easingEditor(), &EasingEditor::editStarted, this, &GraphEditor::beginEasing);
    connect(&easingEditor(), &EasingEditor::edited, this, &GraphEditor::editEasing);
    connect(&easingEditor(), &EasingEditor::editEnded, this, &GraphEditor::endEasing);
}

// What is shown

void GraphEditor::setDocument(DocumentEditor& editor)
{
    finishEditing();
    if (m_editor) {
        m_editor->disconnect(this);
    }
    m_editor = &editor;
    m_layer = -1;
    m_wanted.clear();
    connect(&editor, &DocumentEditor::edited, this, &GraphEditor::noteEdit);
    connect(&editor, &DocumentEditor::layersChanged, this, &GraphEditor::noteEdit);
    connect(&editor, &DocumentEditor::layersAboutToChange, this, &GraphEditor::finishEditing);
    listProperties();
}

void GraphEditor::setLayer(int layer)
{
    finishEditing();
    m_layer = layer;
    listProperties();
    selectKeys(std::exchange(m_wanted, {}));
}

/// Many properties may change together: they are shown once.
void GraphEditor::noteEdit()
{
    if (!std::exchange(m_isStale, true)) {
        QMetaObject::invokeMethod(this, &GraphEditor::refresh, Qt::QueuedConnection);
    }
}

void GraphEditor::refresh()
{
    m_isStale = false;
    listProperties();
    m_curves->refresh();
    showEasing();
}

/// Keeps what is chosen, where it is still there.
void GraphEditor::listProperties()
{
    const auto document = m_editor ? m_editor->document() : nullptr;
    std::vector<PropertyAddress> rows;
    std::vector<Property> shown;
    std::vector<Property> others; // such as a mask's path: they are named all the same
    for (const KeyRow& row : document ? keyRowsOf(*document, m_layer) : std::vector<KeyRow>()) {
        if (row.address) {
            rows.push_back(*row.address);
            shown.push_back({row.name});
        } else {
            others.push_back(
                {row.name,
                 tr("Its keys cannot be edited, and are seen in the dope sheet only"),
                 false});
        }
    }
    setEmptyHint(
        m_layer < 0 ? tr("Select a layer to see its curves")
                    : tr("No transform or colour of this layer is animated"));
    if (rows == m_rows && others.size() == m_others) {
        return;
    }
    m_rows = rows;
    m_others = others.size();
    std::vector<std::size_t> chosen;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (contains(m_curves->properties(), rows[i])) {
            chosen.push_back(i);
        }
    }
    shown.insert(shown.end(), others.begin(), others.end());
    setProperties(shown, chosen);
    showProperties();
}

/// Those that are chosen in the list.
void GraphEditor::showProperties()
{
    std::vector<PropertyAddress> chosen;
    for (const std::size_t place : chosenProperties()) {
        chosen.push_back(m_rows.at(place));
    }
    finishEditing();
    m_curves->show(m_editor, chosen);
    showEasing();
}

void GraphEditor::showEasing()
{
    if (m_isEasing) {
        return;
    }
    m_segments = easedSegments();
    std::vector<SegmentEasing> easings;
    for (const auto& [address, key] : m_segments) {
        const auto those = easingsOf(m_editor->property(address)->keys[key]);
        easings.insert(easings.end(), those.begin(), those.end());
    }
    easingEditor().setEasings(easings);
}

/// Those of the selected keys, or else the one at the playhead.
std::vector<KeyAddress> GraphEditor::easedSegments() const
{
    const auto& shown = m_curves->properties();
    if (!m_editor || m_editor->isLocked(m_layer) || shown.empty()) {
        return {};
    }
    const std::vector<KeyAddress> selected = selectedKeys();
    std::vector<KeyAddress> segments;
    for (const PropertyAddress& address : shown) {
        const NumberProperty* property = m_editor->property(address);
        const std::size_t count = property ? property->keys.size() : 0;
        std::vector<std::size_t> keys;
        for (const KeyAddress& key : selected) {
            if (key.property == address && key.key < count) {
                keys.push_back(key.key);
            }
        }
        std::sort(keys.begin(), keys.end());
        for (const std::size_t key : segmentsOf(keys, count)) {
            segments.push_back({address, key});
        }
    }
    const NumberProperty* first = m_editor->property(shown.front());
    const auto passed = first ? segmentAt(*first, m_player.frame()) : std::nullopt;
    if (segments.empty() && selected.empty() && passed) {
        segments.push_back({shown.front(), *passed});
    }
    return segments;
}

void GraphEditor::chooseKeys()
{
    const std::vector<KeyAddress> keys = selectedKeys();
    const bool isColor = !keys.empty() && keys.front().property.attribute == Attribute::ShapeColor;
    fields().value().setDragMultiplier(isColor ? kColorStep : 1);
    showEasing();
    if (!m_isFollowing && !m_isEasing) {
        Q_EMIT keysChosen(keys);
    }
}

/// Each one once, however many of its entries are.
std::vector<KeyAddress> GraphEditor::selectedKeys() const
{
    std::vector<KeyAddress> keys;
    for (const EntryKey& key : m_curves->selection()) {
        if (!contains(keys, key.key)) {
            keys.push_back(key.key);
        }
    }
    return keys;
}

void GraphEditor::selectKeys(const std::vector<KeyAddress>& keys)
{
    if (m_isEasing || m_curves->isDragging()) {
        return;
    }
    const QScopedValueRollback following(m_isFollowing, true);
    const bool isElsewhere = !keys.empty() && keys.front().property.layer != m_layer;
    m_wanted = isElsewhere ? keys : std::vector<KeyAddress>();
    if (isElsewhere) {
        return;
    }
    refresh();
    const bool areShown = std::all_of(keys.begin(), keys.end(), [&](const KeyAddress& key) {
        return contains(m_curves->properties(), key.property);
    });
    if (!areShown) {
        std::vector<std::size_t> wanted;
        for (const KeyAddress& key : keys) {
            const auto row = std::find(m_rows.begin(), m_rows.end(), key.property);
            wanted.push_back(static_cast<std::size_t>(row - m_rows.begin()));
        }
        chooseProperties(wanted);
        showProperties();
    }
    m_curves->selectKeys(keys);
}

// What the user does

void GraphEditor::deleteSelected()
{
    const auto keys = selectedKeys();
    if (m_editor && !m_editor->isLocked(m_layer)) {
        view().scene()->clearSelection(); // the others' places are about to change
        m_editor->deleteKeys(keys);
    }
}

void GraphEditor::beginEasing()
{
    if (m_editor) {
        m_player.pause();
        m_isEasing = true;
        m_editor->beginGesture(tr("Change Easing"));
    }
}

void GraphEditor::editEasing(const SegmentEasing& easing)
{
    if (!m_isEasing || !m_editor) {
        return;
    }
    std::vector<PropertyKeyChange> changes;
    for (const auto& [address, key] : m_segments) {
        const auto those = easingChanges(address, key, easing);
        changes.insert(changes.end(), those.begin(), those.end());
    }
    m_editor->changeKeys(changes);
}

void GraphEditor::endEasing(bool changed)
{
    if (!std::exchange(m_isEasing, false)) {
        return;
    }
    if (m_editor && m_editor->isInGesture()) { // which another edit may have ended
        changed ? m_editor->commit() : m_editor->cancel();
    }
    m_curves->refresh();
    showEasing();
}

void GraphEditor::fillMenu(ContextMenu& menu)
{
    menu.addActions(m_menu->actions());
}

} // namespace studio
