// SPDX-License-Identifier: Apache-2.0
#include "guide.h"
#include <MorrantUI/MorrantUI.h>

#include <QCoreApplication>

#include <algorithm>
#include <functional>

namespace {

/// The layers of a document, from the front to the back.
class LayerView : public ListView
{
    Q_DECLARE_TR_FUNCTIONS(LayerView)

public:
    LayerView()
    {
        // [list]
        const ListedSwitch hidden{
            .off = {QStringLiteral("icons:eye.png"), tr("Visible"), tr("Hide layer")},
            .on = {QStringLiteral("icons:eyeOff.png"), tr("Hidden"), tr("Show layer")},
            .name = tr("Visibility")};
        auto* model = new RowListModel({hidden}, this);
        setModel(model);
        setKeyRole(kListedIdentityRole);
        setSwitchColumns(model->switchColumns());
        setReordering(Reordering::Siblings);
        model->setRows(m_layers); // whenever the document has changed

        connect(this, &TreeView::switchPressed, model, &RowListModel::pressSwitch);
        connect(model, &RowListModel::switchWanted, this, [=, this](int row, int, bool on) {
            layer(row).switches = {on};
            model->setRows(m_layers);
        });
        connect(model, &RowListModel::renameWanted, this, [=, this](int row, const QString& name) {
            layer(row).name = name;
            model->setRows(m_layers);
        });
        connect(model, &RowListModel::moveWanted, this, [=, this](const QList<int>& rows, int to) {
            move(rows, to);
            model->setRows(m_layers);
        });
        // [list]
    }

private:
    ListedRow& layer(int row) { return m_layers.at(static_cast<std::size_t>(row)); }

    /// Gathers rows at a place between the others.
    void move(const QList<int>& rows, int to)
    {
        QList<quint64> moved;
        for (const int row : rows) {
            moved.append(layer(row).identity);
        }
        const auto isMoved = [&](const ListedRow& row) { return moved.contains(row.identity); };
        const auto place = m_layers.begin() + to;
        std::stable_partition(m_layers.begin(), place, std::not_fn(isMoved));
        std::stable_partition(place, m_layers.end(), isMoved);
    }

    /// The document's, as rows; the identities are its own, and for good.
    std::vector<ListedRow> m_layers{
        {.identity = 1, .name = tr("Title"), .icon = QStringLiteral("icons:shapeLayer.png")},
        {.identity = 2, .name = tr("Ground"), .icon = QStringLiteral("icons:solidLayer.png")}};
};

} // namespace

QWidget* listChapter()
{
    return new LayerView;
}
