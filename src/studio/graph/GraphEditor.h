// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "EditorPane.h"
#include "graph/ValueCurves.h"

#include <optional>

class ContextMenu;
class EasingEditor;
class KeyFields;
class PlaybackClock;
class QAction;
class QListWidget;
class QMenu;
class ValueGraphView;

namespace studio {

/// The animated properties of a layer as curves: a list to choose them from with the frame and the
/// value of the selected key, the graph of their values, and the easing of the segment under the
/// playhead of the first one chosen. What the user does goes to the document at once; a drag, or
/// what is typed or chosen, is one undo step.
class GraphEditor : public EditorPane
{
    Q_OBJECT

public:
    /// @param player must outlive it
    explicit GraphEditor(PlaybackClock& player, QWidget* parent = nullptr);
    ~GraphEditor() override;

    /// Shows a document, whose layer is to be set next.
    void setDocument(DocumentEditor& editor);
    /// Shows a layer by its place in the main composition; -1 for none.
    void setLayer(int layer);
    /// Selects keys that were selected elsewhere, and shows their properties.
    void selectKeys(const std::vector<KeyAddress>& keys);
    /// Takes over what is being typed and ends a drag, so that the document is complete.
    void finishEditing();

    QMenu* menu() const { return m_menu; }
    /// Adds the rows of the menu.
    void fillMenu(ContextMenu& menu);

    ValueGraphView& view() const { return *m_view; }
    EasingEditor& easing() const { return *m_easing; }
    KeyFields& fields() const { return *m_fields; }
    QListWidget& properties() const { return *m_list; }

Q_SIGNALS:
    /// The user has selected other keys.
    void keysChosen(const std::vector<studio::KeyAddress>& keys);

private:
    void buildMenu();
    void buildLayout();
    void connectParts();
    void noteEdit();
    void refresh();
    void listProperties();
    void showProperties();
    void showHint();
    void showEasing();
    void showKey();
    void chooseKeys();
    std::vector<KeyAddress> selectedKeys() const;
    void deleteSelected();
    void begin(const QString& text);
    void end(bool changed);
    void editEasing(const SegmentEasing& easing);
    void editKey(const KeyChange& change);
    void editValue(double value);

    PlaybackClock& m_player;
    ValueGraphView* m_view;
    ValueCurves* m_curves;
    EasingEditor* m_easing;
    KeyFields* m_fields;
    QListWidget* m_list;
    QMenu* m_menu;
    QAction* m_delete = nullptr;
    QAction* m_tool = nullptr;
    QPointer<DocumentEditor> m_editor;
    int m_layer = -1;
    std::vector<PropertyAddress> m_rows; ///< of the list
    std::vector<KeyAddress> m_wanted;    ///< selected elsewhere
    bool m_isFollowing = false;          ///< the selection of others
    bool m_isStale = false;              ///< a refresh is on its way

    bool m_isEditing = false;              ///< by the easing editor or a field
    std::vector<EntryKey> m_edited;        ///< by a field, as the edit found them
    std::optional<KeyAddress> m_editedNow; ///< where that key is
    std::optional<KeyAddress> m_segment;   ///< whose easing is shown
};

} // namespace studio
