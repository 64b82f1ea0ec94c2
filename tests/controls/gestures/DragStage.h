#pragma once

#include "controls/KthSignal.h"
#include "support/FakePointer.h"
#include "support/FakePointerSystem.h"
#include <MorrantUI/controls/gestures/MouseWrapDragFilter.h>

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPointingDevice>

namespace ui::test {

/// A shown window with a field in it, whose drags are written down.
struct DragStage
{
    explicit DragStage(bool isDummy = false)
        : filter(
            isDummy ? MouseWrapDragFilter::MakeDummy(target) : MouseWrapDragFilter::Make(target))
    {
        window.setGeometry(60, 50, 300, 200);
        target->setGeometry(20, 20, 200, 100);
        window.show();
        // The context is none of the objects that tests delete.
        const auto listen = [this](auto signal, auto slot) {
            QObject::connect(filter, signal, &context, slot);
        };
        listen(&MouseWrapDragFilter::started, [this] { tell(u"s"_qs); });
        listen(&MouseWrapDragFilter::ended, [this] { tell(u"e"_qs); });
        listen(&MouseWrapDragFilter::dragged, [this](const QPointF& a, const QPointF& totalDelta) {
            ++reports;
            current = a;
            total = totalDelta;
            tell({});
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
        FakePointerSystem::sendRaw({.x = pixels.x(), .y = pixels.y()});
    }

    /// With a global position of any kind.
    static QMouseEvent mouseEvent(
        QEvent::Type type,
        QPointF global,
        const QPointingDevice* device = QPointingDevice::primaryPointingDevice(),
        Qt::MouseEventSource source = Qt::MouseEventNotSynthesized)
    {
        const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        const QPointF at(1, 1);
        return {type, at, at, global, button, Qt::LeftButton, Qt::NoModifier, source, device};
    }

    /// Without the pointer having come there before, as when a release got lost.
    void pressAtOnce(QPoint at)
    {
        send(*target, QEvent::MouseButtonPress, target->mapToGlobal(at));
    }

    static void send(QWidget& to, QEvent::Type type, QPointF global)
    {
        QMouseEvent event = mouseEvent(type, global);
        QCoreApplication::sendEvent(&to, &event);
    }

    QWidget window;
    QObject context;
    QPointer<QWidget> target = new QWidget(&window);
    QPointer<MouseWrapDragFilter> filter;
    FakePointer mouse{target};
    QString story; ///< s for started, e for ended
    KthSignal onSignal;
    int reports = 0;
    QPointF current;
    QPointF total;

private:
    void tell(const QString& signal)
    {
        story += signal;
        onSignal();
    }
};

} // namespace ui::test
