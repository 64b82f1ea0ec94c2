// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/DeactivationWatch.h"

#include <MorrantUI/controls/gestures/GestureDoors.h>
#include <MorrantUI/menus/dismiss.h>

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include <chrono>
#include <utility>

namespace ui {

namespace {

constexpr std::chrono::milliseconds kSettling(100);

} // namespace

DeactivationWatch::DeactivationWatch(QWidget* widget, std::function<void()> dismiss)
    : QObject(widget)
    , m_widget(widget)
    , m_dismiss(std::move(dismiss))
    , m_wasActive(widget->isActiveWindow())
{
    m_settling.setSingleShot(true);
    m_settling.setInterval(kSettling);
    widget->installEventFilter(this);
    connect(qApp, &QGuiApplication::focusWindowChanged, this, &DeactivationWatch::lookSoon);
    connect(qApp, &QGuiApplication::applicationStateChanged, this, &DeactivationWatch::lookSoon);
    connect(&m_settling, &QTimer::timeout, this, &DeactivationWatch::look);
}

bool DeactivationWatch::eventFilter(QObject* /*watched*/, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Show: m_wasActive = false; break;
    case QEvent::WindowActivate: m_wasActive = true; break;
    case QEvent::WindowDeactivate: lookSoon(); break;
    default: break;
    }
    return false;
}

void DeactivationWatch::lookSoon()
{
    if (m_widget->isVisible()) {
        m_settling.start();
    }
}

void DeactivationWatch::look()
{
    if (!m_widget->isVisible() || GestureDoors::isBlockedByDialog(*m_widget)) {
        return;
    }
    const QWidget* const active = QApplication::activeWindow();
    const bool isWithin = active && belongsTo(active, m_widget->window());
    const bool isLeft =
        active ? !isWithin : QGuiApplication::applicationState() != Qt::ApplicationActive;
    m_wasActive = m_wasActive || isWithin;
    if (isLeft && std::exchange(m_wasActive, false)) {
        const auto dismiss = m_dismiss; // which may delete this
        dismiss();
    }
}

} // namespace ui
