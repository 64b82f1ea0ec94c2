#pragma once

#include "support/FakePointer.h"
#include "support/FakePointerSystem.h"
#include <MorrantUI/controls/gestures/MouseWrapDragFilter.h>

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPointingDevice>

#include <functional>
#include <utility>

namespace ui::test {

/// A shown window with a field in it, whose drags are written down.
struct DragStage
{
    explicit DragStage(bool isDummy = false)
        : target(new QWidget(&window))
        , filter(
              isDummy ? MouseWrapDragFilter::MakeDummy(target) : MouseWrapDragFilter::Make(target))
        , mouse(target)
    {
        window.setGeometry(60, 50, 300, 200);
        target->setGeometry(20, 20, 200, 100);
        window.show();
        // The context is none of the objects that tests delete.
        const auto listen = [this](auto signal, auto slot) {
            QObject::connect(filter, signal, &context, slot);
        };
        listen(&MouseWrapDragFilter::started, [this] { tell(u's'); });
        listen(&MouseWrapDragFilter::ended, [this] { tell(u'e'); });
        listen(&MouseWrapDragFilter::dragged, [this](const QPointF& a, const QPointF& totalDelta) {
            ++reports;
            current = a;
            total = totalDelta;
            tell(u'd');
        });
    }

    void press(QPoint at = {50, 50})
    {
        mouse.moveTo(at);
        mouse.press();
    }

    /// A motion of the mouse, in logical pixels, as every kind of drag may hear of it.
    void move(QPoint delta)
    {
        mouse.moveTo(mouse.position() + delta);
        sendRaw(delta * window.devicePixelRatio());
    }

    static void sendRaw(QPoint pixels)
    {
        RawMouseRecord record;
        record.x = pixels.x();
        record.y = pixels.y();
        FakePointerSystem::sendRaw(record);
    }

    /// With a global position of any kind.
    static QMouseEvent mouseEvent(
        QEvent::Type type,
        QPointF global,
        const QPointingDevice* device = QPointingDevice::primaryPointingDevice(),
        Qt::MouseEventSource source = Qt::MouseEventNotSynthesized)
    {
        return QMouseEvent(
            type,
            QPointF(1, 1),
            QPointF(1, 1),
            global,
            type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
            Qt::LeftButton,
            Qt::NoModifier,
            source,
            device);
    }

    /// Straight to a widget.
    static void send(QWidget& to, QEvent::Type type, QPointF global)
    {
        QMouseEvent event = mouseEvent(type, global);
        QCoreApplication::sendEvent(&to, &event);
    }

    QWidget window;
    QObject context;
    QPointer<QWidget> target;
    QPointer<MouseWrapDragFilter> filter;
    FakePointer mouse;
    QString story; ///< s for started, e for ended
    int reports = 0;
    QPointF current;
    QPointF total;
    QChar awaited;                   ///< a signal, d for dragged, ...
    std::function<void()> onAwaited; ///< ... that is answered with this, once

private:
    void tell(QChar signal)
    {
        story += signal == u'd' ? QString() : signal;
        if (signal == awaited && onAwaited) {
            std::exchange(onAwaited, nullptr)();
        }
    }
};

} // namespace ui::test
