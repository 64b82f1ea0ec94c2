// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/rowmoves.h"

#include <MorrantUI/menus/RowListModel.h>

#include <QStandardItemModel>

namespace ui::menus {

namespace {

/// Takes a row out of a model of items, which knows no other way to move one, and puts it in again.
bool moveItems(
    QStandardItemModel& model,
    const QModelIndex& parent,
    int row,
    const QModelIndex& into,
    int before)
{
    QStandardItem* const source =
        parent.isValid() ? model.itemFromIndex(parent) : model.invisibleRootItem();
    QStandardItem* const target =
        into.isValid() ? model.itemFromIndex(into) : model.invisibleRootItem();
    const QList<QStandardItem*> items = source->takeRow(row);
    target->insertRow(source == target && row < before ? before - 1 : before, items);
    return !items.isEmpty();
}

bool moveOne(QAbstractItemModel& model, const QModelIndex& row, const QModelIndex& into, int before)
{
    if (auto* items = qobject_cast<QStandardItemModel*>(&model)) {
        return moveItems(*items, row.parent(), row.row(), into, before);
    }
    return model.moveRow(row.parent(), row.row(), into, before);
}

/// One drag is one wish to the host; the rows are where they are found again.
QList<QPersistentModelIndex> moveListed(RowListModel& model, const QModelIndexList& rows, int row)
{
    const QList<QPersistentModelIndex> moving(rows.begin(), rows.end());
    QList<int> numbers;
    for (const QModelIndex& index : rows) {
        numbers.append(index.row());
    }
    return model.moveTo(numbers, row) ? moving : QList<QPersistentModelIndex>();
}

} // namespace

RowPlace rowPlace(const QRect& row, int y, bool takesRows)
{
    const int from = y - row.top();
    if (takesRows && 4 * from >= row.height() && 4 * from < 3 * row.height()) {
        return RowPlace::Inside;
    }
    return 2 * from < row.height() ? RowPlace::Before : RowPlace::After;
}

QList<QPersistentModelIndex> moveRows(
    QAbstractItemModel& model, const QModelIndexList& rows, const QModelIndex& parent, int row)
{
    if (auto* const list = qobject_cast<RowListModel*>(&model)) {
        return parent.isValid() ? QList<QPersistentModelIndex>() : moveListed(*list, rows, row);
    }
    const QPersistentModelIndex into(parent);
    QPersistentModelIndex follower; // the first one behind the place that stays where it is
    for (int next = row; next < model.rowCount(into) && !follower.isValid(); ++next) {
        const QModelIndex index = model.index(next, 0, into);
        follower = rows.contains(index) ? QPersistentModelIndex() : QPersistentModelIndex(index);
    }
    const QList<QPersistentModelIndex> moving(rows.begin(), rows.end());
    QList<QPersistentModelIndex> moved;
    bool hasMoved = false;
    for (const QPersistentModelIndex& index : moving) {
        if (!index.isValid() || (parent.isValid() && !into.isValid())) {
            return hasMoved ? moved : QList<QPersistentModelIndex>(); // the model had other plans
        }
        const int before = follower.isValid() ? follower.row() : model.rowCount(into);
        const bool isThere =
            index.parent() == into && (before == index.row() || before == index.row() + 1);
        const int place = index.parent() == into && index.row() < before ? before - 1 : before;
        if (!isThere && !moveOne(model, index, into, before)) {
            return hasMoved ? moved : QList<QPersistentModelIndex>();
        }
        hasMoved = hasMoved || !isThere;
        moved.append(model.index(place, 0, into));
    }
    return hasMoved ? moved : QList<QPersistentModelIndex>();
}

} // namespace ui::menus
