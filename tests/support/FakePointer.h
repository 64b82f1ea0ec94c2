// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets>

namespace ui::test {

/// A mouse whose events go through the window, as the platform plug-in sends them, so that grabs,
/// hover and event filters take part. Positions are logical pixels relative to `widget`.
class FakePointer
{
public:
    /// The widget must be shown; it may die while the pointer is in use, which ends all delivery.
    explicit FakePointer(QWidget* widget);
    ~FakePointer();

    void moveTo(QPoint position);
    void press(Qt::MouseButton button = Qt::LeftButton);
    /// Moves there and presses.
    void press(QPoint position, Qt::MouseButton button = Qt::LeftButton);
    void release(Qt::MouseButton button = Qt::LeftButton);

    /// Moves there, presses and releases.
    void click(QPoint position, Qt::MouseButton button = Qt::LeftButton);

    /// Moves in straight steps of at most `step` pixels.
    void dragTo(QPoint position, int step = 5);
    /// The same, and releases there.
    void drop(QPoint position, int step = 5);

    void setModifiers(Qt::KeyboardModifiers modifiers) { m_modifiers = modifiers; }
    /// The same, also for those who ask the keyboard while the pointer lives.
    void hold(Qt::KeyboardModifiers modifiers);
    QPoint position() const { return m_position; }

private:
    void send(QEvent::Type type, Qt::MouseButton button);

    QPointer<QWidget> m_widget;
    QPoint m_position;
    Qt::MouseButtons m_buttons;
    Qt::KeyboardModifiers m_modifiers;
    bool m_holds = false;
};

/// Turns the wheel over a point of a widget, or a touchpad by pixels.
/// @return whether that was taken
bool turnWheel(
    QWidget& over, QPoint at, QPoint angle, Qt::KeyboardModifiers held = {}, QPoint pixels = {});

/// Sends what a drag that comes in and is dropped sends.
/// @return whether the drop was taken
bool dropOn(QWidget& target, const QMimeData& data);

/// Clicks the middle of a widget.
inline void click(QWidget* widget)
{
    FakePointer(widget).click(widget->rect().center());
}

} // namespace ui::test
