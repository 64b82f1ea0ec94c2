// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Panel.h"

class QAction;
class QMenu;
class QStackedWidget;

namespace studio {

class DocumentEditor;
class LayerTree;

/// The layers of the main composition in a tree: renamed in place, taken elsewhere by the mouse or
/// Alt with Up and Down, hidden and locked by a click on their icons.
class LayerPanel : public Panel
{
    Q_OBJECT

public:
    explicit LayerPanel(QWidget* parent = nullptr);

    /// Shows the layers of a document, which may be null, and selects none.
    void setEditor(DocumentEditor& editor);
    /// Selects a layer alone by its place; -1 selects none. layerSelected() follows if that is a
    /// change.
    void selectLayer(int layer);

    /// What can be done to the selected layers.
    QMenu* menu() const { return m_menu; }

Q_SIGNALS:
    /// The place of the first selected layer, also after it has moved; -1 for none.
    void layerSelected(int layer);
    /// The panel should be to be seen: a name is about to be edited in it.
    void wanted();

private:
    void buildMenu();
    void rename();
    void toggleHidden();
    void toggleLocked();
    void move(int step);
    void showSelection();
    void showActions();

    LayerTree* m_tree;
    QStackedWidget* m_pages; ///< the tree, or why there is nothing in it
    QMenu* m_menu;
    QList<QAction*> m_actions;
};

} // namespace studio
