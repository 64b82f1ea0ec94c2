// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPoint>

#include <array>
#include <optional>
#include <utility>

namespace ui::test {

/// The pointer of a real display, moved as a mouse moves it; no acceleration while it lives. What
/// it causes has been dealt with when a call returns. Physical pixels.
class RealPointer
{
public:
    /// False off screen, and on an X server without xdotool.
    static bool available();

    RealPointer() { setAccelerated(false); }
    ~RealPointer()
    {
        release();
        setAccelerated(true);
    }
    Q_DISABLE_COPY_MOVE(RealPointer)

    QPoint position() const;
    void moveTo(QPoint position);
    /// Moves in `times` equal steps, few enough at once for the application to follow.
    void moveBy(QPoint step, int times = 1);
    /// @param button left or right
    void press(Qt::MouseButton button = Qt::LeftButton) { turn(m_pressed = button, true); }
    /// Of the button that is down.
    void release() { m_pressed ? turn(std::exchange(m_pressed, Qt::NoButton), false) : void(); }
    /// The key on the keyboard, down and up; the window with the focus gets it.
    void pressEscape();

    /// Whether it is seen and may go everywhere; X11 does not tell.
    std::optional<bool> isFree() const;

private:
    static void turn(Qt::MouseButton button, bool down);
    void setAccelerated(bool accelerated);

    Qt::MouseButton m_pressed = Qt::NoButton;
    std::array<int, 3> m_acceleration{}; ///< as Windows has it: two thresholds and a speed
};

} // namespace ui::test
