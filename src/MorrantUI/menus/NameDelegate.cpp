// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/NameDelegate.h"

#include <QApplication>
#include <QLineEdit>
#include <QStyle>

NameDelegate::NameDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
{}

QWidget* NameDelegate::createEditor(
    QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QWidget* const editor = QStyledItemDelegate::createEditor(parent, option, index);
    if (auto* const line = qobject_cast<QLineEdit*>(editor)) {
        line->setAccessibleName(tr("Name"));
    }
    return editor;
}

void NameDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    const auto* const line = qobject_cast<const QLineEdit*>(editor);
    if (!line || !line->isModified()) {
        QStyledItemDelegate::setEditorData(editor, index);
    }
}

void NameDelegate::setModelData(
    QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    const auto* const line = qobject_cast<QLineEdit*>(editor);
    if (!line) {
        QStyledItemDelegate::setModelData(editor, model, index);
        return;
    }
    const QString name = line->text().trimmed();
    const QPersistentModelIndex row(index); // the model may sort by names
    if (!name.isEmpty() && name != index.data(Qt::EditRole).toString()
        && model->setData(index, name, Qt::EditRole))
    {
        Q_EMIT renamed(row, name);
    }
}

/// From the text to the end of the row; as wide as the text alone, it would cut what is typed.
void NameDelegate::updateEditorGeometry(
    QWidget* editor, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem item(option);
    initStyleOption(&item, index);
    const QStyle* const style = option.widget ? option.widget->style() : QApplication::style();
    QRect place = style->subElementRect(QStyle::SE_ItemViewItemText, &item, option.widget);
    if (option.direction == Qt::RightToLeft) {
        place.setLeft(option.rect.left());
    } else {
        place.setRight(option.rect.right());
    }
    editor->setGeometry(place);
}
