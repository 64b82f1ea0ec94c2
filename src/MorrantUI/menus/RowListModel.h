// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QAbstractTableModel>
#include <QList>
#include <QString>

#include <vector>

/// A row of a RowListModel.
struct ListedRow
{
    quint64 identity = 0; ///< of what the row shows, for good; no two rows have the same
    QString name = {};
    QString icon = {};         ///< such as "icons:solidLayer.png"; empty for none
    QString note = {};         ///< below the name in its tool tip
    bool isDimmed = false;     ///< written in the colour of hints
    bool isRenamable = true;   ///< by the user
    QList<bool> switches = {}; ///< of the columns, in their order; those that are missing are off

    bool operator==(const ListedRow&) const = default;
};

/// What a column of switches shows, off and on.
struct ListedSwitch
{
    struct Side
    {
        QString icon;
        QString text;    ///< what it is, to assistive tools: "Hidden"
        QString toolTip; ///< what a press does: "Show layer"
    };
    Side off;
    Side on;
};

/// Of a RowListModel's row: ListedRow::identity. A TreeView takes it for its setKeyRole().
inline constexpr int kListedIdentityRole = Qt::UserRole + 1;

/// The rows that a host pushes as a list, for a TreeView: layers, tracks, or the like, each with an
/// icon, a name that can be edited and columns of switches. Column 0 has the names, the switches
/// follow.
///
/// It changes nothing by itself: what the user does is told, and the host answers with new rows.
/// Views keep what is selected, current and being edited with its identity, wherever it moves.
class MORRANT_UI_EXPORT RowListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// @param switches the columns of switches, for TreeView::setSwitchColumns(), too
    explicit RowListModel(QList<ListedSwitch> switches = {}, QObject* parent = nullptr);
    ~RowListModel() override;

    /// Shows what has become of the rows: identities that are gone, have come, or are elsewhere,
    /// and whatever else has changed. Views are told no more than that.
    void setRows(std::vector<ListedRow> rows);
    /// Shows other rows, of which views know none, whatever their identities.
    void resetRows(std::vector<ListedRow> rows);
    const std::vector<ListedRow>& rows() const { return m_rows; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// Tells of a name for a row that can be renamed, by renameWanted().
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

public Q_SLOTS:
    /// Tells of a press on a switch, by switchWanted(); other cells are ignored.
    void pressSwitch(const QModelIndex& index);

Q_SIGNALS:
    /// The user has given a row another name, which may be empty or the one that it has.
    void renameWanted(int row, const QString& name);
    /// The user has pressed a switch.
    /// @param number of the switch, from 0
    /// @param on what it should be
    void switchWanted(int row, int number, bool on);

private:
    const ListedRow* rowAt(const QModelIndex& index) const;
    void removeGone(const std::vector<ListedRow>& rows);
    void appendNew(const std::vector<ListedRow>& rows);
    void bringIntoOrder(const std::vector<ListedRow>& rows);
    void tellChanges(std::vector<ListedRow> rows);

    QList<ListedSwitch> m_switches;
    std::vector<ListedRow> m_rows;
};
