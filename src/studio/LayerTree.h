// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/menus/TreeView.h>

namespace studio {

class LayerModel;

/// The tree over a LayerModel: its columns of switches act on the document, and rows
/// that are taken elsewhere move in the document, as one step.
class LayerTree : public TreeView
{
    Q_OBJECT

public:
    /// @param model must outlive it
    explicit LayerTree(LayerModel& model, QWidget* parent = nullptr);

    /// The selected layers' places, from top to bottom.
    std::vector<int> selectedLayers() const;

protected:
    QList<QPersistentModelIndex> moveRows(
        const QModelIndexList& rows, const QModelIndex& parent, int row) override;

private:
    LayerModel& m_model;
};

} // namespace studio
