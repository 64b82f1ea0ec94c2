#include "lottie/easing.h"
#include "lottie/evaluate.h"
#include "lottie/spatial.h"
#include "lottietexts.h"
#include "support/TestCase.h"

#include <cmath>
#include <numbers>

using namespace studio;
using namespace studio::test;

class LottieEvaluateTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void easingFollowsTheBezier_data();
    void easingFollowsTheBezier();
    void easingSolvesSteepAndFlatCurvesToNineDigits();
    void aPropertyFollowsItsKeys_data();
    void aPropertyFollowsItsKeys();
    void eachDimensionHasItsOwnEasing();
    void aSpatialCurveIsWalkedAtAnEvenPace();
    void overshootLeavesASpatialCurveStraightOn();
    void outlinesOfDifferentLengthsHold();
    void aTransformScalesThenSkewsThenTurnsThenMoves_data();
    void aTransformScalesThenSkewsThenTurnsThenMoves();
    void parentsApplyFromTheNearestUp();
    void autoOrientTurnsAlongThePath();
    void innerTimeShiftsStretchesAndRemaps_data();
    void innerTimeShiftsStretchesAndRemaps();
};

void LottieEvaluateTest::easingFollowsTheBezier_data()
{
    QTest::addColumn<double>("time");
    QTest::addColumn<QList<double>>("handles");
    QTest::addColumn<double>("expected");

    const QList<double> linear{0.25, 0.25, 0.75, 0.75};
    const QList<double> easy{0.5, 0.0, 0.5, 1.0};
    QTest::newRow("linear") << 0.3 << linear << 0.3;
    QTest::newRow("before the start") << -1.0 << easy << 0.0;
    QTest::newRow("past the end") << 2.0 << easy << 1.0;
    QTest::newRow("not a number") << std::nan("") << easy << 0.0;
    QTest::newRow("middle of a symmetric one") << 0.5 << easy << 0.5;
    // At t = 0.5: x = (3a + 3b + 1) / 8, y likewise.
    QTest::newRow("ease out") << 0.25 << QList<double>{0.0, 0.0, 1.0 / 3, 1.0} << 0.5;
    QTest::newRow("overshoot") << 0.5 << QList<double>{0.5, 3.0, 0.5, 1.0} << 1.625;
    QTest::newRow("undershoot") << 0.5 << QList<double>{0.5, -3.0, 0.5, 1.0} << -0.625;
    QTest::newRow("handles beyond the segment") << 0.5 << QList<double>{-9.0, 0.0, 9.0, 1.0} << 0.5;
}

void LottieEvaluateTest::easingFollowsTheBezier()
{
    QFETCH(double, time);
    QFETCH(QList<double>, handles);
    QFETCH(double, expected);

    const double result = ease(time, {handles[0], handles[1]}, {handles[2], handles[3]});

    QVERIFY2(std::abs(result - expected) < 1e-9, qPrintable(QString::number(result, 'g', 17)));
}

void LottieEvaluateTest::easingSolvesSteepAndFlatCurvesToNineDigits()
{
    const double ends[] = {0.0, 1e-6, 0.1, 0.5, 0.9, 1.0};
    double worst = 0;
    for (const double a : ends) {
        for (const double b : ends) {
            for (int i = 1; i < 50; ++i) {
                // The value at a known parameter must be found from the time at it.
                const double t = i / 50.0;
                const double u = 1 - t;
                const double x = 3 * u * u * t * a + 3 * u * t * t * b + t * t * t;
                const double y = 3 * u * t * t + t * t * t;
                const double slope = 3 * u * u * a + 6 * u * t * (b - a) + 3 * t * t * (1 - b);
                if (slope > 1e-4)
                { // where the curve stands still, time does not tell the parameter
                    worst = std::max(worst, std::abs(ease(x, {a, 0}, {b, 1}) - y));
                }
            }
        }
    }
    QVERIFY2(worst < 2e-9, qPrintable(QString::number(worst)));
}

