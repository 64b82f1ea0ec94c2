#include "docking/Hand.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QtTest>

#include <algorithm>

namespace ui::test {

static void pointAt(QPoint global)
{
    QCursor::setPos(global);
    QTRY_COMPARE(QCursor::pos(), global);
}

Hand::~Hand()
{
    if (m_buttons) {
        release();
    }
}

void Hand::press(QWidget& widget, QPoint position)
{
    const QPointer<QWidget> pressed(&widget);
    pointAt(widget.mapToGlobal(position));
    QCoreApplication::processEvents();
    if (!pressed) {
        return; // something was still due
    }
    m_window = widget.window()->windowHandle();
    m_buttons = Qt::LeftButton;
    send(QEvent::MouseButtonPress, Qt::LeftButton);
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
    m_buttons = Qt::NoButton;
    send(QEvent::MouseButtonRelease, Qt::LeftButton);
    QCoreApplication::processEvents();
}

void Hand::loseRelease()
{
    m_buttons = Qt::NoButton;
}

void Hand::pressKey(Qt::Key key)
{
    if (QWindow* window = receiver()) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
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
    if (!window) {
        return;
    }
    const QPointF global = QCursor::pos();
    const QPointF local = window->mapFromGlobal(global);
    QMouseEvent event(type, local, local, global, button, m_buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &event);
}

} // namespace ui::test
