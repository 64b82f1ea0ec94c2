#include "editing/DocumentEditor.h"

#include "editing/layerorder.h"

#include <QUndoCommand>

#include <algorithm>
#include <iterator>
#include <utility>

namespace studio {

/// One property before and after. Which one it is, and the keys' places in the file, is all that
/// saving needs.
class DocumentEditor::Step : public QUndoCommand
{
public:
    Step(DocumentEditor& editor, Gesture gesture, NumberProperty after)
        : QUndoCommand(gesture.text)
        , m_editor(editor)
        , m_gesture(std::move(gesture))
        , m_after(std::move(after))
    {}

    void undo() override { m_editor.write(m_gesture.address, m_gesture.before); }

    void redo() override
    {
        // Pushing a step redoes it, which by then has happened.
        if (*m_editor.property(m_gesture.address) != m_after) {
            m_editor.write(m_gesture.address, m_after);
        }
    }

private:
    DocumentEditor& m_editor;
    Gesture m_gesture;
    NumberProperty m_after;
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
        *property = m_gesture->before;
        for (const EntryChange& entry : entries) {
            setEntryAt(*property, frame, entry);
        }
        Q_EMIT edited(address);
    }
    if (entries.empty()) {
        commit();
    }
}

bool DocumentEditor::isChanging(const PropertyAddress& address) const
{
    return m_gesture && m_gesture->address == address;
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
    Gesture gesture = *std::exchange(m_gesture, std::nullopt);
    const NumberProperty& after = *property(gesture.address);
    if (after != gesture.before) {
        m_steps.push(new Step(*this, std::move(gesture), after));
    } else {
        Q_EMIT historyChanged();
    }
}

void DocumentEditor::renameLayer(int layer, const QString& name)
{
    prepare();
    const Layer* found = m_document ? findLayer(*m_document, layer) : nullptr;
    if (!found || found->locked || found->name == name) {
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
    return m_gesture ? m_gesture->text : m_steps.undoText();
}

bool DocumentEditor::isModified() const
{
    return m_gesture || !m_steps.isClean();
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
    m_gesture = Gesture{address, *property, text.arg(nameOf(*m_document, address))};
    Q_EMIT historyChanged();
    return property;
}

void DocumentEditor::write(const PropertyAddress& address, const NumberProperty& property)
{
    *findProperty(*m_document, address) = property;
    Q_EMIT edited(address);
    Q_EMIT restored(address);
}

} // namespace studio
