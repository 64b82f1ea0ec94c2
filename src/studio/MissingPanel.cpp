// SPDX-License-Identifier: Apache-2.0
#include "MissingPanel.h"

#include "lottie/Document.h"
#include <MorrantUI/menus/ContextMenu.h>
#include <MorrantUI/theme/icons.h>

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHash>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QStackedWidget>
#include <QTreeWidget>

namespace studio {

std::vector<MissingOfLayer> byLayer(const std::vector<MissingFeature>& missing)
{
    std::vector<MissingOfLayer> result;
    QHash<std::pair<quint32, QString>, std::size_t> places;
    for (const MissingFeature& entry : missing) {
        const std::pair layer(entry.layerByte, entry.layer);
        const auto place = places.constFind(layer);
        if (place == places.constEnd()) {
            places.insert(layer, result.size());
            result.push_back({entry.layer, {entry.feature}});
        } else {
            result[place.value()].features.append(entry.feature);
        }
    }
    return result;
}

MissingPanel::MissingPanel(QWidget* parent)
    : Panel(tr("Not drawn"), parent)
    , m_hint(makeHint())
    , m_tree(new QTreeWidget)
    , m_pages(new QStackedWidget)
{
    m_tree->setFrameShape(QFrame::NoFrame);
    m_tree->setColumnCount(2);
    m_tree->setHeaderHidden(true);
    m_tree->setRootIsDecorated(false);
    m_tree->setUniformRowHeights(true);
    m_tree->header()->setSectionResizeMode(QHeaderView::Stretch);
    m_tree->setAccessibleName(tr("What is not drawn, by layer"));
    writeInNamedColors(m_tree);
    m_pages->addWidget(m_hint);
    m_pages->addWidget(m_tree);
    setContent(m_pages);
}

void MissingPanel::setMissing(const std::vector<MissingFeature>& missing)
{
    m_tree->clear();
    QList<QTreeWidgetItem*> rows;
    for (const MissingOfLayer& entry : byLayer(missing)) {
        const QString features = entry.features.join(tr(", "));
        auto* row = new QTreeWidgetItem({entry.layer, features});
        row->setToolTip(0, entry.layer);
        row->setToolTip(1, features);
        row->setData(1, kColorNameRole, QStringLiteral("Accent4"));
        rows.append(row);
    }
    m_tree->addTopLevelItems(rows);
    m_hint->setText(tr("Everything in this document is drawn"));
    m_pages->setCurrentWidget(missing.empty() ? static_cast<QWidget*>(m_hint) : m_tree);
    setRemark(missing.empty() ? QString() : QLocale().toString(missing.size()));
}

void MissingPanel::fillMenu(ContextMenu& menu)
{
    const QList<QTreeWidgetItem*> all = m_tree->findItems({}, Qt::MatchStartsWith);
    const auto addCopy = [this, &menu](const QString& text, const QList<QTreeWidgetItem*>& rows) {
        const QString copied = textOf(rows);
        QAction* action =
            menu.addAction(ui::getCachedIcon(u"icons:copy.png"_qs), text, this, [copied] {
                QGuiApplication::clipboard()->setText(copied);
            });
        action->setEnabled(!rows.isEmpty());
    };
    addCopy(tr("&Copy"), m_tree->selectedItems());
    addCopy(tr("Copy &All"), all);
}

/// A line for each row.
QString MissingPanel::textOf(const QList<QTreeWidgetItem*>& rows) const
{
    QStringList lines;
    for (const QTreeWidgetItem* row : rows) {
        lines.append(tr("%1: %2").arg(row->text(0), row->text(1)));
    }
    return lines.join(u'\n');
}

} // namespace studio
