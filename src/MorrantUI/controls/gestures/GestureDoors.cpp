// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/gestures/GestureDoors.h"

#include "MorrantUI/controls/gestures/windowowners.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWindow>

#include <utility>

namespace {

bool isPopup(const QObject& object)
{
    return object.isWidgetType() && static_cast<const QWidget&>(object).windowType() == Qt::Popup;
}

/// A release for a child reaches the widget when the child has no use for it.
bool isElsewhere(const QObject& receiver, const QWidget& widget)
{
    return receiver.isWidgetType() && &receiver != &widget
           && !widget.isAncestorOf(static_cast<const QWidget*>(&receiver));
}

bool isActive(const QEvent& stateChange)
{
    return static_cast<const QApplicationStateChangeEvent&>(stateChange).applicationState()
           == Qt::ApplicationActive;
}

} // namespace

GestureDoors::GestureDoors(QObject* parent)
    : QObject(parent)
{}

GestureDoors::~GestureDoors() = default;

void GestureDoors::watch(QWidget* widget, Callback leave, GestureHold hold)
{
    stop();
    if (!widget || !leave || !qApp) {
        return;
    }
    m_widget = widget;
    m_leave = std::move(leave);
    m_hold = hold;
    connect(widget, &QObject::destroyed, this, [this] { leaveBy(Door::Destroyed); });
    qApp->installEventFilter(
        this); // of dialogs, popups and other receivers the widget hears nothing
}

void GestureDoors::stop()
{
    if (m_widget) {
        m_widget->disconnect(this);
    }
    if (qApp) {
        qApp->removeEventFilter(this);
    }
    m_widget.clear();
    m_leave = nullptr;
}

void GestureDoors::leaveBy(Door door)
{
    const Callback leave = m_leave;
    stop();
    if (leave) {
        leave(door); // may delete this
    }
}

bool GestureDoors::eventFilter(QObject* watched, QEvent* event)
{
    const auto door = m_widget ? doorOf(*watched, *event) : std::nullopt;
    if (!door) {
        return false;
    }
    const QPointer<QObject> receiver(watched);
    leaveBy(*door);
    return !receiver; // nobody is left to go on to
}

std::optional<GestureDoors::Door> GestureDoors::doorOf(
    const QObject& receiver, const QEvent& event) const
{
    const bool isWidget = &receiver == m_widget;
    const auto when = [](bool isOpen, Door door) {
        return isOpen ? std::optional(door) : std::nullopt;
    };
    switch (event.type()) {
    case QEvent::Hide:
    case QEvent::ParentChange: return when(isWidget, Door::Hidden);
    case QEvent::EnabledChange: return when(isWidget && !m_widget->isEnabled(), Door::Disabled);
    case QEvent::WindowDeactivate: return when(concernsWindow(receiver), Door::WindowInactive);
    case QEvent::WindowBlocked: return when(concernsWindow(receiver), Door::WindowBlocked);
    case QEvent::FocusOut: {
        const bool hadFocus = isWidget || &receiver == m_widget->focusProxy();
        return when(m_hold.focus && hadFocus, Door::FocusLost);
    }
    case QEvent::UngrabMouse: return when(isWidget, Door::MouseLost);
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        return when(losesButton(receiver, static_cast<const QMouseEvent&>(event)), Door::MouseLost);
    case QEvent::Show: return when(m_hold.popups && isPopup(receiver), Door::PopupOpened);
    case QEvent::ApplicationDeactivate: return Door::ApplicationInactive;
    case QEvent::ApplicationStateChange: return when(!isActive(event), Door::ApplicationInactive);
    default: return {};
    }
}

/// Dialogs are told of to the native window alone.
bool GestureDoors::concernsWindow(const QObject& receiver) const
{
    const QWidget* const window = m_widget->window();
    return &receiver == m_widget || &receiver == window || &receiver == window->windowHandle();
}

bool GestureDoors::losesButton(const QObject& receiver, const QMouseEvent& event) const
{
    if (m_hold.button == Qt::NoButton) {
        return false;
    }
    if (event.type() == QEvent::MouseMove) {
        const bool counts = m_hold.moves && (event.spontaneous() || !m_hold.replays);
        return counts && &receiver == m_widget && !event.buttons().testFlag(m_hold.button);
    }
    return event.button() == m_hold.button && isElsewhere(receiver, *m_widget);
}

bool GestureDoors::isBlockedByDialog(const QWidget& widget)
{
    const QWidget* const dialog = QApplication::activeModalWidget();
    if (!dialog || ui::isOwnedBy(&widget, dialog)) {
        return false;
    }
    return dialog->windowModality() == Qt::ApplicationModal
           || ui::isOwnedBy(dialog, widget.window());
}

bool GestureDoors::mayBegin(const QWidget& widget)
{
    return widget.isVisible() && widget.isEnabled() && !isBlockedByDialog(widget)
           && QGuiApplication::applicationState() == Qt::ApplicationActive;
}
