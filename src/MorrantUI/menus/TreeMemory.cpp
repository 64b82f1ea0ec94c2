// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/TreeMemory.h"

#include <QHash>
#include <QItemSelectionModel>
#include <QPointer>
#include <QScrollBar>
#include <QTreeView>

#include <functional>
#include <utility>

namespace {

constexpr QChar kSeparator(0x1f); ///< between the names of a row and its parent, as in no text

/// Calls back with each row of a model and its path from the root.
/// @param opens whether the children of a row are to be visited
void walk(
    const QAbstractItemModel& model,
    const QModelIndex& parent,
    const QString& path,
    int keyRole,
    const std::function<bool(const QModelIndex&, const QString&)>& opens)
{
    QHash<QString, int> twins;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        const QString name = index.data(keyRole).toString();
        const int twin = twins[name]++;
        const QString own = path + kSeparator + name + kSeparator + QString::number(twin);
        if (opens(index, own)) {
            walk(model, index, own, keyRole, opens);
        }
    }
}

} // namespace

void TreeMemory::keep(const QTreeView& tree, int keyRole)
{
    *this = TreeMemory();
    const QItemSelectionModel* selection = tree.selectionModel();
    if (!tree.model() || !selection) {
        return;
    }
    const QModelIndex top = tree.indexAt(QPoint()).siblingAtColumn(0);
    const QModelIndex current = selection->currentIndex().siblingAtColumn(0);
    walk(*tree.model(), tree.rootIndex(), {}, keyRole, [&](const auto& index, const auto& path) {
        if (selection->isSelected(index)) {
            m_selected.insert(path);
        }
        if (index == current) {
            m_current = path;
        }
        if (index == top) {
            m_top = path;
        }
        const bool open = tree.isExpanded(index);
        if (open) {
            m_open.insert(path);
        }
        return open;
    });
    m_isEmpty = m_open.isEmpty() && m_selected.isEmpty() && m_current.isEmpty()
                && tree.verticalScrollBar()->value() == 0;
}

void TreeMemory::restore(QTreeView& tree, int keyRole, Part part)
{
    if (m_isEmpty || !tree.model() || !tree.selectionModel()) {
        return;
    }
    const TreeMemory kept = std::exchange(*this, TreeMemory()); // slots may reset the model again
    const int lastColumn = tree.model()->columnCount(tree.rootIndex()) - 1;
    QItemSelection selected;
    QList<QPersistentModelIndex> open;
    QPersistentModelIndex current;
    QPersistentModelIndex top;
    walk(*tree.model(), tree.rootIndex(), {}, keyRole, [&](const auto& index, const auto& path) {
        if (kept.m_selected.contains(path)) {
            selected.select(index, index.siblingAtColumn(lastColumn));
        }
        if (path == kept.m_current) {
            current = index;
        }
        if (path == kept.m_top) {
            top = index;
        }
        const bool isOpen = kept.m_open.contains(path);
        if (isOpen) {
            open.append(index);
        }
        return isOpen;
    });
    const QPointer<QTreeView> self(&tree);
    for (const QPersistentModelIndex& index : open) {
        if (self) {
            tree.expand(index);
        }
    }
    if (part == Part::OpenRows) {
        return;
    }
    if (self && tree.selectionModel() && current.isValid()) {
        tree.selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    }
    if (self && tree.selectionModel()) {
        tree.selectionModel()->select(selected, QItemSelectionModel::ClearAndSelect);
    }
    if (self) {
        tree.scrollTo(top, QAbstractItemView::PositionAtTop);
    }
}
