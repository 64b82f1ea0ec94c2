// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/ContextMenuButton.h"

#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/menus/ContextMenuLabel.h>

#include <QMouseEvent>
#include <QPainter>

ContextMenuButton::ContextMenuButton(QWidget* parent)
    : Widget(parent)
{
    setMouseTracking(true); // so that the menu below hears of moves
}

ContextMenuButton::~ContextMenuButton() = default;

void ContextMenuButton::setHighlighted(bool highlighted)
{
    m_highlighted = highlighted;
    showHighlight();
}

bool ContextMenuButton::isHighlighted() const
{
    return isEnabled() && (m_highlighted || m_hovered);
}

void ContextMenuButton::setEnabled(bool enabled)
{
    Widget::setEnabled(enabled);
}

void ContextMenuButton::setHovered(bool hovered)
{
    m_hovered = hovered;
    showHighlight();
}

void ContextMenuButton::showHighlight()
{
    const auto labels = findChildren<ContextMenuLabel*>(QString(), Qt::FindDirectChildrenOnly);
    for (ContextMenuLabel* const label : labels) {
        label->setHighlighted(isHighlighted());
    }
    update();
}

void ContextMenuButton::changeEvent(QEvent* event)
{
    Widget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) {
        m_pressed = false;
        showHighlight();
    }
}

void ContextMenuButton::enterEvent(QEnterEvent* event)
{
    Widget::enterEvent(event);
    setHovered(true);
}

void ContextMenuButton::leaveEvent(QEvent* event)
{
    Widget::leaveEvent(event);
    setHovered(false);
}

void ContextMenuButton::hideEvent(QHideEvent* event)
{
    Widget::hideEvent(event);
    m_pressed = false;
    setHovered(false); // a menu that closes sends no leave
}

void ContextMenuButton::mousePressEvent(QMouseEvent* event)
{
    m_pressed = event->button() == Qt::LeftButton;
    event->setAccepted(m_pressed);
}

void ContextMenuButton::mouseReleaseEvent(QMouseEvent* event)
{
    const bool clicks = m_pressed && event->button() == Qt::LeftButton;
    event->setAccepted(clicks);
    if (!clicks) {
        return;
    }
    m_pressed = false;
    if (rect().contains(event->position().toPoint())) {
        Q_EMIT clicked(); // last, since a slot may delete the button
    }
}

void ContextMenuButton::paintEvent(QPaintEvent* event)
{
    Widget::paintEvent(event);
    if (isHighlighted()) {
        QPainter painter(this);
        ui::style::fillRounded(
            painter, rect(), ui::style::kRadius, palette().color(QPalette::Highlight));
    }
}