void LottieEvaluateTest::aPropertyFollowsItsKeys_data()
{
    QTest::addColumn<QByteArray>("keys");
    QTest::addColumn<double>("frame");
    QTest::addColumn<double>("expected");

    const QByteArray linear = R"([{"t":10,"s":[0]},{"t":20,"s":[100]}])";
    QTest::newRow("before the first key") << linear << 0.0 << 0.0;
    QTest::newRow("without handles, in proportion") << linear << 12.5 << 25.0;
    QTest::newRow("on the last key") << linear << 20.0 << 100.0;
    QTest::newRow("after the last key") << linear << 99.0 << 100.0;
    QTest::newRow("bare numbers for lists")
        << QByteArray(R"([{"t":0,"s":1},{"t":10,"s":2}])") << 5.0 << 1.5;
    QTest::newRow("one key only") << QByteArray(R"([{"t":10,"s":[7]}])") << 0.0 << 7.0;

    const QByteArray hold = R"([{"t":0,"s":[1],"h":1},{"t":10,"s":[2]}])";
    QTest::newRow("held to the last moment") << hold << 9.999 << 1.0;
    QTest::newRow("released on the next key") << hold << 10.0 << 2.0;

    const QByteArray old = R"([{"t":0,"s":[1],"e":[3]},{"t":10}])";
    QTest::newRow("a last key without a value: the earlier key's end") << old << 5.0 << 2.0;
    QTest::newRow("and after it") << old << 11.0 << 3.0;

    const QByteArray jump =
        R"([{"t":0,"s":[0]},{"t":5,"s":[10]},{"t":5,"s":[50]},{"t":10,"s":[60]}])";
    QTest::newRow("a jump, before") << jump << 4.0 << 8.0;
    QTest::newRow("a jump, on its frame: the later key") << jump << 5.0 << 50.0;
    QTest::newRow("a jump, after") << jump << 6.0 << 52.0;

    QTest::newRow("keys out of order")
        << QByteArray(R"([{"t":10,"s":[100]},{"t":0,"s":[0]}])") << 5.0 << 50.0;
    QTest::newRow("eased, overshooting")
        << QByteArray(R"([{"t":0,"s":[0],"o":{"x":0.5,"y":3},"i":{"x":[0.5],"y":[1]}},)"
                      R"({"t":10,"s":[100]}])")
        << 5.0 << 162.5;
    QTest::newRow("a last key with easing")
        << QByteArray(R"([{"t":0,"s":[4],"o":{"x":0.5,"y":0},"i":{"x":0.5,"y":1}}])") << 8.0 << 4.0;
    QTest::newRow("fractional times")
        << QByteArray(R"([{"t":0.25,"s":[0]},{"t":0.75,"s":[1]}])") << 0.5 << 0.5;
}

void LottieEvaluateTest::aPropertyFollowsItsKeys()
{
    QFETCH(QByteArray, keys);
    QFETCH(double, frame);
    QFETCH(double, expected);

    const double value = scalarAt(rotation(keys), frame);

    QVERIFY2(std::abs(value - expected) < 1e-6, qPrintable(QString::number(value)));
}

void LottieEvaluateTest::eachDimensionHasItsOwnEasing()
{
    const Document document = readText(documentText(layer(
        R"("ty":3,"ks":{"s":{"k":[{"t":0,"s":[0,0,0],)"
        R"("o":{"x":[0.5,0.25,0.5],"y":[3,0.25,-3]},"i":{"x":[0.5,0.75,0.5],"y":[1,0.75,1]}},)"
        R"({"t":10,"s":[100,100,100]}]}})")));
    QCOMPARE(document.main.layers.size(), std::size_t(1));

    const Numbers scale = valueAt(document.main.layers[0].transform.scale, 5);

    QCOMPARE(scale[0], 162.5);
    QCOMPARE(scale[1], 50.0);
    QCOMPARE(scale[2], -62.5);
}

