// SPDX-License-Identifier: Apache-2.0
#include "Report.h"
#include "themeassets.h"
#include "timing.h"
#include <MorrantUI/MorrantUI.h>
#include <MorrantUI/docking/tabs/TabBar.h>

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QTabWidget>

#include <cstdio>

using ui::bench::Report;

namespace {

constexpr int kTabs = 20;
constexpr int kLabels = 20; ///< in each page
constexpr int kSwitches = 1000;
constexpr QSize kWindow(900, 400); ///< logical pixels

QWidget* makePage()
{
    auto* const page = new QWidget;
    auto* const row = new QHBoxLayout(page);
    for (int i = 0; i < kLabels; ++i) {
        row->addWidget(new QLabel(QString::number(i)));
    }
    return page;
}

QString tabText(int index)
{
    return QStringLiteral("Composition %1").arg(index);
}

void showNow(QWidget& window)
{
    window.resize(kWindow);
    window.show();
    QCoreApplication::processEvents();
}

/// Walks through the tabs in strides, so that the row has to scroll too; the events of every switch
/// are dealt with when `painted`.
template <typename Select>
void switchTabs(Select&& select, bool painted)
{
    for (int i = 0; i < kSwitches; ++i) {
        select((i * 7 + 1) % kTabs);
        if (painted) {
            QCoreApplication::processEvents();
        }
    }
}

void benchSwitching(Report& report, const char* name, bool painted)
{
    if (!report.wants(name)) {
        return;
    }
    TabBar bar(QStringLiteral("Bar"), false);
    QTabWidget floor;
    for (int i = 0; i < kTabs; ++i) {
        bar.addPage(tabText(i), makePage());
        floor.addTab(makePage(), tabText(i));
    }
    showNow(bar);
    showNow(floor);
    const double ratio = ui::bench::medianRatio(
        [&] { switchTabs([&bar](int index) { bar.setTab(index); }, painted); },
        [&] { switchTabs([&floor](int index) { floor.setCurrentIndex(index); }, painted); });
    if (bar.activeTab() != floor.currentIndex()) {
        std::fprintf(stderr, "the tabs were not switched\n");
        return;
    }
    report.judge(name, ratio, "x-QTabWidget", 1.3);
}

void benchAdding(Report& report)
{
    const char* const name = "tabbar-add-200";
    if (!report.wants(name)) {
        return;
    }
    constexpr int kAdded = 200;
    const auto add = [](auto& tabs, auto&& addOne) {
        for (int i = 0; i < kAdded; ++i) {
            addOne(i);
        }
        showNow(tabs);
    };
    const double ratio = ui::bench::medianRatio(
        [&] {
            TabBar bar(QStringLiteral("Bar"), false);
            add(bar, [&bar](int i) { bar.addPage(tabText(i), new QWidget); });
        },
        [&] {
            QTabWidget floor;
            add(floor, [&floor](int i) { floor.addTab(new QWidget, tabText(i)); });
        });
    report.state(name, ratio, "x-QTabWidget");
}

} // namespace

int main(int argc, char** argv)
{
    return benchWithTheme(argc, argv, [](ui::bench::Report& report) {
        benchSwitching(report, "tabbar-switch-1000", false);
        benchSwitching(report, "tabbar-switch-painted-1000", true);
        benchAdding(report);
    });
}
