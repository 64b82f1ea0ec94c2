// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/RowListModel.h"

#include "MorrantUI/menus/NameDelegate.h"
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/icons.h>

#include <QBrush>
#include <QHash>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QSet>

#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

namespace {

/// Beyond so many views are told of rows as if they lay together: each costs them time.
constexpr std::size_t kMostRuns = 64;

/// Rows that lie together.
struct Run
{
    int first;
    int last;
};

std::vector<Run> runsOf(const std::vector<int>& rows)
{
    std::vector<Run> runs;
    for (const int row : rows) {
        if (!runs.empty() && runs.back().last == row - 1) {
            runs.back().last = row;
        } else {
            runs.push_back({row, row});
        }
    }
    return runs;
}

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
    case Qt::AccessibleDescriptionRole: return row.note;
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

QList<int> RowListModel::switchColumns() const
{
    QList<int> columns(m_switches.size());
    std::iota(columns.begin(), columns.end(), 1);
    return columns;
}

void RowListModel::resetRows(std::vector<ListedRow> rows)
{
    push({std::move(rows), true});
}

void RowListModel::setRows(std::vector<ListedRow> rows)
{
    push({std::move(rows), false});
}

void RowListModel::push(Push next)
{
    next.isReset = next.isReset || (m_next && m_next->isReset);
    m_next = std::move(next);
    if (m_isTelling) {
        return;
    }
    const QPointer<RowListModel> alive(this);
    while (alive && m_next) {
        m_isTelling = true;
        apply(*std::exchange(m_next, {}));
        if (alive) {
            m_isTelling = false;
        }
    }
}

void RowListModel::apply(Push next)
{
    const auto isSame = [](const ListedRow& a, const ListedRow& b) {
        return a.identity == b.identity;
    };
    const std::vector<ListedRow>& rows = next.rows;
    const bool areSame = std::equal(rows.begin(), rows.end(), m_rows.begin(), m_rows.end(), isSame);
    // Of twins nobody could say what has become of which.
    if (next.isReset || (!areSame && (hasTwins(rows) || hasTwins(m_rows)))) {
        beginResetModel();
        m_rows = std::move(next.rows);
        endResetModel();
        return;
    }
    if (!areSame) {
        removeGone(rows);
        appendNew(rows);
        bringIntoOrder(rows);
    }
    tellChanges(std::move(next.rows));
}

void RowListModel::removeGone(const std::vector<ListedRow>& rows)
{
    const QSet<quint64> staying = identitiesOf(rows);
    std::vector<int> order;
    std::vector<int> gone;
    for (int row = 0; row < rowCount(); ++row) {
        const bool stays = staying.contains(m_rows[static_cast<std::size_t>(row)].identity);
        (stays ? order : gone).push_back(row);
    }
    std::vector<Run> runs = runsOf(gone);
    if (runs.size() > kMostRuns) { // then no view asks which the neighbour of each was
        runs = {Run{static_cast<int>(order.size()), rowCount() - 1}};
        order.insert(order.end(), gone.begin(), gone.end());
        arrange(order);
    }
    std::for_each(runs.rbegin(), runs.rend(), [this](const Run& run) {
        beginRemoveRows({}, run.first, run.last);
        m_rows.erase(m_rows.begin() + run.first, m_rows.begin() + run.last + 1);
        endRemoveRows();
    });
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
    for (int row = 0; row < rowCount(); ++row) {
        before.insert(m_rows[static_cast<std::size_t>(row)].identity, row);
    }
    std::vector<int> order;
    for (const ListedRow& row : rows) {
        order.push_back(before.value(row.identity));
    }
    arrange(order);
}

/// @param order of the present rows, from the one that comes first
void RowListModel::arrange(const std::vector<int>& order)
{
    if (std::is_sorted(order.begin(), order.end())) {
        return;
    }
    Q_EMIT layoutAboutToBeChanged();
    std::vector<int> places(order.size());
    std::vector<ListedRow> ordered;
    for (const int row : order) {
        const auto at = static_cast<std::size_t>(row);
        places[at] = static_cast<int>(ordered.size());
        ordered.push_back(std::move(m_rows[at]));
    }
    const QModelIndexList held = persistentIndexList();
    QModelIndexList moved;
    for (const QModelIndex& index : held) {
        moved.append(this->index(places[static_cast<std::size_t>(index.row())], index.column()));
    }
    m_rows = std::move(ordered);
    changePersistentIndexList(held, moved);
    Q_EMIT layoutChanged();
}

/// Each run by itself, so that views leave alone what lies between.
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
    std::vector<Run> runs = runsOf(changed);
    if (runs.size() > kMostRuns) {
        runs = {Run{changed.front(), changed.back()}};
    }
    const QPointer<RowListModel> alive(this);
    for (const Run& run : runs) {
        if (alive) {
            Q_EMIT dataChanged(index(run.first, 0), index(run.last, columnCount() - 1));
        }
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

QVariant RowListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const bool isColumn = orientation == Qt::Horizontal && section >= 0 && section < columnCount();
    if (!isColumn || role != Qt::DisplayRole) {
        return {};
    }
    return section == 0 ? NameDelegate::tr("Name") : m_switches.at(section - 1).name;
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

bool RowListModel::moveTo(const QList<int>& rows, int to)
{
    const bool areThere = !rows.isEmpty() && rows.first() >= 0 && rows.last() < rowCount();
    const auto wrong = std::adjacent_find(rows.begin(), rows.end(), std::greater_equal<>());
    if (!areThere || wrong != rows.end() || to < 0 || to > rowCount()) {
        return false;
    }
    const bool areTogether = rows.last() - rows.first() == rows.size() - 1;
    if (areTogether && to >= rows.first() && to <= rows.last() + 1) {
        return false;
    }
    QList<QPersistentModelIndex> moving;
    for (const int row : rows) {
        moving.append(index(row, 0));
    }
    const QPointer<RowListModel> alive(this);
    Q_EMIT moveWanted(rows, to);
    const auto isThere = [](int row, const QPersistentModelIndex& now) { return row == now.row(); };
    return alive && !std::equal(rows.begin(), rows.end(), moving.begin(), isThere);
}

bool RowListModel::moveRows(
    const QModelIndex& parent, int row, int count, const QModelIndex& target, int to)
{
    if (parent.isValid() || target.isValid() || row < 0 || count < 1 || count > rowCount() - row) {
        return false;
    }
    QList<int> rows(count);
    std::iota(rows.begin(), rows.end(), row);
    return moveTo(rows, to);
}
