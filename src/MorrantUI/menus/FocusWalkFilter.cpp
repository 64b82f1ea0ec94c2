// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/FocusWalkFilter.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QToolButton>

#include <utility>

namespace ui {

namespace {

/// Whether arrows in a button would do no more than move the focus.
bool isPlainButton(const QWidget* widget)
{
    const auto* const button = qobject_cast<const QAbstractButton*>(widget);
    if (!button || button->group() || button->autoExclusive()) {
        return false;
    }
    const auto* const push = qobject_cast<const QPushButton*>(widget);
    const auto* const tool = qobject_cast<const QToolButton*>(widget);
    const bool hasMenu = (push && push->menu()) || (tool && tool->menu());
    return !hasMenu; // which the Down key opens
}

} // namespace

FocusWalkFilter::FocusWalkFilter(QWidget* container, FocusWalk walk)
    : QObject(container)
    , m_container(container)
    , m_walk(std::move(walk))
{
    container->installEventFilter(this);
    connect(
        qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { follow(now); });
    follow(QApplication::focusWidget());
}

void FocusWalkFilter::follow(QWidget* focus)
{
    if (m_button) {
        m_button->removeEventFilter(this);
    }
    m_button = isPlainButton(focus) && m_container->isAncestorOf(focus) ? focus : nullptr;
    if (m_button) {
        m_button->installEventFilter(this);
    }
}

bool FocusWalkFilter::walks(QKeyEvent& key)
{
    return !(key.modifiers() & ~Qt::KeypadModifier) && m_walk(m_container, key.key());
}

bool FocusWalkFilter::eventFilter(QObject* watched, QEvent* event)
{
    const bool isOurs = watched == m_container || watched == m_button;
    if (!isOurs || event->type() != QEvent::KeyPress || !walks(*static_cast<QKeyEvent*>(event))) {
        return false;
    }
    event->accept();
    return true;
}

} // namespace ui
