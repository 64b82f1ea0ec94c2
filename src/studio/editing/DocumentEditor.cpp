#include "editing/DocumentEditor.h"

#include <QUndoCommand>

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
    if (!now || !canBeAnimated(address.attribute)) {
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
