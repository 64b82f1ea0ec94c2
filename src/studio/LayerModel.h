// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAbstractTableModel>
#include <QPointer>

#include <cstdint>
#include <vector>

namespace studio {

class DocumentEditor;

/// The layers of the main composition, first on top, each with the icon of its kind and two columns
/// of switches. Follows the document; a layer that is moved stays the same row.
class LayerModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        Name, ///< can be edited unless the layer is locked
        Visibility,
        Lock,
        ColumnCount
    };
    /// Of a row: a number that is the layer's for good.
    static constexpr int kIdentityRole = Qt::UserRole + 1;

    using QAbstractTableModel::QAbstractTableModel;

    /// Shows the layers of another document, or the same anew.
    void setEditor(DocumentEditor& editor);
    DocumentEditor* editor() const { return m_editor; }
    /// Makes the visibility or the lock of a layer the other one.
    void toggle(const QModelIndex& index);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    std::vector<std::uint32_t> identities() const;
    void follow();

    QPointer<DocumentEditor> m_editor;
    std::vector<std::uint32_t> m_rows; ///< the layers' identities as the views know them
};

} // namespace studio