void LottieEvaluateTest::aSpatialCurveIsWalkedAtAnEvenPace()
{
    // Control points bunched at the start: in the bezier's own parameter, half would be near it.
    const SpatialCurve straight{{0, 0}, {0, 0}, {10, 0}, {100, 0}};
    for (const double share : {0.1, 0.5, 0.9}) {
        QVERIFY(std::abs(pointAlong(straight, share)[0] - 100 * share) < 1e-3);
    }
    // A quarter of a circle: equal shares turn by equal angles.
    constexpr double kCircle = 55.2284749831;
    const SpatialCurve quarter{{100, 0}, {100, kCircle}, {kCircle, 100}, {0, 100}};
    const Point third = pointAlong(quarter, 1.0 / 3);
    QVERIFY(std::abs(std::atan2(third[1], third[0]) - std::numbers::pi / 6) < 1e-3);
    // No length at all.
    const SpatialCurve still{{5, 6}, {5, 6}, {5, 6}, {5, 6}};
    QCOMPARE(pointAlong(still, 0.5), (Point{5, 6}));
}

void LottieEvaluateTest::overshootLeavesASpatialCurveStraightOn()
{
    const SpatialCurve curve{{0, 0}, {0, 50}, {50, 100}, {100, 100}};
    const double length = pointAlong(curve, 2)[0] - 100;

    QVERIFY(length > 140 && length < 200);
    const Point half = pointAlong(curve, 1.5);
    QVERIFY(std::abs(half[0] - 100 - length / 2) < 1e-6 && std::abs(half[1] - 100) < 1e-6);
    QVERIFY(std::abs(pointAlong(curve, -1)[1] + length) < 1e-6);
}

void LottieEvaluateTest::outlinesOfDifferentLengthsHold()
{
    const QByteArray two = R"({"c":true,"v":[[0,0],[10,0]],"i":[],"o":[]})";
    const QByteArray shifted = R"({"c":true,"v":[[10,0],[20,0]],"i":[[0,4]],"o":[]})";
    const QByteArray three = R"({"c":true,"v":[[50,0],[60,0],[70,0]],"i":[],"o":[]})";
    const Document document = readText(documentText(shapeLayer(
        R"({"ty":"sh","ks":{"k":[{"t":0,"s":[)" + two + R"(]},{"t":10,"s":[)" + shifted
        + R"(]},{"t":20,"s":[)" + three + "]}]}}")));
    QCOMPARE(document.main.layers.size(), std::size_t(1));
    const auto& path = std::get<PathShape>(document.main.layers[0].shapes.at(0).shape).path;

    QCOMPARE(valueAt(path, 5).vertices[1][0], 15.0);
    QCOMPARE(valueAt(path, 5).inTangents[0][1], 2.0);
    QCOMPARE(valueAt(path, 15).vertices[1][0], 20.0);
    QCOMPARE(valueAt(path, 20).vertices.size(), std::size_t(3));
}

void LottieEvaluateTest::aTransformScalesThenSkewsThenTurnsThenMoves_data()
{
    QTest::addColumn<QByteArray>("transform");
    QTest::addColumn<QPointF>("expected"); // of the point (10, 0)

    QTest::newRow("none") << QByteArray() << QPointF(10, 0);
    QTest::newRow("anchor") << QByteArray(R"("a":{"k":[10,5]})") << QPointF(0, -5);
    QTest::newRow("scale from the anchor")
        << QByteArray(R"("a":{"k":[5,0]},"s":{"k":[200,100]})") << QPointF(10, 0);
    QTest::newRow("clockwise") << QByteArray(R"("r":{"k":90})") << QPointF(0, 10);
    QTest::newRow("all") << QByteArray(
        R"("a":{"k":[5,0]},"s":{"k":[200,50]},"r":{"k":90},"p":{"k":[100,7]})")
                         << QPointF(100, 17);
    QTest::newRow("skew along the axis of y")
        << QByteArray(R"("sk":{"k":45},"sa":{"k":90})") << QPointF(10, 10);
    QTest::newRow("split position")
        << QByteArray(R"("p":{"s":true,"x":{"k":3},"y":{"k":4}})") << QPointF(13, 4);
    QTest::newRow("the angle in the plane") << QByteArray(R"("rz":{"k":90})") << QPointF(0, 10);
}

