// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "editing/EditGesture.h"
#include "editing/PropertyAddress.h"
#include "editing/keyclipboard.h"
#include "editing/keyediting.h"
#include "editing/keygroups.h"

#include <QObject>
#include <QUndoStack>

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace studio {

/// The open document, and the only way to change it. Every change is in the document at once.
/// Changes that follow each other can be a gesture, which is one undo step: each takes the place of
/// the one before. Changes of one property by setEntries() are one, until a change of another
/// property; those of many keys and clips are one from beginGesture() on. A gesture ends with
/// commit() or cancel(), with any other edit, and before undo and redo.
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
    /// Whether setEntries() is changing that property in a gesture.
    bool isChanging(const PropertyAddress& address) const;
    /// As toggleKeyAt(); an undo step of its own.
    void toggleKey(const PropertyAddress& address, int frame);
    /// Ends the gesture. One that has changed nothing in the end leaves no undo step.
    void commit();

    /// What follows changes keys of several properties together, and clips. Properties that the
    /// document does not have or cannot animate, keys that are not there and locked layers are left
    /// alone.

    /// Begins a gesture of changeKeys() and setClips(), which other edits end.
    /// @param text of the undo step, as in "Move Keys"
    void beginGesture(const QString& text);
    /// Whether there is one that beginGesture() has begun.
    bool isInGesture() const { return m_gesture && !m_gesture->entriesOf(); }
    /// Changes keys as changeKeys(NumberProperty&, …) does, in place of all that the gesture has
    /// changed in keys so far: places and relative changes count from its beginning. What a moved
    /// key covers is gone only when the gesture ends there. Ignored without a gesture.
    /// @return where the keys are now, one for each change; nothing for those that are no more
    std::vector<std::optional<KeyAddress>> changeKeys(
        const std::vector<PropertyKeyChange>& changes);
    /// Changes when layers are shown, in place of what the gesture has changed in clips so far.
    /// Keys stay at their frames. Times that are no clip are left alone. Ignored without a gesture.
    void setClips(const std::vector<ClipChange>& clips);
    /// Ends the gesture and gives everything back.
    void cancel();
    /// Of a key when the gesture began, or now when there is none; null when it is not there.
    const Keyframe<Numbers>* keyAt(const KeyAddress& address) const;
    std::optional<ClipTimes> clipOf(int layer) const;

    /// Undo steps of their own. Keys that are returned are where they are afterwards.

    /// Adds a key with the value that the property has at a frame. @return that of the frame
    std::optional<KeyAddress> addKey(const PropertyAddress& address, int frame);
    void deleteKeys(const std::vector<KeyAddress>& keys);
    std::vector<KeyAddress> nudgeKeys(const std::vector<KeyAddress>& keys, int frames);
    /// Copies keys to later or earlier frames.
    std::vector<KeyAddress> duplicateKeys(const std::vector<KeyAddress>& keys, int frames);
    /// Stretches the times of keys about a frame, to whole frames. @param factor may be negative
    std::vector<KeyAddress> scaleKeys(
        const std::vector<KeyAddress>& keys, double pivot, double factor);
    /// For the clipboard; nothing when there are no keys.
    std::vector<CopiedKeys> copyKeys(const std::vector<KeyAddress>& keys) const;
    /// Adds keys with the first of them at a frame; see pasteTarget() for where.
    /// @param layer -1 for the layers they come from
    std::vector<KeyAddress> pasteKeys(const std::vector<CopiedKeys>& rows, int frame, int layer);

    /// What follows changes layers by their places in the main composition, and the notes. Each is
    /// an undo step of its own, or none when it changes nothing. Places without a layer are
    /// ignored.

    /// Ignored for a locked layer, and an empty name.
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
    /// Whether the document differs from what was opened or saved last.
    bool isModified() const;
    /// The document is what its file holds. Steps before can still be undone.
    void setSaved();
    /// The document has changes that its file does not have and no step takes back.
    void setUnsaved() { m_steps.resetClean(); }

public Q_SLOTS:
    void undo();
    void redo();

Q_SIGNALS:
    /// A property has changed, also by undo and redo. One signal for each property of a change.
    void edited(const studio::PropertyAddress& address);
    /// When a layer is shown has changed, also by undo and redo.
    void clipChanged(int layer);
    /// Undo or redo has changed properties: the first of them.
    void restored(const studio::PropertyAddress& address);
    /// The layers' names, order, visibility or locks are about to change, by other than undo and
    /// redo: what is being entered for a layer has to be taken over now.
    void layersAboutToChange();
    void layersChanged(); ///< also by undo and redo, as the next
    void notesChanged();
    /// What can be undone or redone, or isModified(), has changed.
    void historyChanged();

private:
    class EditStep;
    class OtherStep;
    using TimeMap = std::function<double(double time)>;
    using PropertyEdit = std::function<std::vector<std::size_t>(NumberProperty& property)>;

    void prepare();
    void push(const QString& text, std::function<void()> forth, std::function<void()> back);
    void setFlag(bool Layer::*flag, const std::vector<int>& layers, bool on, const QString& text);
    NumberProperty* begin(const PropertyAddress& address, const QString& text);
    NumberProperty* keysOf(const PropertyAddress& address);
    const NumberProperty* found(const PropertyAddress& address) const;
    void write(int layer, const ClipTimes& times);
    std::vector<KeyAddress> edit(const PropertyAddress& address, const PropertyEdit& change);
    std::vector<KeyAddress> moveKeys(
        const QString& text,
        const std::vector<KeyAddress>& keys,
        const TimeMap& map,
        bool asCopies);

    std::shared_ptr<Document> m_document;
    QUndoStack m_steps;
    std::optional<EditGesture> m_gesture;
};

} // namespace studio
