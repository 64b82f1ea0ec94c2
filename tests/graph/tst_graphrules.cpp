// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/axislines.h"
#include "MorrantUI/graph/graphmoves.h"
#include "MorrantUI/scene/placematching.h"
#include "MorrantUI/scene/transformzones.h"
#include "support/TestCase.h"
#include <MorrantUI/graph/graphsegments.h>

using namespace ui::Graph;

class GraphRulesTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aShiftDragKeepsToTheAxisOnWhichItBegan()
    {
        using enum AxisSnappingMode;
        const auto locked = [](int x, int y, AxisSnappingMode present = None) {
            return lockedAxis({{100, 100}, {100 + x, 100 - y}, true, 10, present});
        };
        QVERIFY(locked(60, 10) == Horizontal && locked(-10, 30) == Vertical);
        QVERIFY(locked(20, 20) == Horizontal && locked(10, 10) == None);
        QVERIFY(locked(60, 70) == None && locked(60, 70, Vertical) == Vertical);
        QCOMPARE(lockedAxis({{}, {30, 0}, false, 10, Vertical}), None);
    }
    void pointsGoWhereTheyMay()
    {
        using enum AxisSnappingMode;
        const QPointF wanted(12.4, 7.5);
        QCOMPARE(acceptedPoint({wanted, {}, None, 5, {}}), QPointF(10, 10));
        QCOMPARE(acceptedPoint({{-12.5, -7.4}, {}, None, 5, {}}), QPointF(-15, -5));
        QCOMPARE(acceptedPoint({wanted, {1, 2}, Horizontal, {}, {}}), QPointF(12.4, 2));
        QCOMPARE(acceptedPoint({wanted, {1, 2}, Vertical, {}, {}}), QPointF(1, 7.5));
        QCOMPARE(acceptedPoint({{-3, 12}, {}, None, {}, 10}), QPointF(0, 10));
        QVERIFY(!isFinite(acceptedPoint({wanted, {}, None, 0, 10})));
    }
    void lockedHandlesTurnTogether()
    {
        const auto moved = [](HandleStep step, QPointF position, std::optional<QPointF> opposite) {
            step.locked = true;
            const HandleMove move = handleMove(step);
            QCOMPARE(move.position, position);
            QVERIFY(move.opposite == opposite);
        };
        const QPointF l(-5, 0);
        const QPointF r(10, 0);
        moved({.proposed = {0, 5}, .current = l, .opposite = r}, {0, 5}, QPointF(0, -10));
        moved({.proposed = {3, 5}, .current = l, .opposite = r}, {0, 5}, QPointF(0, -10));
        moved({.proposed = {3, 0}, .current = l, .opposite = r}, {0, 0}, {});
        moved({.proposed = {-1, 1}, .current = {}, .opposite = r, .ratio = 2}, {-1, 1}, {{2, -2}});
        moved({.proposed = {-1, 1}, .current = l, .opposite = {}}, {-1, 1}, {});
        moved({.proposed = {-8, 9}, .current = l, .opposite = r, .flat = true}, {-8, 0}, {{16, 0}});
        HandleStep slide{.proposed = {-8, 9}, .opposite = r, .slide = true, .direction = {-1, 1}};
        for (const auto& [from, to] : {std::pair(-4, QPointF(-8, 4)), {0, {0, 9}}}) {
            slide.current = QPointF(from, 2);
            moved(slide, to, {}); // straight up there is no division by nothing
        }
        slide.current = {};
        moved(slide, {-8, 8}, {}); // as it pointed when it was pressed
        QCOMPARE(
            handleMove({.proposed = {3, 4}, .current = l, .opposite = r}).position, QPointF(3, 4));
        moved({.proposed = l * 1e300, .current = l * 1e-300, .opposite = r * 1e300}, l * 1e300, {});
    }
    void aSegmentIsAFunctionOfTime()
    {
        std::mt19937 random(4); // NOLINT: every run the same
        std::uniform_real_distribution<double> any(-50, 50);
        std::uniform_real_distribution<double> share(0, 1);
        const auto place = [&] { return QPointF(any(random), any(random)); };
        for (int round = 0; round < 2000; ++round) {
            const QPointF from = place();
            const QPointF to(from.x() + std::abs(any(random)), any(random));
            const CurveLimits none{qInf(), -qInf(), qInf(), qInf()};
            const Segment raw{from, place(), place(), to, false};
            const Segment segment = limited(raw, round % 2 ? none : CurveLimits());
            const QRectF bounds = segmentBounds(segment).adjusted(0, -1e-9, 0, 1e-9);
            double before = segment.start.x();
            for (int step = 0; step <= 50; ++step) {
                const QPointF point = pointAt(segment, step / 50.0);
                QVERIFY(point.x() >= before - 1e-12);
                QVERIFY(point.y() >= bounds.top() && point.y() <= bounds.bottom());
                before = point.x();
            }
            const double x = segment.start.x() + share(random) * (before - segment.start.x());
            const QPointF there = pointAt(segment, parameterAt(segment, x));
            QVERIFY(std::abs(there.x() - x) < 1e-12 && valueAt(segment, x) == there.y());
            const auto [first, second] = splitAt(segment, x);
            const double other = segment.start.x() + share(random) * (before - segment.start.x());
            const double splitValue = valueAt(other < x ? first : second, other);
            QVERIFY(std::abs(splitValue - valueAt(segment, other)) < 1e-6);
        }
    }
    void theToolsCornersAreRoundOnEitherAxis()
    {
        const auto edge = ui::TransformZone::LeftEdge;
        const QPainterPath bar = ui::transformBar({0, 0, 40, 100}, {4, 20}, edge);
        QVERIFY(bar.contains(QPointF(3, 1)) && bar.contains(QPointF(0.1, 25)));
        QVERIFY(!bar.contains(QPointF(0.1, 8)) && !bar.contains(QPointF(5, 50)));
    }
    void axesHaveRoundSteps()
    {
        for (const auto& [least, step] :
             {std::pair(0.7, 1.0), {1.0, 1.0}, {1.2, 2.0}, {30.0, 50.0}, {0.06, 0.1}, {-1.0, 1.0}})
        {
            QCOMPARE(axisStep(least), step);
        }
        QCOMPARE(axisLines(-3, 5, 2), (std::vector<double>{-2, 0, 2, 4}));
        QVERIFY(
            axisLines(0, 1e9, 1).empty() && axisLines(1e18, 1e18 + 256, 1).size() <= 1000
            && axisLines(0, 9, 0).empty());
        QVERIFY(axisLabel(-0.0, 1) == u"0" && axisLabel(0.25, 0.05) == QLocale().toString(0.25));
    }
    void pointsGoOnAsTheKeysAtTheirPlaces()
    {
        const auto matched = [](QPolygonF shown, QPolygonF wanted) {
            QStringList texts;
            for (const auto& match :
                 ui::matchedPlaces({shown.begin(), shown.end()}, {wanted.begin(), wanted.end()}))
            {
                texts << (match ? QString::number(*match) : u"-"_qs);
            }
            return texts.join(u' ');
        };
        const QPointF a(0, 0);
        const QPointF b(5, 1);
        const QPointF c(9, 2);
        QCOMPARE(matched({a, b, c}, {a, {6, 1}, c}), u"0 1 2"_qs); // one is moved
        QCOMPARE(matched({a, c, b}, {a, b, c}), u"0 2 1"_qs);      // one has passed another
        QCOMPARE(matched({a, b, c}, {a, c}), u"0 2"_qs);           // one goes
        QCOMPARE(matched({a, c}, {a, b, c}), u"0 - 1"_qs);         // one comes
        QCOMPARE(matched({b, b}, {a, b}), u"0 1"_qs);              // one leaves another's place
    }
    void aHeldSegmentSteps()
    {
        const Segment hold{{0, 1}, {0, 1}, {4, 9}, {4, 9}, true};
        QVERIFY(valueAt(hold, 3.99) == 1.0 && valueAt(hold, 4) == 9.0);
        QCOMPARE(segmentBounds(hold), QRectF(0, 1, 4, 8));
        const Segment upright{{2, 1}, {2, 1}, {2, 5}, {2, 5}, false}; // two keys at one time
        QCOMPARE(valueAt(upright, 2), 5.0);
        QVERIFY(std::isfinite(valueAt(upright, std::nan(""))));
    }
};

const ui::test::Registration<GraphRulesTest> kRegistration;

#include "tst_graphrules.moc"
