// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>
#include <QModelIndexList>
#include <QPersistentModelIndex>
#include <QRect>

class QAbstractItemModel;

/// Where rows go that are dragged over others, and how a model is asked to carry them.
namespace ui::menus {

enum class RowPlace
{
    Before,
    Inside,
    After
};

/// What a pointer over a row means to rows that are dragged: before or behind it by the half it is
/// on, and into it by the middle half of a row that takes others.
RowPlace rowPlace(const QRect& row, int y, bool takesRows);

/// Carries rows to another place among, or into, others.
/// @param rows from top to bottom, none of them in another
/// @param row where the first is to be among the children of `parent`, counted with all rows still
///     in their places
/// @return where the rows are now, in their order; empty if nothing has moved
QList<QPersistentModelIndex> moveRows(
    QAbstractItemModel& model, const QModelIndexList& rows, const QModelIndex& parent, int row);

} // namespace ui::menus
