// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QAbstractTableModel>
#include <QList>
#include <QString>

#include <optional>
#include <vector>

/// A row of a RowListModel.
struct ListedRow
{
    quint64 identity = 0; ///< of what the row shows, for good; no two rows have the same
    QString name = {};
    QString icon = {};         ///< such as "icons:solidLayer.png"; empty for none
    QString note = {};         ///< below the name in its tool tip, and told by assistive tools
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
    QString name = {}; ///< of the column, to assistive tools: "Visibility"
};

/// Of a RowListModel's row: ListedRow::identity. A TreeView takes it for its setKeyRole().
inline constexpr int kListedIdentityRole = Qt::UserRole + 1;

/// The rows that a host pushes as a list, for a TreeView: layers, tracks, or the like, each with an
/// icon, a name that can be edited and columns of switches. Column 0 has the names, the switches
/// follow.
///
/// It changes nothing by itself: what the user does is told, and the host answers with new rows.
/// Views keep what is selected, current and being edited with its identity, wherever it moves.
///
/// Rows that are pushed while views are told of others, as by the slot of a changed selection, take
/// their places when that is over. Such a slot must not delete the model.
class MORRANT_UI_EXPORT RowListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// @param switches the columns of switches; the first is column 1
    explicit RowListModel(QList<ListedSwitch> switches = {}, QObject* parent = nullptr);
    ~RowListModel() override;

    QList<int> switchColumns() const; ///< for TreeView::setSwitchColumns()

    /// Shows what has become of the rows: identities that are gone, have come, or are elsewhere,
    /// and whatever else has changed. Views are told no more than that, except that of changes in
    /// very many places they are told as of one; where two rows have one identity, the list counts
    /// as another one.
    void setRows(std::vector<ListedRow> rows);
    /// Shows other rows, of which views know none, whatever their identities.
    void resetRows(std::vector<ListedRow> rows);
    const std::vector<ListedRow>& rows() const { return m_rows; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(
        int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    /// Tells of a name for a row that can be renamed, by renameWanted().
    /// @return whether it was told; the host need not have taken it
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    /// The same as moveTo() for neighbours.
    bool moveRows(
        const QModelIndex& parent, int row, int count, const QModelIndex& target, int to) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// Tells of rows that the user has taken elsewhere, by moveWanted(), which see: TreeView does
    /// so. Rows that there are not, or that are not in order, and what would move none are ignored.
    /// @return whether the host has moved them by then
    bool moveTo(const QList<int>& rows, int to);

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
    /// The user has taken rows elsewhere.
    /// @param rows from top to bottom
    /// @param to where the first is to be, counted with all rows still in their places
    void moveWanted(const QList<int>& rows, int to);

private:
    struct Push
    {
        std::vector<ListedRow> rows;
        bool isReset;
    };

    const ListedRow* rowAt(const QModelIndex& index) const;
    void push(Push next);
    void apply(Push next);
    void removeGone(const std::vector<ListedRow>& rows);
    void appendNew(const std::vector<ListedRow>& rows);
    void bringIntoOrder(const std::vector<ListedRow>& rows);
    void arrange(const std::vector<int>& order);
    void tellChanges(std::vector<ListedRow> rows);

    QList<ListedSwitch> m_switches;
    std::vector<ListedRow> m_rows;
    std::optional<Push> m_next; ///< pushed while another is being told of
    bool m_isTelling = false;
};
