// SPDX-License-Identifier: Apache-2.0
#include "Report.h"
#include "themeassets.h"
#include "timing.h"
#include <MorrantUI/menus/TreeView.h>

#include <QApplication>
#include <QScrollBar>
#include <QStandardItemModel>

using ui::bench::Report;

namespace {

constexpr int kGroups = 1000;
constexpr int kRows = 99; ///< in each group: a hundred thousand in all
constexpr int kSteps = 200;
constexpr QSize kWindow(300, 900); ///< logical pixels

void fill(QStandardItemModel& model)
{
    for (int group = 0; group < kGroups; ++group) {
        auto* const parent = new QStandardItem(QStringLiteral("Group %1").arg(group));
        for (int row = 0; row < kRows; ++row) {
            parent->appendRow(new QStandardItem(QStringLiteral("Layer %1").arg(row)));
        }
        model.appendRow(parent);
    }
}

/// Qt's own tree, told that all rows have one height, as ours is.
struct BareTree : QTreeView
{
    BareTree()
    {
        setUniformRowHeights(true);
        setHeaderHidden(true);
    }
};

template <typename Tree>
void openAll(QAbstractItemModel& model)
{
    Tree tree;
    tree.setModel(&model);
    tree.resize(kWindow);
    tree.expandAll();
    tree.show();
    QCoreApplication::processEvents();
}

void scroll(QTreeView& tree)
{
    QScrollBar* const bar = tree.verticalScrollBar();
    for (int step = 0; step < kSteps; ++step) {
        bar->setValue(static_cast<int>(qint64(bar->maximum()) * step / kSteps) + step % 3);
        QCoreApplication::processEvents();
    }
}

void bench(Report& report)
{
    QStandardItemModel model;
    fill(model);
    if (report.wants("tree-open")) {
        const double ratio = ui::bench::medianRatio(
            [&model] { openAll<TreeView>(model); }, [&model] { openAll<BareTree>(model); });
        report.judge("tree-open", ratio, "x-QTreeView", 1.5);
    }
    if (report.wants("tree-scroll")) {
        TreeView ours;
        BareTree floor;
        for (QTreeView* tree : {static_cast<QTreeView*>(&ours), static_cast<QTreeView*>(&floor)}) {
            tree->setModel(&model);
            tree->resize(kWindow);
            tree->expandAll();
            tree->show();
        }
        const double ratio =
            ui::bench::medianRatio([&ours] { scroll(ours); }, [&floor] { scroll(floor); });
        report.judge("tree-scroll", ratio, "x-QTreeView", 1.5);
    }
}

} // namespace

int main(int argc, char** argv)
{
    return benchWithTheme(argc, argv, bench);
}
