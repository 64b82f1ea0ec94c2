// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/RowListModel.h"

#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/icons.h>

#include <QBrush>
#include <QHash>
#include <QSet>

#include <algorithm>
#include <utility>

namespace {

QSet<quint64> identitiesOf(const std::vector<ListedRow>& rows)
{
    QSet<quint64> identities;
    for (const ListedRow& row : rows) {
        identities.insert(row.identity);
    }
    return identities;
}

bool hasTwins(const std::vector<ListedRow>& rows)
{
    return static_cast<std::size_t>(identitiesOf(rows).size()) != rows.size();
}

QVariant nameData(const ListedRow& row, int role)
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole: return row.name;
    case Qt::DecorationRole:
        return row.icon.isEmpty() ? QVariant() : QVariant(ui::getCachedIcon(row.icon));
    case Qt::ToolTipRole: {
        // The name may be cut. As mark-up, so that one such as "<b>" is shown as it is.
        const QString text =
            row.note.isEmpty() ? row.name : row.name + QLatin1Char('\n') + row.note;
        return QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(text.toHtmlEscaped());
    }
    case Qt::ForegroundRole: // at every paint, so that a change of contrast shows
        return row.isDimmed ? QBrush(ui::colorQt(QStringLiteral("HelperHints"))) : QVariant();
    case kListedIdentityRole: return row.identity;
    default: return {};
    }
}

QVariant switchData(const ListedSwitch::Side& side, int role)
{
    switch (role) {
    case Qt::DecorationRole: return ui::getCachedIcon(side.icon);
    case Qt::ToolTipRole: return side.toolTip;
    case Qt::AccessibleTextRole: return side.text;
    default: return {};
    }
}

} // namespace

RowListModel::RowListModel(QList<ListedSwitch> switches, QObject* parent)
    : QAbstractTableModel(parent)
    , m_switches(std::move(switches))
{}

RowListModel::~RowListModel() = default;

void RowListModel::resetRows(std::vector<ListedRow> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

void RowListModel::setRows(std::vector<ListedRow> rows)
{
    const auto isSame = [](const ListedRow& a, const ListedRow& b) {
        return a.identity == b.identity;
    };
    if (!std::equal(rows.begin(), rows.end(), m_rows.begin(), m_rows.end(), isSame)) {
        if (hasTwins(rows) || hasTwins(m_rows)) { // nobody could say what has become of which
            resetRows(std::move(rows));
            return;
        }
        removeGone(rows);
        appendNew(rows);
        bringIntoOrder(rows);
    }
    tellChanges(std::move(rows));
}

void RowListModel::removeGone(const std::vector<ListedRow>& rows)
{
    const QSet<quint64> staying = identitiesOf(rows);
    for (int row = rowCount() - 1; row >= 0; --row) {
        const auto at = m_rows.begin() + row;
        if (!staying.contains(at->identity)) {
            beginRemoveRows({}, row, row);
            m_rows.erase(at);
            endRemoveRows();
        }
    }
}

void RowListModel::appendNew(const std::vector<ListedRow>& rows)
{
    const QSet<quint64> known = identitiesOf(m_rows);
    std::vector<ListedRow> fresh;
    for (const ListedRow& row : rows) {
        if (!known.contains(row.identity)) {
            fresh.push_back(row);
        }
    }
    if (!fresh.empty()) {
        const int first = rowCount();
        beginInsertRows({}, first, first + static_cast<int>(fresh.size()) - 1);
        m_rows.insert(m_rows.end(), fresh.begin(), fresh.end());
        endInsertRows();
    }
}

/// Of rows that have the same identities by now.
void RowListModel::bringIntoOrder(const std::vector<ListedRow>& rows)
{
    QHash<quint64, int> before;
    QHash<quint64, int> after;
    bool isInOrder = true;
    for (int row = 0; row < rowCount(); ++row) {
        const auto at = static_cast<std::size_t>(row);
        before.insert(m_rows[at].identity, row);
        after.insert(rows[at].identity, row);
        isInOrder = isInOrder && m_rows[at].identity == rows[at].identity;
    }
    if (isInOrder) {
        return;
    }
    Q_EMIT layoutAboutToBeChanged();
    const QModelIndexList held = persistentIndexList();
    QModelIndexList moved;
    for (const QModelIndex& index : held) {
        const quint64 identity = m_rows[static_cast<std::size_t>(index.row())].identity;
        moved.append(this->index(after.value(identity), index.column()));
    }
    std::vector<ListedRow> ordered;
    for (const ListedRow& row : rows) {
        ordered.push_back(m_rows[static_cast<std::size_t>(before.value(row.identity))]);
    }
    m_rows = std::move(ordered);
    changePersistentIndexList(held, moved);
    Q_EMIT layoutChanged();
}

void RowListModel::tellChanges(std::vector<ListedRow> rows)
{
    std::vector<int> changed;
    for (int row = 0; row < rowCount(); ++row) {
        const auto at = static_cast<std::size_t>(row);
        if (m_rows[at] != rows[at]) {
            changed.push_back(row);
        }
    }
    m_rows = std::move(rows);
    if (!changed.empty()) {
        const QModelIndex first = index(changed.front(), 0);
        Q_EMIT dataChanged(first, index(changed.back(), columnCount() - 1));
    }
}

/// Null for an index of nothing here.
const ListedRow* RowListModel::rowAt(const QModelIndex& index) const
{
    const bool isOurs = index.isValid() && index.model() == this && index.row() < rowCount()
                        && index.column() < columnCount();
    return isOurs ? &m_rows[static_cast<std::size_t>(index.row())] : nullptr;
}

int RowListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int RowListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 1 + static_cast<int>(m_switches.size());
}

QVariant RowListModel::data(const QModelIndex& index, int role) const
{
    const ListedRow* const row = rowAt(index);
    if (!row) {
        return {};
    }
    if (index.column() == 0) {
        return nameData(*row, role);
    }
    const int number = index.column() - 1;
    const ListedSwitch& shown = m_switches.at(number);
    return switchData(row->switches.value(number) ? shown.on : shown.off, role);
}

bool RowListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !flags(index).testFlag(Qt::ItemIsEditable)) {
        return false;
    }
    Q_EMIT renameWanted(index.row(), value.toString());
    return true;
}

Qt::ItemFlags RowListModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    const ListedRow* const row = rowAt(index);
    const bool isEditable = row && index.column() == 0 && row->isRenamable;
    return isEditable ? flags | Qt::ItemIsEditable : flags;
}

void RowListModel::pressSwitch(const QModelIndex& index)
{
    const ListedRow* const row = rowAt(index);
    if (row && index.column() > 0) {
        const int number = index.column() - 1;
        Q_EMIT switchWanted(index.row(), number, !row->switches.value(number));
    }
}
