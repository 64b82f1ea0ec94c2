// SPDX-License-Identifier: Apache-2.0
#include "Report.h"
#include "themeassets.h"
#include "timing.h"
#include <MorrantUI/graph/GeneralGraphUtils.h>
#include <MorrantUI/graph/GeneralGraphView.h>
#include <MorrantUI/graph/GraphBezierHandleItem.h>
#include <MorrantUI/graph/GraphCurveWidget.h>
#include <MorrantUI/graph/GraphPointWidget.h>
#include <MorrantUI/theme/colors.h>

#include <QApplication>
#include <QGraphicsScene>
#include <QPainter>

#include <cmath>
#include <cstdio>
#include <limits>
#include <numbers>
#include <string>
#include <vector>

using ui::bench::Report;

namespace {

constexpr QSize kViewSize(1600, 900); ///< logical pixels
constexpr double kDistance = 10.0;    ///< units between points
constexpr double kHeight = 800.0;     ///< units of the wave that the points lie on
constexpr double kWaves = 10.0;       ///< in the width of the view
constexpr double kFar = std::numeric_limits<double>::infinity();

/// A wave of points with handles.
struct Graph
{
    /// @param shown how many of the points fill the view's width
    Graph(int points, double shown)
    {
        scene.setItemIndexMethod(QGraphicsScene::NoIndex);
        view.setScene(&scene);
        view.setRenderHint(QPainter::Antialiasing);
        view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.resize(kViewSize);
        scene.setBackgroundBrush(ui::colorQt(QStringLiteral("WindowBase")));
        curve = new GraphCurveWidget;
        curve->setLimits({kFar, -kFar, kFar, kFar});
        for (int i = 0; i < points; ++i) {
            auto* const point = new GraphPointWidget(&view, curve);
            const double phase = i * kWaves * 2.0 * std::numbers::pi / shown;
            point->forceMove({i * kDistance, kHeight / 2 * (1 + std::sin(phase))});
            new GraphBezierHandleItem(ui::Graph::Side::Left, point, point);
            new GraphBezierHandleItem(ui::Graph::Side::Right, point, point);
        }
        scene.addItem(curve);
        scene.setSceneRect(-20, -20, points * kDistance + 40, kHeight + 40);
        view.show();
        view.zoomAt({kViewSize.width() / (shown * kDistance), 1.0}, {});
        view.centerOn(points * kDistance / 2, kHeight / 2);
        view.updateItemRects();
        QCoreApplication::processEvents();
    }

    void paint() { view.viewport()->repaint(); }

    QGraphicsScene scene;
    GeneralGraphView view;
    GraphCurveWidget* curve = nullptr;
};

/// The floor of a repaint: the segments in sight as one path.
class RawPath : public QWidget
{
public:
    explicit RawPath(const Graph& graph)
    {
        resize(graph.view.viewport()->size());
        const QRectF visible = graph.view.getVisibleRect();
        const QTransform transform = graph.view.viewportTransform();
        for (const ui::Graph::Segment& segment : graph.curve->segments()) {
            if (segment.end.x() >= visible.left() && segment.start.x() <= visible.right()) {
                if (count++ == 0) {
                    path.moveTo(transform.map(segment.start));
                }
                path.cubicTo(
                    transform.map(segment.firstControl),
                    transform.map(segment.secondControl),
                    transform.map(segment.end));
            }
        }
        show();
        QCoreApplication::processEvents();
    }

    QPainterPath path;
    int count = 0;

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), ui::colorQt(QStringLiteral("WindowBase")));
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(
            ui::colorQt(QStringLiteral("Text")), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(path);
    }
};

void makeCurved(Graph& graph)
{
    for (GraphPointWidget* const point : graph.curve->points()) {
        point->getLeftBezier()->placeSilently({-kDistance / 3, 0});
        point->getRightBezier()->placeSilently({kDistance / 3, 0});
        point->setInterpolation(ui::Graph::Interpolation::Bezier, true);
    }
    QCoreApplication::processEvents();
}

