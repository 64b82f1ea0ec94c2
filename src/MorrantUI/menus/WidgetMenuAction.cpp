// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/WidgetMenuAction.h"

#include "MorrantUI/menus/menurows.h"
#include <MorrantUI/menus/ContextMenuButton.h>
#include <MorrantUI/theme/Widget.h>

#include <algorithm>

WidgetMenuAction::WidgetMenuAction(QObject* parent)
    : QWidgetAction(parent)
    , m_holder(new Widget)
{
    // A menu asks for its widget once: what it gets stays, and hosts what comes and goes.
    setDefaultWidget(m_holder);
}

WidgetMenuAction::WidgetMenuAction(QObject* parent, Widget* row)
    : QWidgetAction(parent)
    , m_widget(row)
{
    setDefaultWidget(row);
}

WidgetMenuAction::~WidgetMenuAction()
{
    // The widget goes before QAction takes itself out, and its menu would ask a dead row.
    const QList<QObject*> holders = associatedObjects();
    for (QObject* const holder : holders) {
        if (auto* const widget = qobject_cast<QWidget*>(holder)) {
            widget->removeAction(this);
        }
    }
}

void WidgetMenuAction::setWidget(Widget* widget)
{
    if (!m_holder || widget == m_widget) {
        return;
    }
    const QPointer<Widget> previous = m_widget;
    m_widget = widget;
    if (previous && previous->parentWidget() == m_holder) {
        ui::menus::takeFocusFrom(*previous);
        previous->hide();
        previous->setParent(nullptr); // the holder would delete it at once
        previous->deleteLater();
    }
    m_holder->setChild(widget);
    updateMouseTracking();
    if (m_highlighted) {
        highlightChanged(true);
    }
}

Widget* WidgetMenuAction::getWidget() const
{
    return m_widget;
}

void WidgetMenuAction::updateMouseTracking()
{
    QWidget* const row = defaultWidget();
    if (!row) {
        return;
    }
    row->setMouseTracking(true);
    for (QWidget* const child : row->findChildren<QWidget*>()) {
        child->setMouseTracking(true);
    }
    followFocusPolicies();
}

void WidgetMenuAction::followFocusPolicies()
{
    if (!m_holder) {
        return;
    }
    const QList<QWidget*> inside = m_holder->findChildren<QWidget*>();
    const auto first = std::find_if(inside.begin(), inside.end(), [this](const QWidget* widget) {
        return (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isEnabledTo(m_holder)
               && (widget->isVisibleTo(m_widget) || widget == m_widget);
    });
    QWidget* const proxy = first == inside.end() ? nullptr : *first;
    m_holder->setFocusProxy(nullptr); // whose own policy would change with the holder's
    m_holder->setFocusPolicy(proxy ? Qt::TabFocus : Qt::NoFocus);
    m_holder->setFocusProxy(proxy);
}

void WidgetMenuAction::highlightEnter()
{
    if (!m_highlighted) {
        m_highlighted = true;
        highlightChanged(true);
    }
}

void WidgetMenuAction::highlightLeave()
{
    if (m_highlighted) {
        m_highlighted = false;
        highlightChanged(false);
    }
}

void WidgetMenuAction::highlightChanged(bool highlighted)
{
    if (!m_widget) {
        return;
    }
    if (auto* const button = qobject_cast<ContextMenuButton*>(m_widget.data())) {
        button->setHighlighted(highlighted);
    }
    const auto inside =
        m_widget->findChildren<ContextMenuButton*>(QString(), Qt::FindDirectChildrenOnly);
    for (ContextMenuButton* const button : inside) {
        button->setHighlighted(highlighted);
    }
}
