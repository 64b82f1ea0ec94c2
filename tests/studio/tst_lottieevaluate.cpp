// SPDX-License-Identifier: Apache-2.0
#include "lottie/easing.h"
#include "lottie/evaluate.h"
#include "lottie/spatial.h"
#include "lottietexts.h"
#include "support/TestCase.h"

using namespace studio;
using namespace studio::test;

namespace {

bool isNear(double value, double expected, double tolerance = 1e-9)
{
    return std::abs(value - expected) < tolerance;
}

bool isNear(SkPoint point, SkPoint expected, float tolerance = 1e-4f)
{
    return (point - expected).length() < tolerance;
}

} // namespace

class LottieEvaluateTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void easingSolvesAllCurvesToNineDigits()
    {
        QCOMPARE(ease(-1, {0.5, 3}, {0.5, 1}), 0.0);
        QCOMPARE(ease(2, {0.5, 3}, {0.5, 1}), 1.0);
        QCOMPARE(ease(std::nan(""), {0.5, 3}, {0.5, 1}), 0.0);
        QVERIFY(isNear(ease(0.5, {0.5, 3}, {0.5, 1}), 1.625));
        QVERIFY(isNear(ease(0.5, {0.5, -3}, {0.5, 1}), -0.625));
        QVERIFY(isNear(ease(0.5, {-9, 0}, {9, 1}), 0.5));

        const double ends[] = {0.0, 1e-6, 0.1, 0.5, 0.9, 1.0};
        for (const double a : ends) {
            for (const double b : ends) {
                for (double t = 0.02; t < 0.99; t += 0.02) {
                    // The value at a known parameter must be found from the time at it.
                    const double u = 1 - t;
                    const double x = 3 * u * u * t * a + 3 * u * t * t * b + t * t * t;
                    const double y = 3 * u * t * t + t * t * t;
                    const double slope = 3 * u * u * a + 6 * u * t * (b - a) + 3 * t * t * (1 - b);
                    // Where the curve stands still, time does not tell the parameter.
                    QVERIFY(slope < 1e-4 || isNear(ease(x, {a, 0}, {b, 1}), y, 2e-9));
                }
            }
        }
    }

    void aPropertyFollowsItsKeys()
    {
        using Values = QList<std::pair<double, double>>; // of a frame
        const std::pair<const char*, Values> cases[] = {
            {R"({"t":10,"s":[0]},{"t":20,"s":[100]})", {{0, 0}, {12.5, 25}, {20, 100}, {99, 100}}},
            {R"({"t":10,"s":[7]})", {{0, 7}, {20, 7}}},
            {R"({"t":0,"s":[1],"h":1},{"t":10,"s":[2]})", {{9.999, 1}, {10, 2}}},
            // A last key without a value has the earlier key's end.
            {R"({"t":0,"s":[1],"e":[3]},{"t":10})", {{5, 2}, {11, 3}}},
            // A jump: on its frame the later key counts.
            {R"({"t":0,"s":[0]},{"t":5,"s":[10]},{"t":5,"s":[50]},{"t":10,"s":[60]})",
             {{4, 8}, {5, 50}, {6, 52}}},
            {R"({"t":10,"s":[100]},{"t":0,"s":[0]})", {{5, 50}}},
            {R"({"t":0,"s":[0],"o":{"x":0.5,"y":3},"i":{"x":[0.5],"y":[1]}},{"t":10,"s":[100]})",
             {{5, 162.5}}},
            {R"({"t":0.25,"s":0},{"t":0.75,"s":1})", {{0.5, 0.5}}},
        };
        for (const auto& [keys, values] : cases) {
            const Layer turned = onlyLayer(QByteArray(R"("ty":3,"ks":{"r":{"k":[)") + keys + "]}}");
            for (const auto& [frame, expected] : values) {
                QVERIFY2(isNear(scalarAt(turned.transform.rotation, frame), expected), keys);
            }
        }

        // Each dimension has its own easing.
        const Layer scaled = onlyLayer(
            R"("ty":3,"ks":{"s":{"k":[{"t":0,"s":[0,0,0],)"
            R"("o":{"x":[0.5,0.25,0.5],"y":[3,0.25,-3]},"i":{"x":[0.5,0.75,0.5],"y":[1,0.75,1]}},)"
            R"({"t":10,"s":[100,100,100]}]}})");
        QCOMPARE(valueAt(scaled.transform.scale, 5), (Numbers{162.5, 50, -62.5, 0}));
    }

    void aSpatialCurveIsWalkedAtAnEvenPaceAndLeftStraightOn()
    {
        // Control points bunched at the start: in the bezier's own parameter, half would be near
        // it.
        const SpatialCurve straight{{0, 0}, {0, 0}, {10, 0}, {100, 0}};
        QVERIFY(isNear(pointAlong(straight, 0.1)[0], 10, 1e-3));
        const SpatialCurve still{{5, 6}, {5, 6}, {5, 6}, {5, 6}};
        QCOMPARE(pointAlong(still, 0.5), (Point{5, 6}));

        // A quarter of a circle: a third of the time turns by a third of the angle.
        const Layer quarter =
            onlyLayer(R"("ty":3,"ao":1,"ks":{"p":{"k":[{"t":9,"s":[0,100]},)"
                      R"({"t":0,"s":[100,0],"to":[0,55.2284749831],"ti":[55.2284749831,0]}]}})");
        const SkMatrix third = matrixAt(quarter.transform, 3);
        QVERIFY(isNear(third.mapPoint({0, 0}), {86.6025f, 50}, 0.1f));
        QVERIFY(isNear(third.mapVector(1, 0), {-0.5f, 0.866025f}, 0.01f));

        const SpatialCurve curve{{0, 0}, {0, 50}, {50, 100}, {100, 100}};
        const double length = pointAlong(curve, 2)[0] - 100;
        QVERIFY(length > 140 && length < 200);
        const Point half = pointAlong(curve, 1.5);
        QVERIFY(isNear(half[0], 100 + length / 2, 1e-6) && isNear(half[1], 100, 1e-6));
        QVERIFY(isNear(pointAlong(curve, -1)[1], -length, 1e-6));
    }

    void outlinesOfDifferentLengthsHold()
    {
        const Layer shown =
            onlyLayer(R"("ty":4,"shapes":[{"ty":"sh","ks":{"k":[)"
                      R"({"t":0,"s":[{"c":true,"v":[[0,0],[10,0]],"i":[],"o":[]}]},)"
                      R"({"t":10,"s":[{"c":true,"v":[[10,0],[20,0]],"i":[[0,4]],"o":[]}]},)"
                      R"({"t":20,"s":[{"c":true,"v":[[50,0],[60,0],[70,0]],"i":[],"o":[]}]}]}}])");
        const auto& path = std::get<PathShape>(shown.shapes.at(0).shape).path;
        QCOMPARE(valueAt(path, 5).vertices[1][0], 15.0);
        QCOMPARE(valueAt(path, 5).inTangents[0][1], 2.0);
        QCOMPARE(valueAt(path, 15).vertices[1][0], 20.0);
    }

    void aTransformScalesSkewsTurnsMovesThenItsParentsDo()
    {
        const std::pair<const char*, SkPoint> cases[] = {
            {R"("rz":{"k":90})", {0, 10}}, // clockwise
            {R"("a":{"k":[5,0]},"s":{"k":[200,50]},"r":{"k":90},"p":{"k":[100,7]})", {100, 17}},
            {R"("s":{"k":[200,100]},"sk":{"k":45},"sa":{"k":90})", {20, 20}},
            {R"("p":{"s":true,"x":{"k":3},"y":{"k":4}})", {13, 4}},
        };
        for (const auto& [members, expected] : cases) {
            const Layer moved = onlyLayer(QByteArray(R"("ty":3,"ks":{)") + members + "}");
            QVERIFY2(isNear(matrixAt(moved.transform, 0).mapPoint({10, 0}), expected), members);
        }

        const Document document = documentOf(
            layer(R"("ty":3,"ind":7,"parent":3,"ks":{"p":{"k":[10,0]}})") + ","
            + layer(R"("ty":3,"ind":3,"parent":9,"ks":{"r":{"k":90}})") + ","
            + layer(R"("ty":3,"ind":9,"parent":55,"ks":{"p":{"k":[100,0]}})")); // 55 is not there
        const SkMatrix matrix = layerMatrix(document.main, document.main.layers.at(0), 0);
        QVERIFY(isNear(matrix.mapPoint({0, 0}), {100, 10}));
    }

    void innerTimeShiftsStretchesAndRemaps()
    {
        const std::pair<const char*, double> cases[] = {
            {R"("st":10,"sr":2)", 5},
            {R"("st":5,"sr":0)", 15},
            {R"("st":9,"tm":{"k":1.5})", 15}, // in seconds
            {R"("tm":{"k":10})", 99},         // to the end: its last frame
        };
        for (const auto& [members, expected] : cases) {
            const Layer inner = onlyLayer(QByteArray(R"("ty":0,"refId":"x",)") + members);
            QVERIFY2(innerFrame(inner, 20, 10) == expected, members);
        }
    }
};

const ui::test::Registration<LottieEvaluateTest> kRegistration;

#include "tst_lottieevaluate.moc"