void LottieEvaluateTest::aTransformScalesThenSkewsThenTurnsThenMoves()
{
    QFETCH(QByteArray, transform);
    QFETCH(QPointF, expected);
    const Document document = readText(documentText(shapeLayer({}, transform)));
    QCOMPARE(document.main.layers.size(), std::size_t(1));

    const SkPoint point = matrixAt(document.main.layers[0].transform, 0).mapPoint({10, 0});

    QVERIFY2(
        std::hypot(point.x() - expected.x(), point.y() - expected.y()) < 1e-4,
        qPrintable(QStringLiteral("%1, %2").arg(point.x()).arg(point.y())));
}

void LottieEvaluateTest::parentsApplyFromTheNearestUp()
{
    const Document document = readText(documentText(
        layer(R"("ty":3,"ind":7,"parent":3,"ks":{"p":{"k":[10,0]}})") + ","
        + layer(R"("ty":3,"ind":3,"parent":9,"ks":{"r":{"k":90}})") + ","
        + layer(R"("ty":3,"ind":9,"ks":{"p":{"k":[100,0]}})") + ","
        + layer(R"("ty":3,"ind":4,"parent":55,"ks":{"p":{"k":[1,2]}})")));
    QCOMPARE(document.main.layers.size(), std::size_t(4));

    const auto origin = [&](std::size_t i) {
        return layerMatrix(document.main, document.main.layers[i], 0).mapPoint({0, 0});
    };

    QVERIFY((origin(0) - SkPoint::Make(100, 10)).length() < 1e-4);
    QVERIFY((origin(3) - SkPoint::Make(1, 2)).length() < 1e-4); // a parent that is not there
}

void LottieEvaluateTest::autoOrientTurnsAlongThePath()
{
    const Document document = readText(documentText(
        layer(R"("ty":3,"ao":1,"ks":{"p":{"k":[{"t":0,"s":[0,0]},{"t":10,"s":[0,50]}]}})")));
    QCOMPARE(document.main.layers.size(), std::size_t(1));

    const SkVector right = matrixAt(document.main.layers[0].transform, 5).mapVector(1, 0);

    QVERIFY(std::abs(right.x()) < 1e-3 && right.y() > 0.99f);
}

void LottieEvaluateTest::innerTimeShiftsStretchesAndRemaps_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<double>("expected"); // at frame 20, ten frames a second

    QTest::newRow("start time") << QByteArray(R"("st":5)") << 15.0;
    QTest::newRow("stretch") << QByteArray(R"("st":10,"sr":2)") << 5.0;
    QTest::newRow("no stretch") << QByteArray(R"("st":0,"sr":0)") << 20.0;
    QTest::newRow("remap, in seconds") << QByteArray(R"("st":9,"tm":{"k":1.5})") << 15.0;
    QTest::newRow("remap to the end: its last frame") << QByteArray(R"("tm":{"k":10})") << 99.0;
}

void LottieEvaluateTest::innerTimeShiftsStretchesAndRemaps()
{
    QFETCH(QByteArray, members);
    QFETCH(double, expected);
    const Document document =
        readText(documentText(R"({"ty":0,"refId":"x","op":100,)" + members + "}"));
    QCOMPARE(document.main.layers.size(), std::size_t(1));

    QCOMPARE(innerFrame(document.main.layers[0], 20, document.frameRate), expected);
}

const ui::test::Registration<LottieEvaluateTest> kRegistration;

#include "tst_lottieevaluate.moc"
