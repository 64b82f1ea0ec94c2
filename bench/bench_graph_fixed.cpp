// SPDX-License-Identifier: Apache-2.0
#include "Report.h"
#include "themeassets.h"
#include "timing.h"
#include <MorrantUI/graph/FixedGraphView.h>

#include <Core/GraphCurveData.h>

#include <QGraphicsPathItem>
#include <QGraphicsScene>

#include <algorithm>
#include <cmath>
#include <string>

using ui::bench::Report;

namespace {

constexpr int kFewKeys = 100;
constexpr int kManyKeys = 1000;
constexpr int kValues = 1000; ///< evaluated in one go
constexpr int kHalvings = 40;

/// With what Qt puts off until there is time: the scene's book-keeping, and the old items' end.
void fill(FixedGraphView& view)
{
    view.fillGraph(true);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// Keys at even times, with handles on both sides.
GraphCurveData waves(int count)
{
    std::vector<GraphCurveKey> keys(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        GraphCurveKey& key = keys.at(static_cast<std::size_t>(i));
        const double gap = 1.0 / count;
        key.time = (i + 0.5) * gap;
        key.value = 0.5 + 0.4 * std::sin(i * 0.7);
        key.leftHandle = {-gap / 3, -0.05};
        key.rightHandle = {gap / 3, 0.05};
        key.interpolation = morrant::KeyInterpolationType::Bezier;
        key.index = i;
    }
    GraphCurveData curve;
    curve.setKeys(std::move(keys));
    return curve;
}

void benchFill(Report& report)
{
    const char* const name = "graph-fixed-fill-growth";
    if (!report.wants(name)) {
        return;
    }
    GraphCurveData few = waves(kFewKeys);
    GraphCurveData many = waves(kManyKeys);
    FixedGraphView fewView(&few);
    FixedGraphView manyView(&many);
    const double ratio = ui::bench::medianRatio([&] { fill(manyView); }, [&] { fill(fewView); });
    report.judge(name, ratio / (kManyKeys / kFewKeys), "x-a-key-of-100", 1.5);
    report.state(
        "graph-fixed-fill-1000-time",
        ui::bench::medianNanosecondsOf([&] { fill(manyView); }) / 1e6,
        "ms");
}

/// Against items of Qt's own: a point and two handles for each key.
void benchFillToPlain(Report& report)
{
    const char* const name = "graph-fixed-fill-1000";
    if (!report.wants(name)) {
        return;
    }
    GraphCurveData curve = waves(kManyKeys);
    FixedGraphView view(&curve);
    QGraphicsScene plain;
    plain.setItemIndexMethod(QGraphicsScene::NoIndex);
    QPainterPath knob;
    knob.addEllipse(-0.1, -0.1, 0.2, 0.2);
    const auto make = [&] {
        plain.clear();
        auto* const parent = new QGraphicsPathItem;
        for (int i = 0; i < kManyKeys; ++i) {
            auto* const point = new QGraphicsPathItem(knob, parent);
            point->setPos(i, i % 10);
            (new QGraphicsPathItem(knob, point))->setPos(-1, 1);
            (new QGraphicsPathItem(knob, point))->setPos(1, 1);
        }
        plain.addItem(parent);
        QCoreApplication::processEvents();
    };
    report.state(name, ui::bench::medianRatio([&] { fill(view); }, make), "x-plain-items");
}

/// Against halving alone, to the same precision.
void benchEvaluate(Report& report)
{
    const char* const name = "core-curve-evaluate";
    if (!report.wants(name)) {
        return;
    }
    const GraphCurveData curve = waves(2);
    double sink = 0.0;
    const auto evaluate = [&] {
        for (int i = 0; i < kValues; ++i) {
            sink += curve.evaluate(0.25 + 0.5 * i / kValues);
        }
    };
    const auto halve = [&] {
        for (int i = 0; i < kValues; ++i) {
            const double wanted = static_cast<double>(i) / kValues;
            double low = 0.0;
            double high = 1.0;
            for (int step = 0; step < kHalvings; ++step) {
                const double t = (low + high) / 2.0;
                const double u = 1.0 - t;
                const double x = u * t * (u + 2.0 * t) + t * t * t;
                (x < wanted ? low : high) = t;
            }
            sink += low;
        }
    };
    report.judge(name, ui::bench::medianRatio(evaluate, halve), "x-halving", 1.0);
    report.state(
        "core-curve-evaluate-time",
        ui::bench::medianNanosecondsOf(evaluate) / kValues,
        std::isfinite(sink) ? "ns" : "not-finite");
}

} // namespace

int main(int argc, char** argv)
{
    return benchWithTheme(argc, argv, [](Report& report) {
        benchFill(report);
        benchFillToPlain(report);
        benchEvaluate(report);
    });
}
