// SPDX-License-Identifier: Apache-2.0
#include "gallery/forcedstates.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFocusEvent>
#include <QHoverEvent>
#include <QMouseEvent>

namespace studio::gallery {

namespace {

/// Somewhat aside of the middle, where a press would not move a centred handle.
QPointF pressPoint(const QWidget& control)
{
    constexpr double kAcross = 0.62;
    constexpr double kDown = 0.4;
    return {control.width() * kAcross, control.height() * kDown};
}

void hover(QWidget* control)
{
    const QPointF point = pressPoint(*control);
    const QPointF global = control->mapToGlobal(point);
    control->setAttribute(Qt::WA_UnderMouse);
    QEnterEvent enter(point, point, global);
    QApplication::sendEvent(control, &enter);
    QHoverEvent hovered(QEvent::HoverEnter, point, global, QPointF(-1, -1));
    QApplication::sendEvent(control, &hovered);
}

void press(QWidget* control)
{
    hover(control);
    if (auto* button = qobject_cast<QAbstractButton*>(control)) {
        button->setDown(true);
        return;
    }
    const QPointF point = pressPoint(*control);
    QMouseEvent event(
        QEvent::MouseButtonPress,
        point,
        control->mapToGlobal(point),
        Qt::LeftButton,
        Qt::LeftButton,
        Qt::NoModifier);
    QApplication::sendEvent(control, &event);
}

/// A widget also counts as focused while the one that stands for it is.
void focusBy(QWidget* control, QWidget* focus)
{
    control->setFocusProxy(focus);
    QFocusEvent event(QEvent::FocusIn, Qt::TabFocusReason);
    QApplication::sendEvent(control, &event);
}

} // namespace

void force(QWidget* control, State state, QWidget* focus)
{
    control->setFocusPolicy(Qt::NoFocus);
    switch (state) {
    case State::Hovered: hover(control); break;
    case State::Pressed: press(control); break;
    case State::Focused: focusBy(control, focus); break;
    case State::Disabled: control->setEnabled(false); break;
    case State::Rest:
    case State::On: break;
    }
}

} // namespace studio::gallery
