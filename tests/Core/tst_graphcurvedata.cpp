// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"

#include <Core/GraphCurveData.h>

using morrant::KeyInterpolationType;

// Pairs compute component by component.
static_assert(2.0 * (num2(6.0, -3.0) + num2(2.0, 4.0)) == num2(16.0, 2.0));
static_assert(-(num2(6.0, -3.0) - num2(2.0, 4.0)) / 2.0 == num2(-2.0, 3.5));

namespace {

/// "index:time index:time", in the order of the curve.
QString told(const GraphCurveData& curve)
{
    QStringList texts;
    for (const GraphCurveKey& key : curve.keys()) {
        texts << u"%1:%2"_qs.arg(key.index).arg(key.time);
    }
    return texts.join(u' ');
}

} // namespace

class GraphCurveDataTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void keysStayInOrderAndKeepTheirIdentity()
    {
        GraphCurveData curve;
        for (const double time : {0.5, 0.0, -3.0, 0.5}) {
            curve.add(time, 7.0);
        }
        QCOMPARE(told(curve), u"1:0 2:0 0:0.5 3:0.5"_qs);
        QVERIFY(curve.move(1, 0.5, 0.0)); // from the left: before those that are there
        QVERIFY(curve.move(3, 0.0, 0.0)); // from the right: behind
        QCOMPARE(told(curve), u"2:0 3:0 1:0.5 0:0.5"_qs);
        QVERIFY(curve.move(1, 0.7, 0.0) && curve.remove(3));
        QCOMPARE(curve.add(1.0, 1.0), 4); // the removed key's identity is not given again
        const GraphCurveData before = curve;
        QVERIFY(!curve.remove(3) && !curve.move(3, 0, 0) && !curve.setHandlesLocked(-1, false));
        QVERIFY(!curve.move(0, qQNaN(), 0) && !curve.setHandles(0, {0, qInf()}, {}));
        QVERIFY(curve.add(qInf(), 0) == -1 && curve == before);
        std::vector<GraphCurveKey> keys(3); // from elsewhere: one index for all
        keys[0].time = 2;
        keys[1].value = qQNaN();
        curve.setKeys(keys);
        QCOMPARE(told(curve), u"0:0 5:1"_qs);
    }

    void theCurveHoldsItsEndsJumpsAndPassesItsKeys()
    {
        GraphCurveData curve;
        QCOMPARE(curve.evaluate(0.5), 0.0);
        for (const auto& key : {num2(0.2, 0.5), num2(0.6, 0.9), num2(0.6, 0.1), num2(0.6, 0.3)}) {
            curve.add(key.x, key.y);
        }
        const num2<double> wanted[] = {
            {-qInf(), 0.5}, {qQNaN(), 0.5}, {0.2, 0.5}, {0.3, 0.6}, {0.6, 0.3}, {2, 0.3}};
        for (const auto& [time, value] : wanted) {
            QVERIFY2(std::abs(curve.evaluate(time) - value) < 1e-15, qPrintable(told(curve)));
        }
    }

    void curvesAgreeWithBisection()
    {
        std::mt19937 random(7);
        std::uniform_real_distribution<double> within(0, 1);
        std::uniform_real_distribution<double> beyond(-2, 2);
        const auto at = [](const double(&p)[4], double t) {
            const double u = 1 - t;
            return u * u * (u * p[0] + 3 * t * p[1]) + t * t * (3 * u * p[2] + t * p[3]);
        };
        for (int round = 0; round < 2000; ++round) {
            GraphCurveData curve;
            double x[4] = {0, 0, 1, 1};
            double y[4] = {};
            for (const int end : {0, 1}) {
                const bool bends = ((round >> end) & 3) != 0;
                const num2 pull(beyond(random), beyond(random));
                y[3 * end] = within(random);
                curve.add(end, y[3 * end], static_cast<KeyInterpolationType>(!bends));
                curve.setHandles(end, pull, pull);
                x[1 + end] = bends ? std::clamp(end + pull.x, 0.0, 1.0) : end;
                y[1 + end] = bends ? std::clamp(y[3 * end] + pull.y, 0.0, 1.0) : y[3 * end];
            }
            const double time = std::pow(within(random), round % 5 == 0 ? 12 : 1);
            double low = 0;
            for (double step = 0.5; step > 1e-17; step /= 2) {
                low += at(x, low + step) < time ? step : 0;
            }
            QVERIFY(std::abs(curve.evaluate(time) - at(y, low)) < 1e-9);
        }
    }
};

const ui::test::Registration<GraphCurveDataTest> kRegistration;

#include "tst_graphcurvedata.moc"
