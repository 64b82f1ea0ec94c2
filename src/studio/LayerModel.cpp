// SPDX-License-Identifier: Apache-2.0
#include "LayerModel.h"

#include "editing/DocumentEditor.h"
#include "lottie/Document.h"
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/icons.h>

#include <QBrush>
#include <QHash>

#include <utility>

namespace studio {

namespace {

QString iconName(LayerKind kind)
{
    switch (kind) {
    case LayerKind::Precomposition: return QStringLiteral("icons:precompLayer.png");
    case LayerKind::Solid: return QStringLiteral("icons:solidLayer.png");
    case LayerKind::Null: return QStringLiteral("icons:nullLayer.png");
    case LayerKind::Shape: return QStringLiteral("icons:shapeLayer.png");
    case LayerKind::Other: break;
    }
    return QStringLiteral("icons:warning.png");
}

QString kindName(LayerKind kind)
{
    switch (kind) {
    case LayerKind::Precomposition: return LayerModel::tr("Precomposition");
    case LayerKind::Solid: return LayerModel::tr("Solid");
    case LayerKind::Null: return LayerModel::tr("Null");
    case LayerKind::Shape: return LayerModel::tr("Shape");
    case LayerKind::Other: break;
    }
    return LayerModel::tr("Not drawn");
}

QVariant nameData(const Layer& layer, int role)
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole: return layer.name;
    case Qt::DecorationRole: return ui::getCachedIcon(iconName(layer.kind));
    case Qt::ToolTipRole: {
        const QString kind = kindName(layer.kind);
        // The name may be cut. As mark-up, so that one such as "<b>" is shown as it is.
        return QStringLiteral("<p style='white-space:pre-wrap'>%1\n%2</p>")
            .arg(
                layer.name.toHtmlEscaped(),
                layer.hidden ? LayerModel::tr("%1, hidden").arg(kind) : kind);
    }
    case Qt::ForegroundRole: // at every paint, so that a change of contrast shows
        return layer.hidden ? QBrush(ui::colorQt(QStringLiteral("HelperHints"))) : QVariant();
    case LayerModel::kIdentityRole: return layer.span.begin;
    default: return {};
    }
}

QVariant visibilityData(bool hidden, int role)
{
    switch (role) {
    case Qt::DecorationRole:
        return ui::getCachedIcon(
            hidden ? QStringLiteral("icons:eyeOff.png") : QStringLiteral("icons:eye.png"));
    case Qt::ToolTipRole:
        return hidden ? LayerModel::tr("Show layer") : LayerModel::tr("Hide layer");
    case Qt::AccessibleTextRole:
        return hidden ? LayerModel::tr("Hidden") : LayerModel::tr("Visible");
    default: return {};
    }
}

QVariant lockData(bool locked, int role)
{
    switch (role) {
    case Qt::DecorationRole:
        return ui::getCachedIcon(
            locked ? QStringLiteral("icons:lock.png") : QStringLiteral("icons:unlock.png"));
    case Qt::ToolTipRole:
        return locked ? LayerModel::tr("Unlock layer") : LayerModel::tr("Lock layer");
    case Qt::AccessibleTextRole:
        return locked ? LayerModel::tr("Locked") : LayerModel::tr("Unlocked");
    default: return {};
    }
}

} // namespace

void LayerModel::setEditor(DocumentEditor& editor)
{
    beginResetModel();
    if (m_editor) {
        m_editor->disconnect(this);
    }
    m_editor = &editor;
    m_rows = identities();
    connect(&editor, &DocumentEditor::layersChanged, this, &LayerModel::follow);
    endResetModel();
}

void LayerModel::toggle(const QModelIndex& index)
{
    const Layer* layer = m_editor ? findLayer(*m_editor->document(), index.row()) : nullptr;
    if (layer && index.column() == Visibility) {
        m_editor->setHidden({index.row()}, !layer->hidden);
    } else if (layer && index.column() == Lock) {
        m_editor->setLocked({index.row()}, !layer->locked);
    }
}

int LayerModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int LayerModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QVariant LayerModel::data(const QModelIndex& index, int role) const
{
    const Layer* layer =
        index.isValid() && m_editor ? findLayer(*m_editor->document(), index.row()) : nullptr;
    if (!layer) {
        return {};
    }
    switch (index.column()) {
    case Visibility: return visibilityData(layer->hidden, role);
    case Lock: return lockData(layer->locked, role);
    default: return nameData(*layer, role);
    }
}

bool LayerModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !flags(index).testFlag(Qt::ItemIsEditable)) {
        return false;
    }
    m_editor->renameLayer(index.row(), value.toString());
    return true;
}

Qt::ItemFlags LayerModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
    const bool isEditable =
        index.isValid() && index.column() == Name && m_editor && !m_editor->isLocked(index.row());
    return isEditable ? flags | Qt::ItemIsEditable : flags;
}

std::vector<std::uint32_t> LayerModel::identities() const
{
    std::vector<std::uint32_t> found;
    if (const auto document = m_editor->document()) {
        for (const Layer& layer : document->main.layers) {
            found.push_back(layer.span.begin);
        }
    }
    return found;
}

void LayerModel::follow()
{
    auto rows = identities();
    if (rows == m_rows) {
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
        return;
    }
    QHash<quint32, int> places;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        places.insert(rows[i], static_cast<int>(i));
    }
    Q_EMIT layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    for (const QModelIndex& old : before) {
        const int place = places.value(m_rows[static_cast<std::size_t>(old.row())]);
        after.append(index(place, old.column()));
    }
    m_rows = std::move(rows);
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged();
}

} // namespace studio
