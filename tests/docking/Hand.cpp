// SPDX-License-Identifier: Apache-2.0
#include "docking/Hand.h"

#include <QtTest>
#include <QtWidgets>

#include <algorithm>
#include <utility>

namespace ui::test {

Hand::~Hand()
{
    if (isDown()) {
        release();
    }
}

void Hand::pointAt(QPoint global)
{
    if (m_real) {
        const double ratio = QGuiApplication::primaryScreen()->devicePixelRatio();
        m_real->moveTo((QPointF(global) * ratio).toPoint());
    } else {
        QCursor::setPos(global);
    }
    QTRY_COMPARE(QCursor::pos(), global);
}

void Hand::press(QWidget& widget, QPoint position, Qt::MouseButton button)
{
    const QPointer<QWidget> pressed(&widget);
    QPoint place;
    do { // a window manager may be about to put it elsewhere
        place = widget.mapToGlobal(position);
        pointAt(place);
        QCoreApplication::processEvents();
        if (!pressed) {
            return; // something was still due
        }
    } while (widget.mapToGlobal(position) != place);
    m_buttons = button;
    if (m_real) {
        m_real->press(button);
        return;
    }
    m_window = widget.window()->windowHandle();
    send(QEvent::MouseButtonPress, button);
}

void Hand::doubleClick(QWidget& widget, QPoint position, Qt::MouseButton button)
{
    const QPointer<QWidget> pressed(&widget);
    press(widget, position, button);
    release();
    if (m_real && pressed) {
        press(widget, position, button);
    } else if (pressed && m_window) {
        m_buttons = button;
        send(QEvent::MouseButtonDblClick, button);
    }
    if (isDown()) {
        release();
    }
}

void Hand::moveTo(QPoint global, int steps)
{
    const QPoint start = QCursor::pos();
    for (int i = 1; i <= steps; ++i) {
        pointAt(start + (global - start) * i / steps);
        send(QEvent::MouseMove, Qt::NoButton);
    }
}

void Hand::release()
{
    const Qt::MouseButton button = std::exchange(m_buttons, Qt::NoButton);
    if (m_real) {
        m_real->release();
    } else {
        send(QEvent::MouseButtonRelease, button);
        QCoreApplication::processEvents();
    }
}

void Hand::loseRelease()
{
    m_buttons = Qt::NoButton;
}

void Hand::pressEscape()
{
    if (m_real) {
        m_real->pressEscape();
    } else if (QWindow* window = receiver()) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(window, &event);
    }
}

QWindow* Hand::receiver() const
{
    if (m_window) {
        return m_window;
    }
    const auto windows = QGuiApplication::topLevelWindows();
    const auto visible =
        std::find_if(windows.begin(), windows.end(), [](QWindow* one) { return one->isVisible(); });
    return visible == windows.end() ? nullptr : *visible;
}

void Hand::send(QEvent::Type type, Qt::MouseButton button)
{
    QWindow* window = receiver();
    if (!window || m_real) {
        return;
    }
    const QPointF global = QCursor::pos();
    const QPointF local = window->mapFromGlobal(global);
    QMouseEvent event(type, local, local, global, button, m_buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &event);
}

} // namespace ui::test
