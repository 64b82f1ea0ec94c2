// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QTreeView>

#include <memory>

class QStandardItem;
class RowDrag;
class TreeMemory;

/// A tree whose rows are renamed in place, dragged to another place and found by typing, over any
/// model.
///
/// F2 or a double click on a name that the model lets be edited opens it for editing; Return and
/// the loss of the focus take the new name, Escape the old one. Space around a name is dropped, and
/// an empty name leaves the old one. Letters that are typed go to the next row that begins with
/// them; while they do, shortcuts of the window that are plain letters do not act.
///
/// What is open, selected and current is found again by the names of rows when the model is reset,
/// so that a host may fill its model anew after every change: in one reset, or emptied and then
/// filled within one turn of the event loop, as a QStandardItemModel is; also in the slots of what
/// the tree reports. Several rows can be selected. All rows have the height of the first one, which
/// keeps a hundred thousand of them quick.
class MORRANT_UI_EXPORT TreeView : public QTreeView
{
    Q_OBJECT

public:
    enum class Reordering
    {
        None,     ///< rows stay where they are; Qt's own drag and drop may be switched on instead
        Siblings, ///< among the rows of the same parent
        Anywhere, ///< also into other rows that the model lets take drops
    };
    Q_ENUM(Reordering)

    explicit TreeView(QWidget* parent = nullptr);
    ~TreeView() override;

    void setModel(QAbstractItemModel* model) override;

    /// How far the selected rows may be taken by the mouse, or among their siblings by Alt with Up
    /// and Down. None at first. Escape, and every other way in which the mouse is lost, ends a drag
    /// and leaves the rows where they were.
    void setReordering(Reordering reordering);
    Reordering reordering() const { return m_reordering; }
    bool isReordering() const; ///< the mouse holds rows

    /// The role whose value names a row among its siblings for good. Rows are named by their texts
    /// at first, which loses a row that is renamed while the model is filled anew.
    void setKeyRole(int role) { m_keyRole = role; }
    int keyRole() const { return m_keyRole; }

    /// Columns of icons that are switches, such as for what is seen and what is locked: each as
    /// wide as an icon, and a press of the left button in one tells of its cell by switchPressed(),
    /// and neither selects nor drags. Keys get there by the arrows to both sides, from a row that
    /// they do not unfold or close, and Space presses. Columns that the model does not have are
    /// ignored. A single other column has the rest of the width; how several share it is the
    /// header's.
    void setSwitchColumns(const QList<int>& columns);
    QList<int> switchColumns() const { return m_switches; }

    /// The selected rows from top to bottom, in the first column, without those that lie in another
    /// selected row.
    QModelIndexList selectedRowsInOrder() const;

    void keyboardSearch(const QString& search) override;

public Q_SLOTS:
    /// Opens the name of the current row for editing. Nothing happens if there is none, or if the
    /// model does not let it be edited.
    void renameCurrent();

Q_SIGNALS:
    /// The user has given a row another name, and the model's setData() has agreed. A model that
    /// asks its host, as RowListModel does, agrees before the host has decided.
    void renamed(const QModelIndex& index, const QString& name);

    /// The user has moved rows, which are the selected ones now.
    void rowsReordered();

    /// A switch was pressed, by the mouse or Space; the host changes what it stands for. Also by
    /// the second press of a double click.
    void switchPressed(const QModelIndex& index);

    /// Delete or Backspace was pressed. The host removes the rows; while nobody listens, the keys
    /// are left to the window.
    void removalRequested(const QModelIndexList& rows);

protected:
    /// Carries rows to another place, as one step. The base asks the model with moveRows(), and
    /// takes out and puts in the rows of a QStandardItemModel; a RowListModel tells its host once
    /// by moveWanted(). A model that refuses is left alone.
    /// @param rows from top to bottom, none of them in another
    /// @param row where the first is to be among the children of `parent`, counted with all rows
    ///     still in their places
    /// @return where the rows are now; empty if nothing has moved
    virtual QList<QPersistentModelIndex> moveRows(
        const QModelIndexList& rows, const QModelIndex& parent, int row);

    /// Takes no notice of an editor that went with the rows of before.
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

    /// Gives a selected row of one column one ground, from end to end.
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index)
        const override;

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex& index, const QEvent* event = nullptr) const override;

private:
    friend class RowDrag;

    bool pressSwitch(const QMouseEvent& event);
    bool pressesSwitch(const QKeyEvent& key) const;
    void fitSwitches();
    void giveRoomToNames();
    bool isOnSwitch() const;
    QModelIndex cellBeside(int step) const;
    void recall();
    bool reorder(const QModelIndexList& rows, const QModelIndex& parent, int row);
    QList<QStandardItem*> openItems(const QModelIndexList& rows) const;
    void select(const QList<QPersistentModelIndex>& rows);
    bool moveSelectionBy(int step);
    bool takesKey(const QKeyEvent& event) const;

    Reordering m_reordering = Reordering::None;
    int m_keyRole = Qt::DisplayRole;
    QList<int> m_switches; ///< columns
    std::unique_ptr<RowDrag> m_drag;
    std::unique_ptr<TreeMemory> m_memory;
    bool m_awaitsRows = false; ///< the model was emptied in this turn of the event loop
    QList<QMetaObject::Connection> m_watches; ///< of the model
};
