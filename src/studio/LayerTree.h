// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/menus/TreeView.h>

#include <QPointer>

#include <vector>

class RowListModel;

namespace studio {

class DocumentEditor;

/// The layers of the main composition, first on top, each with the icon of its kind and switches
/// for being seen and locked. Follows the document and edits it, one step each; a layer that is
/// moved stays the same row.
class LayerTree : public TreeView
{
    Q_OBJECT

public:
    explicit LayerTree(QWidget* parent = nullptr);

    /// Shows the layers of another document, which may be null, or the same anew.
    void setEditor(DocumentEditor& editor);
    DocumentEditor& editor() const; ///< that has been set

    /// The selected layers' places, from top to bottom.
    std::vector<int> selectedLayers() const;

private:
    RowListModel* m_model;
    QPointer<DocumentEditor> m_editor;
};

} // namespace studio
