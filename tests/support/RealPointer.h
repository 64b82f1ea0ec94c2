// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPoint>
#include <qnamespace.h>

#include <memory>
#include <optional>

namespace ui::test {

/// The pointer of a real display, moved as a mouse moves it; no acceleration while it lives. What
/// it causes has been dealt with when a call returns. Physical pixels.
class RealPointer
{
public:
    /// False off screen, and on an X server without xdotool.
    static bool available();

    RealPointer();
    ~RealPointer(); ///< the button is up again

    QPoint position() const;
    void moveTo(QPoint position);
    /// Moves in `times` equal steps, few enough at once for the application to follow.
    void moveBy(QPoint step, int times = 1);
    void press(Qt::MouseButton button = Qt::LeftButton); ///< left or right
    void release();                                      ///< of the button that is down
    /// The key on the keyboard, down and up; the window with the focus gets it.
    void pressEscape();

    /// Whether it is seen and may go everywhere; X11 does not tell.
    std::optional<bool> isFree() const;

private:
    struct System;
    std::unique_ptr<System> m_system;
};

} // namespace ui::test
