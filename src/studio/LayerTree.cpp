// SPDX-License-Identifier: Apache-2.0
#include "LayerTree.h"

#include "LayerModel.h"
#include "editing/DocumentEditor.h"

#include <QHeaderView>

namespace studio {

LayerTree::LayerTree(LayerModel& model, QWidget* parent)
    : TreeView(parent)
    , m_model(model)
{
    setFrameShape(QFrame::NoFrame);
    setRootIsDecorated(false);
    setReordering(Reordering::Siblings);
    setKeyRole(LayerModel::kIdentityRole);
    setModel(&model);
    header()->setSectionResizeMode(LayerModel::Name, QHeaderView::Stretch);
    setSwitchColumns({LayerModel::Visibility, LayerModel::Lock});
    connect(this, &TreeView::switchPressed, &model, &LayerModel::toggle);
}

std::vector<int> LayerTree::selectedLayers() const
{
    std::vector<int> layers;
    for (const QModelIndex& row : selectedRowsInOrder()) {
        layers.push_back(row.row());
    }
    return layers;
}

QList<QPersistentModelIndex> LayerTree::moveRows(
    const QModelIndexList& rows, const QModelIndex&, int row)
{
    std::vector<int> layers;
    for (const QModelIndex& index : rows) {
        layers.push_back(index.row());
    }
    const QList<QPersistentModelIndex> moved(rows.begin(), rows.end()); // they follow their layers
    return m_model.editor()->moveLayers(std::move(layers), row) ? moved
                                                                : QList<QPersistentModelIndex>();
}

} // namespace studio
