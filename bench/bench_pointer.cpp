// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/PointerSystem.h"
#include "Report.h"
#include "allocations.h"
#include "timing.h"
#include <MorrantUI/controls/gestures/MouseWrapDragFilter.h>
#include <MorrantUI/controls/gestures/pointermath.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

#include <functional>
#include <optional>
#include <string>

using morrant::native::PointerSystem;
using ui::bench::Report;

namespace {

constexpr int kMotions = 8000;         ///< a second of the fastest mice
constexpr double kInterval = 125000.0; ///< nanoseconds between two of them

/// A desktop that costs nothing, so that what is measured is ours.
class Desktop final : public PointerSystem
{
public:
    explicit Desktop(Drive drive)
        : m_drive(drive)
    {
        replace(this);
    }
    ~Desktop() override { replace(nullptr); }

    Drive drive() const override { return m_drive; }
    std::optional<QPoint> position() const override { return pointer; }
    bool setPosition(QPoint position) override
    {
        pointer = position;
        return true;
    }
    QPoint logicalPosition() const override { return pointer; }
    QPointF moveBy(QPointF offset, double /*ratio*/) override
    {
        pointer += offset.toPoint();
        return offset;
    }
    std::optional<QRect> windowFrame(const QWidget& /*widget*/) const override
    {
        return QRect(0, 0, 1600, 1000);
    }
    bool registerRawInput(const morrant::native::RawRegistration& /*wanted*/) override
    {
        return true;
    }
    void readRawInput(
        const QByteArray& /*type*/,
        void* message,
        const std::function<void(const ui::RawMouseRecord&)>& sink) override
    {
        sink(*static_cast<const ui::RawMouseRecord*>(message));
    }

    QPoint pointer{800, 500};

private:
    Drive m_drive;
};

void send(QWidget& widget, QEvent::Type type, QPoint position)
{
    const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(
        type, QPointF(), QPointF(), QPointF(position), button, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

QPoint motion(int index)
{
    return {3 + index % 5, -(index % 3)};
}

/// A second of motions, from the system's event to the signal: through raw input or, as mouse
/// moves, through warps.
void benchDrag(Report& report, PointerSystem::Drive drive, const std::string& name)
{
    if (!report.wants(name)) {
        return;
    }
    Desktop desktop(drive);
    const bool raw = drive == PointerSystem::Drive::RawInput;
    QWidget window;
    window.show();
    QPointF total;
    MouseWrapDragFilter* filter = MouseWrapDragFilter::Make(&window);
    QObject::connect(
        filter, &MouseWrapDragFilter::dragged, &window, [&total](const QPointF& current) {
            total = current;
        });

    const QByteArray type = QByteArrayLiteral("raw");
    QPointF expected;
    const auto second = [&] {
        for (int i = 0; i < kMotions; ++i) {
            const QPoint step = motion(i);
            desktop.pointer += step;
            expected += step;
            ui::RawMouseRecord record;
            record.x = step.x();
            record.y = step.y();
            if (raw) {
                QAbstractEventDispatcher::instance()->filterNativeEvent(type, &record, nullptr);
            } else {
                send(window, QEvent::MouseMove, desktop.pointer);
            }
        }
    };
    send(window, QEvent::MouseButtonPress, desktop.pointer);
    expected = raw ? QPointF() : QPointF(desktop.pointer);
    const double time = ui::bench::medianNanosecondsOf(second) / kMotions;
    const auto allocations = static_cast<double>(ui::bench::allocationsOf(second));
    const double error = (total - expected).manhattanLength();
    send(window, QEvent::MouseButtonRelease, desktop.pointer);

    report.state(name + "-time", time, "ns");
    report.judge(name + "-of-8kHz", 100 * time / kInterval, "percent", 10);
    report.judge(name + "-total-error", error, "pixels", 0);
    if (raw) { // Qt allocates for mouse events
        report.judge(name + "-allocations", allocations, "allocations", 0);
    }
}

} // namespace

int main(int argc, char** argv)
{
    Report report(argc, argv);
    QApplication::setDesktopSettingsAware(false);
    const QApplication app(argc, argv);
    benchDrag(report, PointerSystem::Drive::RawInput, "drag-raw");
    benchDrag(report, PointerSystem::Drive::Warps, "drag-warps");
    return report.exitCode();
}
