// SPDX-License-Identifier: Apache-2.0
#include "support/FakePointer.h"

#include <MorrantUI/controls/gestures/modifiers.h>

#include <algorithm>
#include <cstdlib>

namespace ui::test {

FakePointer::FakePointer(QWidget* widget)
    : m_widget(widget)
{}

FakePointer::~FakePointer()
{
    if (m_holds) {
        ui::setKeyboardModifiersQuery({});
    }
}

void FakePointer::hold(Qt::KeyboardModifiers modifiers)
{
    m_holds = true;
    m_modifiers = modifiers;
    ui::setKeyboardModifiersQuery([modifiers] { return modifiers; });
}

void FakePointer::moveTo(QPoint position)
{
    m_position = position;
    send(QEvent::MouseMove, Qt::NoButton);
}

void FakePointer::press(Qt::MouseButton button)
{
    m_buttons |= button;
    send(QEvent::MouseButtonPress, button);
}

void FakePointer::release(Qt::MouseButton button)
{
    m_buttons &= ~Qt::MouseButtons(button);
    send(QEvent::MouseButtonRelease, button);
}

void FakePointer::press(QPoint position, Qt::MouseButton button)
{
    moveTo(position);
    press(button);
}

void FakePointer::click(QPoint position, Qt::MouseButton button)
{
    press(position, button);
    release(button);
}

void FakePointer::dragTo(QPoint position, int step)
{
    const QPoint start = m_position;
    const QPoint way = position - start;
    const int steps =
        std::max(1, std::max(std::abs(way.x()), std::abs(way.y())) / std::max(1, step));
    for (int i = 1; i <= steps; ++i) {
        moveTo(start + QPoint(way.x() * i / steps, way.y() * i / steps));
    }
}

void FakePointer::drop(QPoint position, int step)
{
    dragTo(position, step);
    release();
}

void FakePointer::send(QEvent::Type type, Qt::MouseButton button)
{
    if (!m_widget || !m_widget->window()->windowHandle()) {
        return;
    }
    QWindow* const window = m_widget->window()->windowHandle();
    const QPoint inWindow = m_widget->mapTo(m_widget->window(), m_position);
    QMouseEvent event(
        type,
        QPointF(inWindow),
        QPointF(inWindow),
        QPointF(m_widget->mapToGlobal(m_position)),
        button,
        m_buttons,
        m_modifiers);
    QCoreApplication::sendEvent(window, &event);
}

bool turnWheel(QWidget& over, QPoint at, QPoint angle, Qt::KeyboardModifiers held, QPoint pixels)
{
    const QPointF global = over.mapToGlobal(QPointF(at));
    QWheelEvent event(at, global, pixels, angle, {}, held, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&over, &event);
    return event.isAccepted();
}

bool dropOn(QWidget& target, const QMimeData& data)
{
    const auto takes = [&target](QDropEvent&& event) {
        event.ignore();
        QCoreApplication::sendEvent(&target, &event);
        return event.isAccepted();
    };
    const QPoint at(5, 5);
    return takes(QDragEnterEvent(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier))
           && takes(QDropEvent(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier));
}

} // namespace ui::test