void benchRepaint(Report& report, const char* name, double shown, bool curved, double limit)
{
    if (!report.wants(name)) {
        return;
    }
    Graph graph(10000, shown);
    if (curved) {
        makeCurved(graph);
    }
    RawPath raw(graph);
    std::printf("# %d segments in sight\n", raw.count);
    const double ratio = ui::bench::medianRatio([&] { graph.paint(); }, [&] { raw.repaint(); });
    if (limit > 0) {
        report.judge(name, ratio, "x-raw-path", limit);
    } else {
        report.state(name, ratio, "x-raw-path");
    }
    const double time = ui::bench::medianNanosecondsOf([&] { graph.paint(); });
    report.state(std::string(name) + "-time", time / 1e6, "ms");
}

void benchGrowth(Report& report, const char* name, int points, double limit)
{
    if (!report.wants(name)) {
        return;
    }
    Graph small(100, 100);
    Graph large(points, 100);
    const double ratio = ui::bench::medianRatio([&] { large.paint(); }, [&] { small.paint(); });
    if (limit > 0) {
        report.judge(name, ratio, "x-100-points", limit);
    } else {
        report.state(name, ratio, "x-100-points");
    }
}

/// One point of ten thousand goes to and fro, without anything being painted.
void benchMove(Report& report)
{
    const char* const name = "graph-move-1-of-10000";
    if (!report.wants(name)) {
        return;
    }
    constexpr int kSteps = 1000;
    Graph graph(10000, 100);
    GraphPointWidget* const point = graph.curve->points().at(5000);
    QGraphicsScene scene;
    scene.setItemIndexMethod(QGraphicsScene::NoIndex);
    auto* const parent = new QGraphicsRectItem;
    std::vector<QGraphicsRectItem*> plain;
    for (int i = 0; i < 10000; ++i) {
        auto* const item = new QGraphicsRectItem(-6, -6, 12, 12, parent);
        item->setPos(i * kDistance, 0);
        (new QGraphicsRectItem(-5, -5, 10, 10, item))->hide();
        (new QGraphicsRectItem(-5, -5, 10, 10, item))->hide();
        plain.push_back(item);
    }
    scene.addItem(parent);
    const QPointF home = point->pos();
    const double ratio = ui::bench::medianRatio(
        [&] {
            for (int step = 0; step < kSteps; ++step) {
                point->setPos(home + QPointF(step % 2 * 3.0, step % 7));
            }
        },
        [&] {
            for (int step = 0; step < kSteps; ++step) {
                plain.at(5000)->setPos(home + QPointF(step % 2 * 3.0, step % 7));
            }
        });
    report.judge(name, ratio, "x-setPos", 3.0);
}

/// What a drag's step of one point of ten thousand costs on the screen.
void benchDrag(Report& report)
{
    const char* const name = "graph-drag-1-of-10000-time";
    if (!report.wants(name)) {
        return;
    }
    Graph graph(10000, 100);
    makeCurved(graph);
    GraphPointWidget* const point = graph.curve->points().at(5000);
    const QPointF home = point->pos();
    int step = 0;
    const double time = ui::bench::medianNanosecondsOf([&] {
        ++step;
        point->setPos(home + QPointF(step % 2, step % 7));
        QCoreApplication::processEvents();
    });
    report.state(name, time / 1e6, "ms");
}

/// A mouse move over the curve, which asks what lies there.
void benchHover(Report& report)
{
    const char* const name = "graph-hover-10000-time";
    if (!report.wants(name)) {
        return;
    }
    Graph graph(10000, 100);
    makeCurved(graph);
    const double time = ui::bench::medianNanosecondsOf(
        [&] { (void)graph.view.items(kViewSize.width() / 2, kViewSize.height() / 2); });
    report.state(name, time / 1e3, "us");
}

} // namespace

int main(int argc, char** argv)
{
    return benchWithTheme(argc, argv, [](Report& report) {
        benchRepaint(report, "graph-repaint-10000-linear", 10000, false, 1.5);
        benchRepaint(report, "graph-repaint-10000-curved", 10000, true, 1.5);
        benchRepaint(report, "graph-repaint-100-of-10000", 100, false, 0);
        benchGrowth(report, "graph-repaint-1000", 1000, 3.0);
        benchGrowth(report, "graph-repaint-10000", 10000, 0);
        benchMove(report);
        benchDrag(report);
        benchHover(report);
    });
}
