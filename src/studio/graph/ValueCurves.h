// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "editing/DocumentEditor.h"
#include "graph/valuekeys.h"

#include <QObject>
#include <QPointer>

#include <optional>
#include <vector>

class ValueGraphCurve;
class ValueGraphView;

namespace studio {

/// A key in one entry of its value.
struct EntryKey
{
    KeyAddress key;
    std::size_t entry = 0;

    bool operator==(const EntryKey&) const = default;
};

/// Properties of a document as curves of a graph of values, one an entry, and what the user does to
/// their points and handles as edits of the document. A drag is one undo step, shown everywhere at
/// every move. Points go by whole frames, a key's in all its entries; what the document makes of an
/// edit is what is shown.
class ValueCurves : public QObject
{
    Q_OBJECT

public:
    /// @param view has to outlive it
    explicit ValueCurves(ValueGraphView& view);

    /// Shows properties of a document, or of none, from now on.
    void show(DocumentEditor* editor, const std::vector<PropertyAddress>& properties);
    /// Shows what the document has now. Nothing happens during a drag, whose end does it.
    void refresh();
    const std::vector<PropertyAddress>& properties() const { return m_properties; }

    bool isDragging() const { return m_isDragging; }
    std::vector<EntryKey> selection() const;
    /// Selects these and nothing else.
    void select(const std::vector<EntryKey>& keys);
    /// The same in all their entries.
    void selectKeys(const std::vector<KeyAddress>& keys);

Q_SIGNALS:
    void editingStarted();
    void selectionChanged();

private:
    /// What the gesture has done to a key.
    struct Touched
    {
        bool isMoved = false;
        bool isBent = false;    ///< its handles
        bool isToggled = false; ///< between curved and straight
    };
    struct Curve
    {
        PropertyAddress address;
        std::size_t entry = 0;
        ValueGraphCurve* item =
            nullptr; ///< the scene's; while dragged, keys as the drag found them
        std::vector<ValueGraphKey> shown; ///< as they were last placed
        std::vector<Touched> touched;
    };
    using Places = std::vector<std::optional<KeyAddress>>;

    void build();
    void place(Curve& curve, const NumberProperty& property, const Places& places);
    void noteStart();
    std::optional<std::size_t> noteTouched();
    void follow();
    void finish(bool changed);
    std::vector<PropertyKeyChange> changes() const;
    bool take(const Curve& curve, const ValueGraphKey& now, KeyChange& change) const;
    void takeHandles(const Curve& curve, const ValueGraphKey& now, KeyChange& change) const;
    Places placesOf(const PropertyAddress& address) const;
    template <typename IsWanted>
    void selectPoints(const IsWanted& isWanted);

    ValueGraphView& m_view;
    QPointer<DocumentEditor> m_editor;
    std::vector<PropertyAddress> m_properties;
    std::vector<Curve> m_curves;

    bool m_isDragging = false;
    std::vector<PropertyKeyChange> m_changes; ///< every key of what is dragged
    Places m_places;                          ///< where these are now
};

} // namespace studio
