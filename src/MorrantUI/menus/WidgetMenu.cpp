// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/WidgetMenu.h"

#include "MorrantUI/menus/menurows.h"
#include <MorrantUI/menus/WidgetMenuAction.h>

#include <QGuiApplication>
#include <QHoverEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionMenuItem>

#include <utility>

WidgetMenu::WidgetMenu(QWidget* parent)
    : QMenu(parent)
{
    setMouseTracking(true);
    setAttribute(Qt::WA_Hover); // tells of moves that a widget keeps to itself
    connect(this, &QMenu::aboutToShow, this, [this] {
        m_heardMove = false;
        ui::menus::limitToScreens(*this);
        ui::menus::closeWith(*this, parentWidget() ? parentWidget()->window() : nullptr);
        ui::menus::updateRows(*this);
    });
}

WidgetMenu::~WidgetMenu()
{
    setHighlightedAction(nullptr); // rows of other owners live on
}

void WidgetMenu::setHighlightedAction(QAction* action)
{
    if (ui::menus::moveHighlight(m_highlighted, action)) {
        update();
    }
}

void WidgetMenu::updateHighlightedAction(bool shown)
{
    setHighlightedAction(shown ? activeAction() : nullptr);
}

/// QMenu learns of a move that the widget below the pointer kept to itself, except in mid-drag.
void WidgetMenu::hearUnheardMove(const QHoverEvent& hover)
{
    const bool heard = std::exchange(m_heardMove, false);
    const QPointF position = hover.position();
    const auto* const row = qobject_cast<WidgetMenuAction*>(actionAt(position.toPoint()));
    if (heard || !row || QGuiApplication::mouseButtons() != Qt::NoButton
        || !ui::menus::freeOfArrows(*this).contains(position.toPoint()))
    {
        return;
    }
    QMouseEvent move(
        QEvent::MouseMove,
        position,
        position,
        hover.globalPosition(),
        Qt::NoButton,
        Qt::NoButton,
        hover.modifiers());
    QMenu::mouseMoveEvent(&move);
}

bool WidgetMenu::event(QEvent* event)
{
    const bool isClick =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease;
    if (isClick
        && ui::menus::isOnSeparator(*this, static_cast<QMouseEvent*>(event)->position().toPoint()))
    {
        return true;
    }
    switch (event->type()) {
    case QEvent::LayoutRequest: ui::menus::layOutAgain(*this); break;
    case QEvent::Show: ui::menus::bringOntoScreen(*this); break;
    case QEvent::UpdateRequest: ui::menus::clipWidgetRows(*this); break;
    case QEvent::MouseMove: m_heardMove = true; break;
    case QEvent::KeyPress: ui::menus::claimFocus(*this); break;
    default: break;
    }
    const QPointer<WidgetMenu> alive(this);
    if (event->type() == QEvent::HoverMove) {
        hearUnheardMove(*static_cast<QHoverEvent*>(event));
    }
    const bool handled = !alive || QMenu::event(event);
    if (alive) {
        updateHighlightedAction(isVisible());
    }
    return handled;
}

bool WidgetMenu::focusNextPrevChild(bool next)
{
    return ui::menus::stepInRow(activeAction(), next) || QMenu::focusNextPrevChild(next);
}

void WidgetMenu::paintEvent(QPaintEvent* event)
{
    QMenu::paintEvent(event);
    if (!m_highlighted) {
        return;
    }
    QStyleOptionMenuItem ground;
    ground.initFrom(this);
    ground.menuItemType = QStyleOptionMenuItem::Normal;
    ground.state.setFlag(QStyle::State_Selected);
    ground.state.setFlag(QStyle::State_Enabled, isEnabled() && m_highlighted->isEnabled());
    ground.rect = actionGeometry(m_highlighted);
    QPainter painter(this);
    painter.setClipRect(ui::menus::freeOfArrows(*this));
    style()->drawControl(QStyle::CE_MenuItem, &ground, &painter, this);
}
