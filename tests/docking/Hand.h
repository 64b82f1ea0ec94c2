// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/RealPointer.h"

#include <QtWidgets>

#include <memory>

namespace ui::test {

/// A hand on the mouse. It moves the system's cursor, and sends what a platform sends that gives
/// all events up to the release to the native window that was pressed, or to any other once that is
/// gone; so that the platform's own reports do not mix in, a drag must not run the event loop.
class Hand
{
public:
    ~Hand();

    /// From here on it is the pointer of the display that moves, and the platform that reports it.
    void takeRealPointer() { m_real = std::make_unique<RealPointer>(); }

    /// The widget must be visible.
    void press(QWidget& widget, QPoint position, Qt::MouseButton button = Qt::LeftButton);
    void doubleClick(QWidget& widget, QPoint position, Qt::MouseButton button = Qt::LeftButton);
    /// Moves in one step, or in several.
    void moveTo(QPoint global, int steps = 1);
    void release();
    /// From here on the button is up, but nobody is told.
    void loseRelease();
    void pressEscape();
    bool isDown() const { return m_buttons != Qt::NoButton; }
    bool isReal() const { return m_real != nullptr; }

private:
    QWindow* receiver() const;
    void pointAt(QPoint global);
    void send(QEvent::Type type, Qt::MouseButton button);

    std::unique_ptr<RealPointer> m_real;
    QPointer<QWindow> m_window;
    Qt::MouseButton m_buttons = Qt::NoButton; ///< one at a time
};

} // namespace ui::test
