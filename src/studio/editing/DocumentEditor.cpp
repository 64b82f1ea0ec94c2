// SPDX-License-Identifier: Apache-2.0
#include "editing/DocumentEditor.h"

#include "editing/PropertyDelta.h"
#include "editing/keygroups.h"
#include "editing/layerorder.h"
#include "lottie/reader.h"

#include <QUndoCommand>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <utility>

namespace studio {

namespace {

/// Files write a solid's colour in eight bits a channel.
double storable(Attribute attribute, double value)
{
    constexpr double kFull = 255;
    return attribute == Attribute::SolidColor
               ? std::round(std::clamp(value, 0.0, 1.0) * kFull) / kFull
               : value;
}

} // namespace

/// What a gesture has changed. Which properties they are, and the keys' places in the file, is all
/// that saving needs.
class DocumentEditor::EditStep : public QUndoCommand
{
public:
    EditStep(DocumentEditor& editor, const QString& text, EditDelta delta)
        : QUndoCommand(text)
        , m_editor(editor)
        , m_delta(std::move(delta))
    {}

    void undo() override
    {
        for (const ClipDelta& clip : m_delta.clips) {
            m_editor.write(clip.layer, clip.before);
        }
        write(&PropertyDelta::revert);
    }

    void redo() override
    {
        if (!std::exchange(m_isPushed, true)) {
            return; // by then it has happened
        }
        for (const ClipDelta& clip : m_delta.clips) {
            m_editor.write(clip.layer, clip.after);
        }
        write(&PropertyDelta::apply);
    }

private:
    void write(void (PropertyDelta::*way)(NumberProperty&) const)
    {
        for (const PropertyDelta& delta : m_delta.properties) {
            (delta.*way)(*findProperty(*m_editor.m_document, delta.address()));
            Q_EMIT m_editor.edited(delta.address());
        }
        if (!m_delta.properties.empty()) {
            Q_EMIT m_editor.restored(m_delta.properties.front().address());
        }
    }

    DocumentEditor& m_editor;
    EditDelta m_delta;
    bool m_isPushed = false;
};

/// Anything but a property: how to do it, and how to undo it.
class DocumentEditor::OtherStep : public QUndoCommand
{
public:
    OtherStep(const QString& text, std::function<void()> forth, std::function<void()> back)
        : QUndoCommand(text)
        , m_forth(std::move(forth))
        , m_back(std::move(back))
    {}

