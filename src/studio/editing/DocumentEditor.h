#pragma once

#include "editing/PropertyAddress.h"
#include "editing/keyediting.h"

#include <QObject>
#include <QUndoStack>

#include <functional>
#include <memory>
#include <optional>

namespace studio {

/// The open document, and the only way to change it. Every change is in the document at once.
/// Changes of one property that follow each other are a gesture, which is one undo step: each
/// takes the place of the one before. It ends with commit(), with a change of another property, and
/// before undo and redo.
class DocumentEditor : public QObject
{
    Q_OBJECT

public:
    explicit DocumentEditor(QObject* parent = nullptr);

    /// Takes over a document, which may be null, and forgets all undo steps.
    void setDocument(std::shared_ptr<Document> document);
    /// Seen through this, the document changes with every edit.
    std::shared_ptr<const Document> document() const { return m_document; }
    /// Null when there is no document, or nothing there.
    const NumberProperty* property(const PropertyAddress& address) const;

    /// Entries that a property takes at a frame, in the gesture under way or a new one; no entries
    /// take a gesture back. Ignored, as toggleKey() is, where the document has nothing.
    void setEntries(
        const PropertyAddress& address, int frame, const std::vector<EntryChange>& entries);
    /// Whether a gesture is changing that property.
    bool isChanging(const PropertyAddress& address) const;
    /// As toggleKeyAt(); an undo step of its own.
    void toggleKey(const PropertyAddress& address, int frame);
    /// Ends the gesture. One that has changed nothing in the end leaves no undo step.
    void commit();

    /// What follows changes layers by their places in the main composition, and the notes. Each is
    /// an undo step of its own, or none when it changes nothing. Places without a layer are
    /// ignored.

    /// Ignored for a locked layer.
    void renameLayer(int layer, const QString& name);
    void setHidden(const std::vector<int>& layers, bool hidden);
    /// Locked layers are neither renamed nor moved, and their properties cannot be changed.
    void setLocked(const std::vector<int>& layers, bool locked);
    bool isLocked(int layer) const;
    /// Moves layers together in front of another, see orderAfterMove().
    /// @return whether they have moved: none does when one of them is locked
    bool moveLayers(std::vector<int> layers, int before);
    void setNotes(const QString& notes);

    bool canUndo() const;
    bool canRedo() const;
    QString undoText() const;
    QString redoText() const { return m_steps.redoText(); }
    /// Whether the document differs from what was opened.
    bool isModified() const;

public Q_SLOTS:
    void undo();
    void redo();

Q_SIGNALS:
    /// A property has changed, also by undo and redo.
    void edited(const studio::PropertyAddress& address);
    /// Undo or redo has changed a property.
    void restored(const studio::PropertyAddress& address);
    /// The layers' names, order, visibility or locks are about to change, by other than undo and
    /// redo: what is being entered for a layer has to be taken over now.
    void layersAboutToChange();
    void layersChanged(); ///< also by undo and redo, as the next
    void notesChanged();
    /// What can be undone or redone, or isModified(), has changed.
    void historyChanged();

private:
    struct Gesture
    {
        PropertyAddress address;
        NumberProperty before;
        QString text;
    };
    class Step;
    class OtherStep;

    void prepare();
    void push(const QString& text, std::function<void()> forth, std::function<void()> back);
    void setFlag(bool Layer::*flag, const std::vector<int>& layers, bool on, const QString& text);
    NumberProperty* begin(const PropertyAddress& address, const QString& text);
    void write(const PropertyAddress& address, const NumberProperty& property);

    std::shared_ptr<Document> m_document;
    QUndoStack m_steps;
    std::optional<Gesture> m_gesture;
};

} // namespace studio
