#include "LayerPanel.h"

#include "lottie/Document.h"
#include <MorrantUI/theme/icons.h>

#include <QListWidget>
#include <QLocale>
#include <QSignalBlocker>

namespace studio {

namespace {

QString iconPath(LayerKind kind)
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
    case LayerKind::Precomposition: return LayerPanel::tr("Precomposition");
    case LayerKind::Solid: return LayerPanel::tr("Solid");
    case LayerKind::Null: return LayerPanel::tr("Null");
    case LayerKind::Shape: return LayerPanel::tr("Shape");
    case LayerKind::Other: break;
    }
    return LayerPanel::tr("Not drawn");
}

QListWidgetItem* makeRow(const Layer& layer)
{
    auto* row = new QListWidgetItem(ui::getCachedIcon(iconPath(layer.kind)), layer.name);
    QString hint = kindName(layer.kind);
    if (layer.hidden) {
        hint = LayerPanel::tr("%1, hidden").arg(hint);
    }
    row->setToolTip(hint);
    return row;
}

} // namespace

LayerPanel::LayerPanel(QWidget* parent)
    : Panel(tr("Layers"), parent)
    , m_list(new QListWidget)
{
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setUniformItemSizes(true);
    m_list->setAccessibleName(tr("Layers"));
    writeInNamedColors(m_list);
    setContent(m_list);
    connect(m_list, &QListWidget::itemSelectionChanged, this, [this] {
        const QListWidgetItem* selected = m_list->selectedItems().value(0);
        Q_EMIT layerSelected(selected ? m_list->row(selected) : -1);
    });
}

void LayerPanel::setDocument(const Document& document)
{
    const QSignalBlocker blocker(m_list); // told once, when all rows are there
    m_list->clear();
    for (const Layer& layer : document.main.layers) {
        QListWidgetItem* row = makeRow(layer);
        if (layer.hidden) {
            row->setData(kColorNameRole, QStringLiteral("HelperHints"));
        }
        m_list->addItem(row);
    }
    setRemark(QLocale().toString(m_list->count()));
    Q_EMIT layerSelected(-1);
}

void LayerPanel::selectLayer(int layer)
{
    m_list->setCurrentRow(layer, QItemSelectionModel::ClearAndSelect);
}

} // namespace studio
