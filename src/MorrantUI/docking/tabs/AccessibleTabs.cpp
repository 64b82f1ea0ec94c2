#include "MorrantUI/docking/tabs/AccessibleTabs.h"

#include "MorrantUI/docking/tabs/TabCloseButton.h"
#include <MorrantUI/docking/tabs/TabBarHeader.h>
#include <MorrantUI/docking/tabs/TabItem.h>

namespace ui {

AccessibleTabList::AccessibleTabList(TabBarHeader* header)
    : QAccessibleWidget(header, QAccessible::PageTabList)
    , m_header(header)
{}

int AccessibleTabList::childCount() const
{
    return m_header->count();
}

QAccessibleInterface* AccessibleTabList::child(int index) const
{
    return QAccessible::queryAccessibleInterface(m_header->tab(index));
}

int AccessibleTabList::indexOfChild(const QAccessibleInterface* child) const
{
    return m_header->indexOf(child != nullptr ? qobject_cast<TabItem*>(child->object()) : nullptr);
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
    : QAccessibleWidget(tab, QAccessible::PageTab)
    , m_tab(tab)
{}

QAccessibleInterface* AccessibleTab::parent() const
{
    return QAccessible::queryAccessibleInterface(m_tab->header());
}

int AccessibleTab::childCount() const
{
    return static_cast<int>(parts().size());
}

QAccessibleInterface* AccessibleTab::child(int index) const
{
    return QAccessible::queryAccessibleInterface(parts().value(index));
}

int AccessibleTab::indexOfChild(const QAccessibleInterface* child) const
{
    return child != nullptr
               ? static_cast<int>(parts().indexOf(qobject_cast<QWidget*>(child->object())))
               : -1;
}

QAccessible::State AccessibleTab::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
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
    return ownName ? m_tab->text() : QAccessibleWidget::text(kind);
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
        if (part != nullptr && !part->isHidden()) {
            shown.append(part);
        }
    }
    return shown;
}

void notifyTabSelected(TabItem* tab, bool focused)
{
    if (tab == nullptr || !QAccessible::isActive()) {
        return;
    }
    QAccessibleEvent selection(tab, QAccessible::Selection);
    QAccessible::updateAccessibility(&selection);
    if (focused) {
        QAccessibleEvent focus(tab, QAccessible::Focus);
        QAccessible::updateAccessibility(&focus);
    }
}

} // namespace ui
