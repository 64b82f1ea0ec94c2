// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "graph/ValueCurves.h"
#include <MorrantUI/graph/ValueGraphPane.h>

#include <optional>

class ContextMenu;
class PlaybackClock;
class QMenu;

namespace studio {

/// The animated properties of a layer as curves, and the easing of the segment under the playhead
/// of the first one chosen. What the user does goes to the document at once; a drag, or what is
/// typed or chosen, is one undo step.
class GraphEditor : public ValueGraphPane
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

    QMenu* menu() const { return m_menu; }
    /// Adds the rows of the menu.
    void fillMenu(ContextMenu& menu);

Q_SIGNALS:
    /// The user has selected other keys.
    void keysChosen(const std::vector<studio::KeyAddress>& keys);

private:
    void connectParts();
    void noteEdit();
    void refresh();
    void listProperties();
    void showProperties();
    void showEasing();
    void chooseKeys();
    std::vector<KeyAddress> selectedKeys() const;
    std::vector<KeyAddress> easedSegments() const;
    void deleteSelected();
    void beginEasing();
    void endEasing(bool changed);
    void editEasing(const SegmentEasing& easing);

    PlaybackClock& m_player;
    ValueCurves* m_curves;
    QMenu* m_menu;
    QPointer<DocumentEditor> m_editor;
    int m_layer = -1;
    std::vector<PropertyAddress> m_rows; ///< of the list
    std::size_t m_others = 0;            ///< behind them
    std::vector<KeyAddress> m_wanted;    ///< selected elsewhere
    bool m_isFollowing = false;          ///< the selection of others
    bool m_isStale = false;              ///< a refresh is on its way
    bool m_isEasing = false;
    std::vector<KeyAddress> m_segments; ///< whose easing is shown, by the keys that they leave
};

} // namespace studio
