#pragma once

#include <QEvent>
#include <QPoint>
#include <QPointer>
#include <QWidget>
#include <QWindow>

namespace ui::test {

/// A hand on the mouse. It moves the system's cursor, and sends what a platform sends that gives
/// all events up to the release to the native window that was pressed, or to any other once that is
/// gone; so that the platform's own reports do not mix in, a drag must not run the event loop.
class Hand
{
public:
    ~Hand();

    /// The widget must be visible.
    void press(QWidget& widget, QPoint position);
    /// Moves in one step, or in several.
    void moveTo(QPoint global, int steps = 1);
    void release();
    /// From here on the button is up, but nobody is told.
    void loseRelease();
    void pressKey(Qt::Key key);
    bool isDown() const { return m_buttons != Qt::NoButton; }

private:
    QWindow* receiver() const;
    void send(QEvent::Type type, Qt::MouseButton button);

    QPointer<QWindow> m_window;
    Qt::MouseButtons m_buttons;
};

} // namespace ui::test
