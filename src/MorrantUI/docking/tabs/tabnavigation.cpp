// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/tabs/tabnavigation.h"

#include "MorrantUI/docking/tabs/tabkeys.h"
#include <MorrantUI/docking/tabs/TabBar.h>
#include <MorrantUI/docking/tabs/TabBarHeader.h>
#include <MorrantUI/theme/events.h>

#include <QKeyEvent>
#include <QPointer>

namespace ui {

namespace {

/// 1 for the next tab, -1 for the one before, 0 for any other key.
int stepOf(const QKeyEvent& event, Qt::LayoutDirection direction)
{
    switch (tabs::commandOf(event, direction)) {
    case tabs::Command::SelectNext: return 1;
    case tabs::Command::SelectPrevious: return -1;
    default: return 0;
    }
}

} // namespace

void addTabArrowNavigation(QWidget* widget, TabBar* tabBar)
{
    if (!widget || !tabBar) {
        return;
    }
    const QPointer<TabBar> bar(tabBar);
    const auto filter = [bar](QObject* /*watched*/, QEvent* event) {
        const bool announced = event->type() == QEvent::ShortcutOverride;
        const bool isKey = announced || event->type() == QEvent::KeyPress;
        if (!isKey || !bar || !bar->isEnabled()) {
            return false;
        }
        const int step = stepOf(*static_cast<QKeyEvent*>(event), bar->layoutDirection());
        if (step == 0) {
            return false;
        }
        event->accept(); // announced, the key comes back as a press instead of a shortcut
        if (!announced) {
            bar->getHeader()->selectNeighbour(step);
        }
        return true;
    };
    QObject* const filterObject = installEventFilter(widget, filter, widget);
    QObject::connect(tabBar, &QObject::destroyed, filterObject, &QObject::deleteLater);
}

} // namespace ui
