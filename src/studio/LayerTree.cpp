// SPDX-License-Identifier: Apache-2.0
#include "LayerTree.h"

#include "editing/DocumentEditor.h"
#include "lottie/Document.h"
#include <MorrantUI/menus/RowListModel.h>

#include <map>
#include <utility>

namespace studio {

namespace {

/// What layers of a kind share.
struct Kind
{
    QString icon;
    QString name;
    QString hiddenName;
};

Kind described(LayerKind kind)
{
    const auto kindOf = [](const char* icon, const QString& name) {
        return Kind{
            QStringLiteral("icons:%1.png").arg(QLatin1String(icon)),
            name,
            LayerTree::tr("%1, hidden").arg(name)};
    };
    switch (kind) {
    case LayerKind::Precomposition: return kindOf("precompLayer", LayerTree::tr("Precomposition"));
    case LayerKind::Solid: return kindOf("solidLayer", LayerTree::tr("Solid"));
    case LayerKind::Null: return kindOf("nullLayer", LayerTree::tr("Null"));
    case LayerKind::Shape: return kindOf("shapeLayer", LayerTree::tr("Shape"));
    case LayerKind::Other: break;
    }
    return kindOf("warning", LayerTree::tr("Not drawn"));
}

/// Of as many layers as a document may have, at each change: texts are made once.
std::vector<ListedRow> rowsOf(const DocumentEditor& editor)
{
    std::vector<ListedRow> rows;
    std::map<LayerKind, Kind> kinds;
    const auto document = editor.document();
    if (!document) {
        return rows;
    }
    for (const Layer& layer : document->main.layers) {
        const auto [place, isNew] = kinds.try_emplace(layer.kind);
        if (isNew) {
            place->second = described(layer.kind);
        }
        const Kind& kind = place->second;
        rows.push_back(
            {.identity = layer.span.begin,
             .name = layer.name,
             .icon = kind.icon,
             .note = layer.hidden ? kind.hiddenName : kind.name,
             .isDimmed = layer.hidden,
             .isRenamable = !layer.locked,
             .switches = {layer.hidden, layer.locked}});
    }
    return rows;
}

QList<ListedSwitch> switches()
{
    const auto side = [](const char* icon, const QString& text, const QString& toolTip) {
        return ListedSwitch::Side{
            QStringLiteral("icons:%1.png").arg(QLatin1String(icon)), text, toolTip};
    };
    return {
        {side("eye", LayerTree::tr("Visible"), LayerTree::tr("Hide layer")),
         side("eyeOff", LayerTree::tr("Hidden"), LayerTree::tr("Show layer")),
         LayerTree::tr("Visibility")},
        {side("unlock", LayerTree::tr("Unlocked"), LayerTree::tr("Lock layer")),
         side("lock", LayerTree::tr("Locked"), LayerTree::tr("Unlock layer")),
         LayerTree::tr("Lock")}};
}

} // namespace

LayerTree::LayerTree(QWidget* parent)
    : TreeView(parent)
    , m_model(new RowListModel(switches(), this))
{
    setAccessibleName(tr("Layers"));
    setFrameShape(QFrame::NoFrame);
    setRootIsDecorated(false);
    setReordering(Reordering::Siblings);
    setKeyRole(kListedIdentityRole);
    setModel(m_model);
    setSwitchColumns(m_model->switchColumns());
    connect(this, &TreeView::switchPressed, m_model, &RowListModel::pressSwitch);
    connect(m_model, &RowListModel::switchWanted, this, [this](int layer, int number, bool on) {
        if (m_editor) {
            number == 0 ? m_editor->setHidden({layer}, on) : m_editor->setLocked({layer}, on);
        }
    });
    connect(m_model, &RowListModel::renameWanted, this, [this](int layer, const QString& name) {
        if (m_editor) { // what is being typed may outlive it
            m_editor->renameLayer(layer, name);
        }
    });
    connect(m_model, &RowListModel::moveWanted, this, [this](const QList<int>& layers, int to) {
        if (m_editor) {
            m_editor->moveLayers({layers.begin(), layers.end()}, to);
        }
    });
}

void LayerTree::setEditor(DocumentEditor& editor)
{
    if (m_editor) {
        m_editor->disconnect(this);
    }
    m_editor = &editor;
    connect(&editor, &DocumentEditor::layersChanged, this, [this] {
        m_model->setRows(rowsOf(*m_editor));
    });
    m_model->resetRows(rowsOf(editor));
}

DocumentEditor& LayerTree::editor() const
{
    return *m_editor;
}

std::vector<int> LayerTree::selectedLayers() const
{
    std::vector<int> layers;
    for (const QModelIndex& row : selectedRowsInOrder()) {
        layers.push_back(row.row());
    }
    return layers;
}

} // namespace studio
