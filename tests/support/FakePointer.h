// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/gestures/modifiers.h>

#include <QtWidgets>

#include <algorithm>
#include <cstdlib>

namespace ui::test {

/// A mouse whose events go through the window, as the platform plug-in sends them, so that grabs,
/// hover and event filters take part. Positions are logical pixels relative to `widget`.
class FakePointer
{
public:
    /// The widget must be shown; it may die while the pointer is in use, which ends all delivery.
    explicit FakePointer(QWidget* widget)
        : m_widget(widget)
    {}
    ~FakePointer() { m_holds ? ui::setKeyboardModifiersQuery({}) : void(); }

    void moveTo(QPoint position)
    {
        m_position = position;
        send(QEvent::MouseMove, Qt::NoButton);
    }
    void press(Qt::MouseButton button = Qt::LeftButton)
    {
        m_buttons |= button;
        send(QEvent::MouseButtonPress, button);
    }
    /// Moves there and presses.
    void press(QPoint position, Qt::MouseButton button = Qt::LeftButton)
    {
        moveTo(position);
        press(button);
    }
    void release(Qt::MouseButton button = Qt::LeftButton)
    {
        m_buttons &= ~Qt::MouseButtons(button);
        send(QEvent::MouseButtonRelease, button);
    }

    /// Moves there, presses and releases.
    void click(QPoint position, Qt::MouseButton button = Qt::LeftButton)
    {
        press(position, button);
        release(button);
    }

    /// Moves in straight steps of at most `step` pixels.
    void dragTo(QPoint position, int step = 5)
    {
        const QPoint start = m_position;
        const QPoint way = position - start;
        const int longer = std::max(std::abs(way.x()), std::abs(way.y()));
        const int steps = std::max(1, longer / std::max(1, step));
        for (int i = 1; i <= steps; ++i) {
            moveTo(start + QPoint(way.x() * i / steps, way.y() * i / steps));
        }
    }
    /// The same, and releases there.
    void drop(QPoint position, int step = 5)
    {
        dragTo(position, step);
        release();
    }

    void setModifiers(Qt::KeyboardModifiers modifiers) { m_modifiers = modifiers; }
    /// The same, also for those who ask the keyboard while the pointer lives.
    void hold(Qt::KeyboardModifiers modifiers)
    {
        m_holds = true;
        m_modifiers = modifiers;
        ui::setKeyboardModifiersQuery([modifiers] { return modifiers; });
    }
    QPoint position() const { return m_position; }

private:
    void send(QEvent::Type type, Qt::MouseButton button)
    {
        if (QWindow* const window = m_widget ? m_widget->window()->windowHandle() : nullptr) {
            const QPointF in = m_widget->mapTo(m_widget->window(), m_position);
            const QPointF global = m_widget->mapToGlobal(m_position);
            QMouseEvent event(type, in, in, global, button, m_buttons, m_modifiers);
            QCoreApplication::sendEvent(window, &event);
        }
    }

    QPointer<QWidget> m_widget;
    QPoint m_position;
    Qt::MouseButtons m_buttons;
    Qt::KeyboardModifiers m_modifiers;
    bool m_holds = false;
};

/// Turns the wheel over a point of a widget, or a touchpad by pixels.
/// @return whether that was taken
inline bool turnWheel(
    QWidget& over, QPoint at, QPoint angle, Qt::KeyboardModifiers held = {}, QPoint pixels = {})
{
    const QPointF global = over.mapToGlobal(QPointF(at));
    QWheelEvent event(at, global, pixels, angle, {}, held, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&over, &event);
    return event.isAccepted();
}

/// Sends what a drag that comes in and is dropped sends; the drop also where it is not wanted.
/// @return whether both were taken
inline bool dropOn(QWidget& target, const QMimeData& data, Qt::DropAction action = Qt::CopyAction)
{
    const auto takes = [&target](QDropEvent&& event) {
        event.ignore();
        QCoreApplication::sendEvent(&target, &event);
        return event.isAccepted();
    };
    const QPoint at(5, 5);
    const bool enters = takes(QDragEnterEvent(at, action, &data, Qt::LeftButton, {}));
    return takes(QDropEvent(at, action, &data, Qt::LeftButton, {})) && enters;
}

/// Clicks the middle of a widget.
inline void click(QWidget* widget)
{
    FakePointer(widget).click(widget->rect().center());
}

} // namespace ui::test
