// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/AccessibleDocking.h"

#include "MorrantUI/docking/DockTabStrip.h"
#include "MorrantUI/docking/panelkeys.h"
#include <MorrantUI/docking/DockableHeader.h>
#include <MorrantUI/docking/DockableTabWidget.h>
#include <MorrantUI/docking/DockableWindow.h>

#include <QLayout>

namespace ui {

AccessibleDockable::AccessibleDockable(DockableWindow* window)
    : AccessibleParts(window)
{}

QAccessible::Role AccessibleDockable::role() const
{
    return widget()->isWindow() ? QAccessible::Window : QAccessible::Pane;
}

QString AccessibleDockable::text(QAccessible::Text kind) const
{
    const QString own = AccessibleParts::text(kind);
    const bool unnamed = kind == QAccessible::Name && own.isEmpty();
    return unnamed ? static_cast<DockableWindow*>(widget())->getText() : own;
}

namespace {

void appendShown(const QLayout* layout, QWidgetList& shown)
{
    for (int i = 0; layout != nullptr && i < layout->count(); ++i) {
        QWidget* part = layout->itemAt(i)->widget();
        if (part && !part->isHidden()) {
            shown.append(part);
        }
        appendShown(layout->itemAt(i)->layout(), shown);
    }
}

} // namespace

QWidgetList AccessibleDockable::parts() const
{
    QWidgetList shown;
    appendShown(widget()->layout(), shown);
    return shown;
}

QStringList AccessibleGrip::actionNames() const
{
    QStringList names = QAccessibleWidget::actionNames();
    if (widget()->isEnabled()) {
        names << showMenuAction();
    }
    return names;
}

void AccessibleGrip::doAction(const QString& name)
{
    QWidget* grip = widget();
    if (name != showMenuAction()) {
        QAccessibleWidget::doAction(name);
    } else if (grip->isEnabled()) {
        QMetaObject::invokeMethod(
            grip,
            [grip] { docking::requestMenu(*grip, grip->rect().center()); },
            Qt::QueuedConnection);
    }
}

AccessibleDockHeader::AccessibleDockHeader(DockableHeader* header)
    : AccessibleGrip(header, QAccessible::TitleBar)
{}

AccessibleDockTab::AccessibleDockTab(DockableTabWidget* tab)
    : AccessibleGrip(tab, QAccessible::PageTab)
    , m_tab(tab)
{}

QAccessibleInterface* AccessibleDockTab::parent() const
{
    QWidget* above = m_tab->parentWidget();
    while (above && qobject_cast<DockTabStrip*>(above) == nullptr) {
        above = above->parentWidget();
    }
    return above != nullptr ? QAccessible::queryAccessibleInterface(above)
                            : AccessibleGrip::parent();
}

int AccessibleDockTab::childCount() const
{
    return 0; // its label would only repeat the name
}

QAccessible::State AccessibleDockTab::state() const
{
    QAccessible::State state = AccessibleGrip::state();
    state.selectable = m_tab->isEnabled();
    state.selected = m_tab->isActive();
    return state;
}

QStringList AccessibleDockTab::actionNames() const
{
    QStringList names = AccessibleGrip::actionNames();
    if (m_tab->isEnabled()) {
        names.prepend(pressAction());
    }
    return names;
}

void AccessibleDockTab::doAction(const QString& name)
{
    if (name != pressAction()) {
        AccessibleGrip::doAction(name);
    } else if (m_tab->isEnabled()) {
        QMetaObject::invokeMethod(m_tab, &DockableTabWidget::pressed, Qt::QueuedConnection);
    }
}

AccessibleDockTabStrip::AccessibleDockTabStrip(DockTabStrip* strip)
    : AccessibleParts(strip, QAccessible::PageTabList)
    , m_strip(strip)
{}

QWidgetList AccessibleDockTabStrip::parts() const
{
    QWidgetList tabs;
    for (int i = 0; i < m_strip->count(); ++i) {
        tabs.append(m_strip->tabAt(i));
    }
    return tabs;
}

} // namespace ui
