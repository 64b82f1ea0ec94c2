// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStyledItemDelegate>

/// Edits the names of rows in place: a name is taken without the space around it, and an empty one,
/// or the one that was there, changes nothing. What is being typed stays when the model tells of
/// other data.
class NameDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit NameDelegate(QObject* parent);

    QWidget* createEditor(
        QWidget* parent,
        const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(
        QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(
        QWidget* editor,
        const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;

Q_SIGNALS:
    void renamed(const QModelIndex& index, const QString& name) const;
};
