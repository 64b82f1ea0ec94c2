// SPDX-License-Identifier: Apache-2.0
#include "GraphDesk.h"
#include <MorrantUI/theme/colors.h>

using ui::Graph::Interpolation;
using ui::Graph::Side;
using ui::test::closeTo;
using ui::test::GraphDesk;
using ui::test::pixelAt;

class GraphItemsTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aCurveFollowsItsPoints()
    {
        GraphDesk graph({{40, 10}, {0, 0}, {20, 30}}, true);
        std::mt19937 random(7);
        std::uniform_real_distribution<double> any(-50, 50);
        for (int round = 0; round < 300; ++round) {
            GraphPointWidget* const point = graph.point(static_cast<std::size_t>(round % 3));
            point->setPos(any(random), any(random));
            point->getLeftBezier()->setPos(2 * any(random), 2 * any(random));
            const auto segments = graph.curve->segments();
            QCOMPARE(segments.size(), std::size_t(2));
            for (const ui::Graph::Segment& each : segments) {
                const double x = (each.start.x() + each.end.x()) / 2;
                QCOMPARE(graph.curve->valueAt(x), ui::Graph::valueAt(each, x));
                QVERIFY(graph.curve->boundingRect().contains({x, *graph.curve->valueAt(x)}));
            }
        }
        QCOMPARE(graph.curve->valueAt(-90), graph.point(0)->y());
    }
    void whatIsNoPointWithHandlesEndsACurve()
    {
        GraphDesk graph({{0, 0}, {10, 0}, {20, 0}, {30, 0}});
        delete graph.left(2);
        QVERIFY(!graph.left(2) && !graph.right(2));
        QCOMPARE(graph.curve->segments().size(), std::size_t(1));
        graph.curve->setEndsAtBarePoints(false);
        QCOMPARE(graph.curve->segments().size(), std::size_t(3));
        auto* const other = new QGraphicsRectItem(graph.curve);
        other->setX(25);
        QCOMPARE(graph.curve->segments().size(), std::size_t(2));
        delete other;
        delete graph.point(0); // the first one's handles are not asked for
        QCOMPARE(graph.curve->boundingRect(), QRectF(10, 0, 20, 0));
    }
    void handlesShowWhereTheyLead()
    {
        GraphDesk graph({{0, 0}, {10, 0}, {20, 0}}, true);
        const auto shown = [&] {
            QString text;
            for (GraphPointWidget* const point : graph.curve->points()) {
                text += point->getLeftBezier()->isVisible() ? u'<' : u'-';
                text += point->getRightBezier()->isVisible() ? u'>' : u'-';
            }
            return text;
        };
        QCOMPARE(shown(), u"<><><-"_qs);
        graph.point(1)->setPos(30, 0); // which is the last one then
        QCOMPARE(shown(), u"<><><-"_qs);
        graph.point(1)->setHolding(true);
        QCOMPARE(shown(), u"<><-<-"_qs);
        graph.left(1)->placeSilently({});
        graph.left(1)->soloPointCheck();
        QCOMPARE(shown(), u"<>--<-"_qs);
        graph.point(0)->setInterpolation(Interpolation::Linear, true);
        QCOMPARE(shown(), u"----<-"_qs);
        QCOMPARE(graph.handleChanges + graph.pointChanges, 1); // of the point that moved
    }
    void lockingPutsHandlesOppositeEachOther()
    {
        GraphDesk graph({{0, 0}, {10, 0}});
        GraphPointWidget* const point = graph.point(0);
        point->setLockedBeziers(true, false); // both lie on the point
        QCOMPARE(graph.left(0)->pos(), QPointF());
        graph.right(0)->placeSilently({4, 3});
        for (const bool silent : {true, false}) {
            point->setLockedBeziers(true, silent);
            QCOMPARE(graph.left(0)->dataPosition(), silent ? QPointF() : QPointF(-4, 3));
        }
        graph.left(0)->setPos(-8, -6);
        QCOMPARE(graph.right(0)->pos(), QPointF(8, 6));
        graph.left(0)->setPos(std::nan(""), 0);
        QCOMPARE(graph.left(0)->pos(), QPointF(-8, -6));
        point->setEnableUpdates(false);
        graph.left(0)->setPos(7, 7);
        QCOMPARE(graph.left(0)->pos(), QPointF(7, 7));
        QCOMPARE(graph.handleChanges, 1);
    }
    void everythingIsDrawnInItsColors()
    {
        GraphDesk graph({{20, 20}, {60, 20}, {80, 60}}, true);
        const auto colorAt = [&](const QGraphicsItem* item, QPointF offset = {}) {
            const QImage image = graph.viewport()->grab().toImage();
            return pixelAt(image, graph.mapFromScene(item->scenePos()) + offset);
        };
        for (const QString& name : {u"Light"_qs, u"Accent1"_qs}) {
            QVERIFY(closeTo(colorAt(graph.point(1), {0, -3}), ui::colorQt(name)));
            QVERIFY(closeTo(colorAt(graph.right(0), {0, 2.5}), ui::colorQt(name)));
            graph.select({1});
            graph.right(0)->setSelected(true);
        }
        const auto between = [&] { return colorAt(graph.point(0), {80, 0}); };
        QVERIFY(closeTo(between(), ui::colorQt(u"Text"_qs), 40));
        graph.curve->setColor(Qt::green);
        QVERIFY(closeTo(between(), Qt::green, 40));
        graph.curve->setFlag(QGraphicsItem::ItemIsSelectable);
        graph.curve->setSelected(true);
        QVERIFY(closeTo(between(), ui::colorQt(u"Yellow"_qs), 40));
        const QColor ground = colorAt(graph.point(0), {-40, 0});
        graph.curve->setLimits({0, -1e9, 100, 1e9});
        const auto painted = [&ground](const GraphDesk& on, double from, double to) {
            const QImage image = on.viewport()->grab().toImage();
            int count = 0; // of a level line's pixels
            for (double x = from; x < to; x += 0.25) {
                count += pixelAt(image, on.mapFromScene(x, 20)) != ground ? 1 : 0;
            }
            return count;
        };
        const int dots = painted(graph, 5, 15);
        QVERIFY2(dots > 4 && dots < 36, qPrintable(QString::number(dots)));
        graph.point(1)->setHolding(true);
        QVERIFY(colorAt(graph.point(1), {78, 0}) != ground); // up to the next point, and there down
        graph.left(1)->placeSilently({-3e307, 0}); // whose quarters of a pixel nobody can count
        QVERIFY(colorAt(graph.point(2), {0, -80}) != ground);

        GraphDesk level({{20, 20}, {60, 20}});
        level.curve->setLimits({-qInf(), -qInf(), qInf(), qInf()});
        QVERIFY(painted(level, 0, 15) > 10 && painted(level, 65, 100) > 10);
        QVERIFY(painted(level, 25, 55) > 110);
    }
    void nothingIsPaintedWithoutNeed()
    {
        struct Counted : GraphCurveWidget
        {
            QColor lineColor() const override { return ++paints, GraphCurveWidget::lineColor(); }
            mutable int paints = 0;
        };
        GraphDesk graph;
        auto* const curve = new Counted;
        graph.addPoint(curve, {4000, 10}, true); // out of sight, and so is the curve's origin
        graph.addPoint(curve, {4050, 30}, true);
        graph.desk->setSceneRect(0, 0, 5000, 100);
        graph.desk->addItem(curve);
        QTest::qWait(60);
        QCOMPARE(curve->paints, 0);
        graph.centerOn(4020, 20);
        QTest::qWait(60);
        QVERIFY(curve->paints > 0);
        curve->paints = 0;
        graph.zoomAt({1.1, 0.7}, {300, 300});
        QTest::qWait(180);
        QCOMPARE(curve->paints, 1);
    }
};

const ui::test::Registration<GraphItemsTest> kRegistration;

#include "tst_graphitems.moc"
