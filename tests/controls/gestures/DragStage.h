// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/SignalRecord.h"
#include "support/FakePointerSystem.h"
#include "support/TestCase.h"
#include <MorrantUI/controls/gestures/MouseWrapDragFilter.h>

namespace ui::test {

using Drive = morrant::native::PointerSystem::Drive;

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
        const auto tell = [this](const QString& signal) {
            story += signal;
            onSignal();
        };
        // The context is none of the objects that tests delete.
        using Filter = MouseWrapDragFilter;
        QObject::connect(filter, &Filter::started, &context, [tell] { tell(u"s"_qs); });
        QObject::connect(filter, &Filter::ended, &context, [tell] { tell(u"e"_qs); });
        QObject::connect(
            filter, &Filter::dragged, &context, [this, tell](QPointF a, QPointF totalDelta) {
                ++reports;
                current = a;
                total = totalDelta;
                tell({});
            });
    }

    void press(QPoint at = {50, 50}) { mouse.press(at); }

    /// A motion of the mouse, in logical pixels, as every kind of drag may hear of it.
    void move(QPoint delta)
    {
        mouse.moveTo(mouse.position() + delta);
        sendRaw(delta * window.devicePixelRatio());
    }

    void drag(std::initializer_list<QPoint> moves)
    {
        press();
        for (const QPoint delta : moves) {
            move(delta);
        }
        mouse.release();
    }

    static void sendRaw(QPoint pixels)
    {
        FakePointerSystem::sendRaw({.x = pixels.x(), .y = pixels.y()});
    }

    /// To the target alone, with a global position of any kind.
    void send(
        QEvent::Type type,
        QPointF global,
        const QPointingDevice* device = QPointingDevice::primaryPointingDevice(),
        Qt::MouseEventSource source = Qt::MouseEventNotSynthesized)
    {
        const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        const QPointF at(1, 1);
        QMouseEvent event(
            type, at, at, global, button, Qt::LeftButton, Qt::NoModifier, source, device);
        QCoreApplication::sendEvent(target, &event);
    }
    /// Without the pointer having come there before, as when a release got lost.
    void pressAtOnce(QPoint at) { send(QEvent::MouseButtonPress, target->mapToGlobal(at)); }

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
};

} // namespace ui::test
