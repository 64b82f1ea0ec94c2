// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/OutsidePressFilter.h"

#include <MorrantUI/controls/gestures/GestureDoors.h>

#include <QApplication>
#include <QMouseEvent>
#include <QPointerEvent>
#include <QWidget>

#include <optional>
#include <utility>

namespace ui {

namespace {

/// Where on screen an event presses; none for all others.
std::optional<QPoint> pressPosition(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::NonClientAreaMouseButtonPress:
    case QEvent::TabletPress:
    case QEvent::TouchBegin: break;
    default: return std::nullopt;
    }
    const auto& pointer = static_cast<const QPointerEvent&>(event);
    return pointer.points().isEmpty()
               ? std::nullopt
               : std::optional(pointer.points().first().globalPosition().toPoint());
}

} // namespace

OutsidePressFilter::OutsidePressFilter(QWidget* widget, OutsidePress dismiss)
    : QObject(widget)
    , m_widget(widget)
    , m_dismiss(std::move(dismiss))
{
    widget->installEventFilter(this);
    if (widget->isVisible()) {
        qApp->installEventFilter(this);
    }
}

bool OutsidePressFilter::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_widget && event->type() == QEvent::Show) {
        qApp->installEventFilter(this); // once, however often it is asked for
        return false;
    }
    if (watched == m_widget && event->type() == QEvent::Hide) {
        qApp->removeEventFilter(this);
        m_pressed.clear();
        return false;
    }
    if (event->type() == QEvent::MouseButtonRelease) {
        m_pressed.clear();
    }
    const auto position = watched->isWidgetType() ? pressPosition(*event) : std::nullopt;
    auto* const pressed = position ? static_cast<QWidget*>(watched) : nullptr;
    if (!pressed || !isOutside(*pressed, *position)) {
        return false;
    }
    if (isRepeated(*pressed, static_cast<const QPointerEvent&>(*event))) {
        return false;
    }
    const OutsidePress dismiss = m_dismiss; // which may delete this filter, and who was pressed
    const QPointer<QWidget> receiver(pressed);
    const bool isKept = dismiss(pressed, *position) || receiver.isNull();
    if (isKept) {
        event->accept(); // else the press of a pen would come again as one of the mouse
    }
    return isKept;
}

/// A press that a widget has no use for goes on to those that it lies in.
bool OutsidePressFilter::isRepeated(QWidget& pressed, const QPointerEvent& event)
{
    const bool goesOn = m_pressed && &pressed != m_pressed && pressed.isAncestorOf(m_pressed)
                        && event.timestamp() == m_pressedAt && event.type() == m_pressType;
    m_pressed = &pressed;
    m_pressedAt = event.timestamp();
    m_pressType = event.type();
    return goesOn;
}

bool OutsidePressFilter::isOutside(const QWidget& pressed, QPoint position) const
{
    if (!m_widget->isVisible() || GestureDoors::isBlockedByDialog(*m_widget)) {
        return false;
    }
    const QWidget* const popup = QApplication::activePopupWidget();
    if (popup && popup != m_widget->window()) {
        return false;
    }
    if (belongsTo(&pressed, m_widget)) {
        // A popup gets the presses beside it too.
        return popup && !popup->rect().contains(popup->mapFromGlobal(position));
    }
    return true;
}

} // namespace ui
