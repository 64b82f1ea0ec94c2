#include "docking/Hand.h"

#include <QCoreApplication>
#include <QCursor>
#include <QMouseEvent>
#include <QtTest>

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
    pointAt(widget.mapToGlobal(position));
    QCoreApplication::processEvents();
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

void Hand::send(QEvent::Type type, Qt::MouseButton button)
{
    if (!m_window) {
        return;
    }
    const QPointF global = QCursor::pos();
    const QPointF local = m_window->mapFromGlobal(global);
    QMouseEvent event(type, local, local, global, button, m_buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window, &event);
}

} // namespace ui::test
