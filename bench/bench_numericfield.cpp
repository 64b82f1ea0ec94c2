// SPDX-License-Identifier: Apache-2.0
#include "Report.h"
#include "themeassets.h"
#include "timing.h"
#include <MorrantUI/MorrantUI.h>
#include <MorrantUI/controls/values/NumericField.h>

#include <QApplication>
#include <QDoubleSpinBox>
#include <QMouseEvent>
#include <QTimer>

#include <cstdio>
#include <memory>
#include <vector>

using ui::bench::Report;

namespace {

constexpr int kFields = 1000;
constexpr int kColumns = 10;
constexpr QSize kFieldSize(70, 22); ///< logical pixels
constexpr int kDecimals = 3;        ///< of a number field
constexpr int kIdleTime = 1000;     ///< milliseconds, longer than any blinking

NumericField* makeNumericField(QWidget* parent)
{
    auto* field = new NumericField(0.0, parent);
    field->setFieldType(NumericField::FloatingPoint);
    return field;
}

QDoubleSpinBox* makeSpinBox(QWidget* parent)
{
    auto* box = new QDoubleSpinBox(parent);
    box->setDecimals(kDecimals);
    box->setRange(-1e9, 1e9);
    return box;
}

/// A window full of controls, shown and painted.
template <typename Make>
std::unique_ptr<QWidget> showMany(Make&& make)
{
    auto window = std::make_unique<QWidget>();
    for (int i = 0; i < kFields; ++i) {
        QWidget* const control = make(window.get());
        control->setGeometry(QRect(
            {i % kColumns * kFieldSize.width(), i / kColumns * kFieldSize.height()}, kFieldSize));
    }
    window->resize(kColumns * kFieldSize.width(), kFields / kColumns * kFieldSize.height());
    window->show();
    QCoreApplication::processEvents();
    return window;
}

/// As ui::bench::medianRatio(), without the time that the windows take to go.
void benchBuilding(Report& report)
{
    const char* const name = "numericfield-build-1000";
    if (!report.wants(name)) {
        return;
    }
    const auto time = [](auto make) {
        std::unique_ptr<QWidget> window; // outlives the measurement
        return ui::bench::nanosecondsOf([&] { window = showMany(make); });
    };
    time(makeNumericField);
    time(makeSpinBox);
    std::vector<double> ratios;
    for (int run = 0; run < ui::bench::kRuns; ++run) {
        const bool floorFirst = run % 2 == 0;
        double floor = floorFirst ? time(makeSpinBox) : 0.0;
        const double ours = time(makeNumericField);
        floor = floorFirst ? floor : time(makeSpinBox);
        ratios.push_back(ours / floor);
    }
    report.judge(name, ui::bench::median(ratios), "x-QDoubleSpinBox", 1.5);
}

void sendMouse(QWidget& widget, QEvent::Type type, QPointF position)
{
    const bool moves = type == QEvent::MouseMove;
    const Qt::MouseButtons held =
        type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(
        type,
        position,
        widget.mapToGlobal(position),
        moves ? Qt::NoButton : Qt::LeftButton,
        held,
        Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

void benchScrubStep(Report& report)
{
    const char* const name = "numericfield-scrub-step";
    if (!report.wants(name)) {
        return;
    }
    constexpr int kSteps = 2000;
    constexpr double kMultiplier = 0.137;
    QWidget window;
    NumericField* const field = makeNumericField(&window);
    QDoubleSpinBox* const box = makeSpinBox(&window);
    box->move(0, kFieldSize.height());
    field->setUsePointerLock(false);
    field->setDragMultiplier(kMultiplier);
    window.show();
    QCoreApplication::processEvents();

    const auto scrub = [&] {
        sendMouse(*field, QEvent::MouseButtonPress, {0, 0});
        for (int step = 0; step < kSteps; ++step) {
            sendMouse(*field, QEvent::MouseMove, QPointF(100 + step, 0));
        }
        sendMouse(*field, QEvent::MouseButtonRelease, {0, 0});
    };
    double start = 0.0;
    const auto set = [&] {
        for (int step = 0; step < kSteps; ++step) {
            box->setValue(start + kMultiplier * step);
        }
        start = box->value();
    };
    const double before = field->value();
    const double ratio = ui::bench::medianRatio(scrub, set);
    if (field->value() <= before) {
        std::fprintf(stderr, "the field was not scrubbed\n");
        return;
    }
    report.judge(name, ratio, "x-QDoubleSpinBox-setValue", 1.5);
}

class PaintCounter : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        paints += event->type() == QEvent::Paint && watched->isWidgetType() ? 1 : 0;
        return false;
    }

    int paints = 0;
};

void benchIdle(Report& report)
{
    const char* const name = "numericfield-idle-paints";
    if (!report.wants(name)) {
        return;
    }
    const std::unique_ptr<QWidget> window = showMany(makeNumericField);
    QCoreApplication::processEvents();
    PaintCounter counter;
    QCoreApplication::instance()->installEventFilter(&counter);
    QTimer::singleShot(kIdleTime, qApp, &QCoreApplication::quit);
    QCoreApplication::exec();
    report.judge(name, counter.paints, "paints", 0);
}

} // namespace

int main(int argc, char** argv)
{
    return benchWithTheme(argc, argv, [](ui::bench::Report& report) {
        benchBuilding(report);
        benchScrubStep(report);
        benchIdle(report);
    });
}
