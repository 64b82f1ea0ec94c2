// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/tabs/tabmenus.h"

#include <MorrantUI/docking/tabs/TabBarHeader.h>
#include <MorrantUI/docking/tabs/TabItem.h>

#include <QMenu>

#include <functional>

namespace ui::tabs {

namespace {

/// Tabs to close, as seen from the one whose menu it is.
using Which = std::function<bool(int index, int own)>;

int countAround(const TabItem& tab)
{
    return tab.header() != nullptr ? tab.header()->count() : 0;
}

void closeFrom(TabItem& tab, const Which& which)
{
    TabBarHeader* const header = tab.header();
    const int own = tab.index();
    if (!header || own < 0) {
        return;
    }
    QList<int> indices;
    for (int i = 0; i < header->count(); ++i) {
        if (which(i, own)) {
            indices.append(i);
        }
    }
    const QPointer<TabBarHeader> guard(header); // its slots may delete it
    header->setCurrentIndex(own);
    if (guard) {
        header->closeTabs(indices);
    }
}

void addClosing(QMenu& menu, TabItem& tab, const QString& text, bool enabled, const Which& which)
{
    QAction* const action = menu.addAction(text, &tab, [&tab, which] { closeFrom(tab, which); });
    action->setEnabled(enabled);
}

} // namespace

void fillClosableMenu(QMenu& menu, TabItem& tab)
{
    const int count = countAround(tab);
    const bool hasOthers = count >= 2;
    menu.addAction(TabItem::tr("Close"), &tab, &TabItem::closed)->setEnabled(hasOthers);
    menu.addSeparator();
    addClosing(menu, tab, TabItem::tr("Close Others"), hasOthers, std::not_equal_to<int>());
    // To the reader's left: where the row begins, whatever the direction.
    addClosing(
        menu, tab, TabItem::tr("Close Tabs to the Left"), tab.index() >= 1, std::less<int>());
    addClosing(
        menu,
        tab,
        TabItem::tr("Close Tabs to the Right"),
        tab.index() < count - 1,
        std::greater<int>());
}

void fillRenamableMenu(QMenu& menu, TabItem& tab)
{
    menu.addAction(TabItem::tr("Rename..."), &tab, &TabItem::askForName);
    menu.addAction(TabItem::tr("Delete"), &tab, &TabItem::askToDelete)
        ->setEnabled(countAround(tab) >= 2);
}

} // namespace ui::tabs
