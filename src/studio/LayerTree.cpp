#include "LayerTree.h"

#include "LayerModel.h"
#include "editing/DocumentEditor.h"

#include <QHeaderView>
#include <QMouseEvent>

namespace studio {

namespace {

constexpr int kSwitchWidth = 24; ///< logical pixels

} // namespace

LayerTree::LayerTree(LayerModel& model, QWidget* parent)
    : TreeView(parent)
    , m_model(model)
{
    setFrameShape(QFrame::NoFrame);
    setRootIsDecorated(false);
    setReordering(Reordering::Siblings);
    setKeyRole(LayerModel::kIdentityRole);
    setModel(&model);
    header()->setStretchLastSection(false);
    header()->setMinimumSectionSize(kSwitchWidth);
    header()->setSectionResizeMode(LayerModel::Name, QHeaderView::Stretch);
    for (const int column : {LayerModel::Visibility, LayerModel::Lock}) {
        header()->setSectionResizeMode(column, QHeaderView::Fixed);
        header()->resizeSection(column, kSwitchWidth);
    }
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

void LayerTree::mousePressEvent(QMouseEvent* event)
{
    if (!pressSwitch(*event)) {
        TreeView::mousePressEvent(event);
    }
}

void LayerTree::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (!pressSwitch(*event)) { // the second of two quick clicks is one as well
        TreeView::mouseDoubleClickEvent(event);
    }
}

bool LayerTree::pressSwitch(const QMouseEvent& event)
{
    const QModelIndex index = indexAt(event.position().toPoint());
    const bool isSwitch = index.isValid() && index.column() != LayerModel::Name;
    if (isSwitch && event.button() == Qt::LeftButton) {
        m_model.toggle(index);
    }
    return isSwitch && event.button() == Qt::LeftButton;
}

} // namespace studio
