// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/tabs/AccessibleTabs.h"

#include "MorrantUI/docking/tabs/TabCloseButton.h"
#include <MorrantUI/docking/tabs/TabBarHeader.h>
#include <MorrantUI/docking/tabs/TabItem.h>

namespace ui {

AccessibleTabList::AccessibleTabList(TabBarHeader* header)
    : AccessibleParts(header, QAccessible::PageTabList)
    , m_header(header)
{}

QWidgetList AccessibleTabList::parts() const
{
    QWidgetList tabs;
    for (int i = 0; i < m_header->count(); ++i) {
        tabs.append(m_header->tab(i));
    }
    return tabs;
}

QAccessibleInterface* AccessibleTabList::childAt(int x, int y) const
{
    for (int i = 0; i < childCount(); ++i) {
        QAccessibleInterface* const tab = child(i);
        if (tab->rect().contains(x, y)) {
            return tab;
        }
    }
    return nullptr;
}

QAccessibleInterface* AccessibleTabList::focusChild() const
{
    return m_header->hasFocus() ? child(m_header->currentIndex()) : nullptr;
}

AccessibleTab::AccessibleTab(TabItem* tab)
    : AccessibleParts(tab, QAccessible::PageTab)
    , m_tab(tab)
{}

QAccessibleInterface* AccessibleTab::parent() const
{
    return QAccessible::queryAccessibleInterface(m_tab->header());
}

QAccessible::State AccessibleTab::state() const
{
    QAccessible::State state = AccessibleParts::state();
    const bool enabled = m_tab->isEnabled();
    state.selectable = enabled;
    state.focusable = enabled;
    state.selected = m_tab->isActive();
    state.focused = m_tab->isActive() && m_tab->header() && m_tab->header()->hasFocus();
    return state;
}

QString AccessibleTab::text(QAccessible::Text kind) const
{
    const bool ownName = kind == QAccessible::Name && m_tab->accessibleName().isEmpty();
    return ownName ? m_tab->text() : AccessibleParts::text(kind);
}

QStringList AccessibleTab::actionNames() const
{
    return m_tab->isEnabled() ? QStringList{pressAction()} : QStringList();
}

void AccessibleTab::doAction(const QString& name)
{
    if (name == pressAction() && m_tab->isEnabled()) {
        QMetaObject::invokeMethod(m_tab, &TabItem::clicked, Qt::QueuedConnection);
    }
}

QWidgetList AccessibleTab::parts() const
{
    QWidgetList shown;
    for (QWidget* part :
         {m_tab->decorator(),
          static_cast<QWidget*>(m_tab->findChild<TabCloseButton*>({}, Qt::FindDirectChildrenOnly))})
    {
        if (part && !part->isHidden()) {
            shown.append(part);
        }
    }
    return shown;
}

void notifyTabSelected(TabItem* tab, bool focused)
{
    if (!tab) {
        return;
    }
    notifyAccessible(tab, QAccessible::Selection);
    if (focused) {
        notifyAccessible(tab, QAccessible::Focus);
    }
}

} // namespace ui