    void undo() override { m_back(); }
    void redo() override { m_forth(); }

private:
    std::function<void()> m_forth;
    std::function<void()> m_back;
};

DocumentEditor::DocumentEditor(QObject* parent)
    : QObject(parent)
{
    connect(&m_steps, &QUndoStack::indexChanged, this, &DocumentEditor::historyChanged);
    connect(&m_steps, &QUndoStack::cleanChanged, this, &DocumentEditor::historyChanged);
}

void DocumentEditor::setDocument(std::shared_ptr<Document> document)
{
    m_gesture.reset();
    m_steps.clear();
    m_document = std::move(document);
    Q_EMIT historyChanged();
}

const NumberProperty* DocumentEditor::property(const PropertyAddress& address) const
{
    return m_document ? findProperty(std::as_const(*m_document), address) : nullptr;
}

void DocumentEditor::setEntries(
    const PropertyAddress& address, int frame, const std::vector<EntryChange>& entries)
{
    if (entries.empty() && !isChanging(address)) {
        return;
    }
    if (NumberProperty* property = begin(address, tr("Change %1"))) {
        *property = *m_gesture->found(address);
        for (EntryChange entry : entries) {
            entry.value = storable(address.attribute, entry.value);
            setEntryAt(*property, frame, entry);
        }
        if (!entries.empty()) {
            property->dimensions =
                std::max(property->dimensions, static_cast<int>(entryCount(address.attribute)));
        }
        Q_EMIT edited(address);
    }
    if (entries.empty()) {
        commit();
    }
}

bool DocumentEditor::isChanging(const PropertyAddress& address) const
{
    return m_gesture && m_gesture->entriesOf() == address;
}

void DocumentEditor::toggleKey(const PropertyAddress& address, int frame)
{
    commit();
    const NumberProperty* now = property(address);
    if (!now || !canBeAnimated(address.attribute) || isLocked(address.layer)) {
        return;
    }
    const bool removes = keyStateAt(*now, frame) == KeyState::KeyAtFrame;
    toggleKeyAt(*begin(address, removes ? tr("Remove Key of %1") : tr("Add Key of %1")), frame);
    Q_EMIT edited(address);
    commit();
}

void DocumentEditor::commit()
{
    if (!m_gesture) {
        return;
    }
    const EditGesture gesture = *std::exchange(m_gesture, std::nullopt);
    EditDelta delta = gesture.delta(*m_document);
    if (delta.isEmpty()) {
        Q_EMIT historyChanged();
    } else {
        m_steps.push(new EditStep(*this, gesture.text(), std::move(delta)));
    }
}

void DocumentEditor::renameLayer(int layer, const QString& name)
{
    prepare();
    const Layer* found = m_document ? findLayer(*m_document, layer) : nullptr;
    if (!found || found->locked || found->name == name || name.isEmpty()) {
        return;
    }
    const auto rename = [this, layer](const QString& text) {
        m_document->main.layers[static_cast<std::size_t>(layer)].name = text;
        Q_EMIT layersChanged();
    };
    push(
        tr("Rename Layer"),
        [rename, name] { rename(name); },
        [rename, before = found->name] { rename(before); });
}

void DocumentEditor::setHidden(const std::vector<int>& layers, bool hidden)
{
    setFlag(&Layer::hidden, layers, hidden, hidden ? tr("Hide Layers") : tr("Show Layers"));
}

void DocumentEditor::setLocked(const std::vector<int>& layers, bool locked)
{
    setFlag(&Layer::locked, layers, locked, locked ? tr("Lock Layers") : tr("Unlock Layers"));
}

bool DocumentEditor::isLocked(int layer) const
{
    const Layer* found = m_document ? findLayer(*m_document, layer) : nullptr;
    return found && found->locked;
}

bool DocumentEditor::moveLayers(std::vector<int> layers, int before)
{
    prepare();
    std::sort(layers.begin(), layers.end());
    layers.erase(std::unique(layers.begin(), layers.end()), layers.end());
    const bool canMove = m_document && std::all_of(layers.begin(), layers.end(), [this](int layer) {
                             return findLayer(*m_document, layer) && !isLocked(layer);
                         });
    if (!canMove) {
        return false;
    }
    const auto order =
        orderAfterMove(static_cast<int>(m_document->main.layers.size()), layers, before);
    if (std::is_sorted(order.begin(), order.end())) {
        return false;
    }
    const auto bring = [this](const LayerOrder& wanted) {
        reorder(m_document->main.layers, wanted);
        Q_EMIT layersChanged();
    };
    push(
        tr("Move Layers"),
        [bring, order] { bring(order); },
        [bring, back = inverse(order)] { bring(back); });
    return true;
}

void DocumentEditor::setNotes(const QString& notes)
{
    commit();
    if (!m_document || m_document->notes == notes) {
        return;
    }
    const auto write = [this](const QString& text) {
        m_document->notes = text;
        Q_EMIT notesChanged();
    };
    push(
        tr("Edit Notes"),
        [write, notes] { write(notes); },
        [write, before = m_document->notes] { write(before); });
}

void DocumentEditor::prepare()
{
    Q_EMIT layersAboutToChange();
    commit();
}

void DocumentEditor::push(
    const QString& text, std::function<void()> forth, std::function<void()> back)
{
    m_steps.push(new OtherStep(text, std::move(forth), std::move(back)));
}

void DocumentEditor::setFlag(
    bool Layer::*flag, const std::vector<int>& layers, bool on, const QString& text)
{
    prepare();
    std::vector<int> changing;
    std::copy_if(layers.begin(), layers.end(), std::back_inserter(changing), [&](int layer) {
        const Layer* found = m_document ? findLayer(*m_document, layer) : nullptr;
        return found && found->*flag != on;
    });
    if (changing.empty()) {
        return;
    }
    const auto set = [this, flag, changing](bool value) {
        for (const int layer : changing) {
            m_document->main.layers[static_cast<std::size_t>(layer)].*flag = value;
        }
        Q_EMIT layersChanged();
    };
    push(
        text, [set, on] { set(on); }, [set, on] { set(!on); });
}

bool DocumentEditor::canUndo() const
{
    return m_gesture || m_steps.canUndo();
}

bool DocumentEditor::canRedo() const
{
    return !m_gesture && m_steps.canRedo();
}

QString DocumentEditor::undoText() const
{
    return m_gesture ? m_gesture->text() : m_steps.undoText();
}

bool DocumentEditor::isModified() const
{
    return m_gesture || !m_steps.isClean();
}

void DocumentEditor::setSaved()
{
    commit();
    m_steps.setClean();
}

void DocumentEditor::undo()
{
    commit();
    m_steps.undo();
}

void DocumentEditor::redo()
{
    commit();
    m_steps.redo();
}

/// Ends the gesture of another property and begins one of this.
NumberProperty* DocumentEditor::begin(const PropertyAddress& address, const QString& text)
{
    NumberProperty* property = m_document ? findProperty(*m_document, address) : nullptr;
    if (!property || isChanging(address)) {
        return property;
    }
    if (isLocked(address.layer)) {
        return nullptr;
    }
    commit();
    m_gesture = EditGesture(text.arg(nameOf(*m_document, address)), address);
    m_gesture->remember(address, *m_document);
    Q_EMIT historyChanged();
    return property;
}

void DocumentEditor::beginGesture(const QString& text)
{
    commit();
    if (m_document) {
        m_gesture = EditGesture(text);
        Q_EMIT historyChanged();
    }
}

std::vector<std::optional<KeyAddress>> DocumentEditor::changeKeys(
    const std::vector<PropertyKeyChange>& changes)
{
    std::vector<std::optional<KeyAddress>> places(changes.size());
    if (!isInGesture()) {
        return places;
    }
    auto touched = m_gesture->giveKeysBack(*m_document);
    for (const ChangesOfOne& one : byProperty(changes)) {
        NumberProperty* property = keysOf(one.address);
        if (!property) {
            continue;
        }
        if (!m_gesture->found(one.address)) {
            m_gesture->remember(one.address, *m_document);
            touched.push_back(one.address);
        }
        const auto now = studio::changeKeys(*property, one.changes);
        for (std::size_t i = 0; i < now.size(); ++i) {
            if (now[i]) {
                places[one.origins[i]] = KeyAddress{one.address, *now[i]};
            }
        }
    }
    std::for_each(touched.begin(), touched.end(), [this](const PropertyAddress& address) {
        Q_EMIT edited(address);
    });
    return places;
}

void DocumentEditor::setClips(const std::vector<ClipChange>& clips)
{
    if (!isInGesture()) {
        return;
    }
    auto touched = m_gesture->giveClipsBack(*m_document);
    for (const auto& [layer, times] : clips) {
        if (!findLayer(*m_document, layer) || isLocked(layer) || !isClip(times)) {
            continue;
        }
        m_gesture->remember(layer, *m_document);
        setClip(m_document->main.layers[static_cast<std::size_t>(layer)], times);
        if (std::find(touched.begin(), touched.end(), layer) == touched.end()) {
            touched.push_back(layer);
        }
    }
    std::for_each(touched.begin(), touched.end(), [this](int layer) { Q_EMIT clipChanged(layer); });
}

void DocumentEditor::cancel()
{
    if (!m_gesture) {
        return;
    }
    const auto properties = m_gesture->giveKeysBack(*m_document);
    const auto clips = m_gesture->giveClipsBack(*m_document);
    commit();
    for (const PropertyAddress& address : properties) {
        Q_EMIT edited(address);
    }
    for (const int layer : clips) {
        Q_EMIT clipChanged(layer);
    }
}

const Keyframe<Numbers>* DocumentEditor::keyAt(const KeyAddress& address) const
{
    const NumberProperty* property = found(address.property);
    return property && address.key < property->keys.size() ? &property->keys[address.key] : nullptr;
}

std::optional<ClipTimes> DocumentEditor::clipOf(int layer) const
{
    const Layer* found = m_document ? findLayer(*m_document, layer) : nullptr;
    return found ? std::optional(studio::clipOf(*found)) : std::nullopt;
}

std::optional<KeyAddress> DocumentEditor::addKey(const PropertyAddress& address, int frame)
{
    commit();
    const NumberProperty* now = keysOf(address);
    if (!now) {
        return std::nullopt;
    }
    if (keyStateAt(*now, frame) != KeyState::KeyAtFrame) {
        toggleKey(address, frame);
    }
    const auto at = std::find_if(now->keys.begin(), now->keys.end(), [frame](const auto& key) {
        return key.time >= frame - kSameFrame;
    });
    return KeyAddress{address, static_cast<std::size_t>(at - now->keys.begin())};
}

void DocumentEditor::deleteKeys(const std::vector<KeyAddress>& keys)
{
    beginGesture(keys.size() == 1 ? tr("Delete Key") : tr("Delete Keys"));
    for (const KeysOfOne& one : byProperty(keys)) {
        edit(one.address, [&one](NumberProperty& property) {
            removeKeys(property, one.places);
            return std::vector<std::size_t>();
        });
    }
    commit();
}

std::vector<KeyAddress> DocumentEditor::nudgeKeys(const std::vector<KeyAddress>& keys, int frames)
{
    return moveKeys(
        keys.size() == 1 ? tr("Move Key") : tr("Move Keys"),
        keys,
        [frames](double time) { return time + frames; },
        false);
}

std::vector<KeyAddress> DocumentEditor::duplicateKeys(
    const std::vector<KeyAddress>& keys, int frames)
{
    return moveKeys(
        keys.size() == 1 ? tr("Duplicate Key") : tr("Duplicate Keys"),
        keys,
        [frames](double time) { return time + frames; },
        true);
}

std::vector<KeyAddress> DocumentEditor::scaleKeys(
    const std::vector<KeyAddress>& keys, double pivot, double factor)
{
    return moveKeys(
        tr("Scale Keys"),
        keys,
        [pivot, factor](double time) { return std::round(pivot + (time - pivot) * factor); },
        false);
}

std::vector<CopiedKeys> DocumentEditor::copyKeys(const std::vector<KeyAddress>& keys) const
{
    std::vector<CopiedKeys> rows;
    double first = std::numeric_limits<double>::infinity();
    for (const KeysOfOne& one : byProperty(keys)) {
        const NumberProperty* source = property(one.address);
        CopiedKeys row{one.address, source ? source->dimensions : 1, {}};
        for (const std::size_t place : one.places) {
            if (source && place < source->keys.size()) {
                row.keys.push_back(looseKey(*source, place));
            }
        }
        if (!row.keys.empty()) {
            first = std::min(first, row.keys.front().time);
            rows.push_back(std::move(row));
        }
    }
    for (CopiedKeys& row : rows) {
        for (LooseKey& key : row.keys) {
            key.time -= first;
        }
    }
    return rows;
}

std::vector<KeyAddress> DocumentEditor::pasteKeys(
    const std::vector<CopiedKeys>& rows, int frame, int layer)
{
    std::vector<KeyAddress> pasted;
    if (!m_document) {
        return pasted;
    }
    beginGesture(tr("Paste Keys"));
    for (const CopiedKeys& row : rows) {
        const auto target = pasteTarget(*m_document, row.property, layer);
        if (!target || m_gesture->found(*target))
        { // of rows that meet in one only the first counts
            continue;
        }
        const auto added = edit(*target, [&](NumberProperty& property) {
            property.dimensions =
                std::max(property.dimensions, static_cast<int>(entryCount(target->attribute)));
            return insertKeys(property, fitted(row, property, frame));
        });
        pasted.insert(pasted.end(), added.begin(), added.end());
    }
    commit();
    return pasted;
}

/// Null where keys cannot be edited.
NumberProperty* DocumentEditor::keysOf(const PropertyAddress& address)
{
    const bool isOpen = m_document && canBeAnimated(address.attribute) && !isLocked(address.layer);
    return isOpen ? findProperty(*m_document, address) : nullptr;
}

/// As the gesture found it.
const NumberProperty* DocumentEditor::found(const PropertyAddress& address) const
{
    const NumberProperty* before = m_gesture ? m_gesture->found(address) : nullptr;
    return before ? before : property(address);
}

void DocumentEditor::write(int layer, const ClipTimes& times)
{
    setClip(m_document->main.layers[static_cast<std::size_t>(layer)], times);
    Q_EMIT clipChanged(layer);
}

/// Changes the keys of a property in the gesture. @return where those that it names are
std::vector<KeyAddress> DocumentEditor::edit(
    const PropertyAddress& address, const PropertyEdit& change)
{
    std::vector<KeyAddress> keys;
    if (NumberProperty* property = keysOf(address)) {
        m_gesture->remember(address, *m_document);
        for (const std::size_t place : change(*property)) {
            keys.push_back({address, place});
        }
        Q_EMIT edited(address);
    }
    return keys;
}

std::vector<KeyAddress> DocumentEditor::moveKeys(
    const QString& text, const std::vector<KeyAddress>& keys, const TimeMap& map, bool asCopies)
{
    beginGesture(text);
    std::vector<PropertyKeyChange> changes;
    for (const KeyAddress& address : keys) {
        if (const auto* key = keyAt(address)) {
            changes.push_back(
                {address.property,
                 {.key = address.key, .time = map(key->time), .asCopy = asCopies}});
        }
    }
    std::vector<KeyAddress> moved;
    for (const auto& place : changeKeys(changes)) {
        if (place) {
            moved.push_back(*place);
        }
    }
    commit();
    return moved;
}

} // namespace studio
