#include "support/TestCase.h"
#include <MorrantUI/controls/gestures/modifiers.h>
#include <MorrantUI/controls/values/colortext.h>
#include <MorrantUI/controls/values/padmath.h>
#include <MorrantUI/controls/values/slidermath.h>
#include <MorrantUI/controls/values/valueformat.h>

#include <QMimeData>

#include <cmath>
#include <numbers>

class PadMathTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aDirectionCountsClockwiseFromUp();
    void turningAddsUpAcrossTheTopAndThroughTheCenter();
    void anAngleIsToldAsWholeTurnsAndDegrees();
    void pointsAndPairsOfAPadFitEachOther();
    void pointsAndValuesOfASliderFitEachOther();
    void aSliderStepsButReachesItsEnds();
    void theFillBeginsAtZeroOrAtTheLowerEnd();
    void aColorSurvivesItsText();
    void whatIsNoColorIsRefused();
};

void PadMathTest::aDirectionCountsClockwiseFromUp()
{
    QCOMPARE(ui::directionOf({0, -10}), 0.0);
    QCOMPARE(ui::directionOf({10, 0}), 90.0);
    QCOMPARE(ui::directionOf({0, 10}), 180.0);
    QCOMPARE(ui::directionOf({-10, -10}), 315.0);
    QCOMPARE(ui::directionOf({1, 1}), std::nullopt);
    QCOMPARE(ui::directionOf({std::nan(""), 50}), std::nullopt);

    QCOMPARE(ui::shortestTurn(350, 10), 20.0);
    QCOMPARE(ui::shortestTurn(10, 350), -20.0);
    QCOMPARE(ui::shortestTurn(0, 180), 180.0);
    QCOMPARE(ui::shortestTurn(180, 0), 180.0);
}

void PadMathTest::turningAddsUpAcrossTheTopAndThroughTheCenter()
{
    const auto at = [](double degrees, double radius) {
        const double radians = degrees * std::numbers::pi / 180.0;
        return QPointF(std::sin(radians) * radius, -std::cos(radians) * radius);
    };
    ui::TurnTracker tracker;
    tracker.start(at(90, 20));
    double turned = 0.0;
    for (int degrees = 90; degrees >= -3 * 360; degrees -= 7) {
        turned += tracker.advance(at(degrees, 20 + degrees % 5));
    }
    QVERIFY(std::abs(turned - -1169.0) < 1e-9); // 90 down to -1079 in steps of seven

    tracker.start(at(90, 20));
    QCOMPARE(tracker.advance(at(90, 1)), 0.0); // the dead radius has no direction
    QCOMPARE(tracker.advance({0, 0}), 0.0);
    QVERIFY(std::abs(tracker.advance(at(135, 20)) - 45.0) < 1e-9);

    ui::TurnTracker inTheMiddle;
    inTheMiddle.start({0, 0});
    QCOMPARE(inTheMiddle.advance(at(200, 20)), 0.0); // only where the turning can be told from
    QVERIFY(std::abs(inTheMiddle.advance(at(210, 20)) - 10.0) < 1e-9);
}

void PadMathTest::anAngleIsToldAsWholeTurnsAndDegrees()
{
    QCOMPARE(ui::angleText(0), u"0°"_qs);
    QCOMPARE(ui::angleText(-0.001), u"0°"_qs);
    QCOMPARE(ui::angleText(30.5), u"30.5°"_qs);
    QCOMPARE(ui::angleText(-390), u"-1× -30°"_qs);
    QCOMPARE(ui::angleText(359.999), u"1× 0°"_qs);
    QCOMPARE(ui::turnsOf(-725).whole, -2);
    QCOMPARE(ui::turnsOf(-725).rest, -5.0);
    QCOMPARE(ui::nearestMultiple(-22.5, 15), -30.0);
    QCOMPARE(ui::nearestMultiple(7.3, 0), 7.3);
}

void PadMathTest::pointsAndPairsOfAPadFitEachOther()
{
    const ui::PadArea up{{10, 20, 100, 200}, {-1, 0}, {1, 10}, false};
    QCOMPARE(up.pointOf({-1, 0}), QPointF(10, 220));
    QCOMPARE(up.pointOf({1, 10}), QPointF(110, 20));
    QVERIFY(up.valueAt({60, 120}) == num2<double>(0, 5));
    QVERIFY(up.valueAt({160, 220}) == num2<double>(2, 0)); // limits are the control's
    const ui::PadArea down{up.rect, up.minimum, up.maximum, true};
    QCOMPARE(down.pointOf({1, 10}), QPointF(110, 220));
    QVERIFY(down.valueAt({10, 20}) == num2<double>(-1, 0));

    const ui::PadArea flat{{10, 20, 0, 0}, {-1, 0}, {1, 10}, false};
    QVERIFY(flat.valueAt({400, 400}) == num2<double>(-1, 0));
    QCOMPARE(ui::alongOneAxis({3, -4}), QPointF(0, -4));
    QCOMPARE(ui::alongOneAxis({-4, 4}), QPointF(-4, 0));
}

void PadMathTest::pointsAndValuesOfASliderFitEachOther()
{
    const ui::SliderScale scale{7, 107, -50, 50, Qt::LeftToRight};
    const ui::SliderScale mirrored{7, 107, -50, 50, Qt::RightToLeft};
    for (const double value : {-50.0, -12.5, 0.0, 50.0}) {
        QCOMPARE(scale.valueAt(scale.xOf(value)), value);
        QCOMPARE(mirrored.valueAt(mirrored.xOf(value)), value);
        QCOMPARE(scale.xOf(value) + mirrored.xOf(value), 114.0);
    }
    QCOMPARE(scale.xOf(1e9), 107.0);
    QCOMPARE(scale.valueAt(-1e9), -50.0);
    QCOMPARE((ui::SliderScale{7, 7, 3, 5}.valueAt(7)), 3.0); // no room
    QCOMPARE((ui::SliderScale{7, 107, 3, 3}.xOf(3)), 7.0);   // no range
}

void PadMathTest::aSliderStepsButReachesItsEnds()
{
    QCOMPARE(ui::steppedValue(0.43, 0, 1, 0.25, 2), 0.5);
    QCOMPARE(ui::steppedValue(9.9, 0.5, 10.25, 1, 2), 10.0);
    QCOMPARE(ui::steppedValue(10.2, 0.5, 10.25, 1, 2), 10.25);
    QCOMPARE(ui::steppedValue(0.5, 0.5, 10.25, 1, 2), 0.5);
    QCOMPARE(ui::steppedValue(0.3, 0.1, 0.4, 1, 2), 0.4); // no multiple inside
    QCOMPARE(ui::steppedValue(0.123456, 0, 1, 0, 3), 0.123);
    QCOMPARE(ui::steppedValue(7, 0, 1, 0.3, 1), 1.0);

    QCOMPARE(ui::roundedTo(-0.5, 0), -1.0);
    QCOMPARE(ui::roundedTo(1e300, 3), 1e300);
    QCOMPARE(ui::keyStep(1, 0.1, 0), 1.0); // an integer has nothing finer
    QCOMPARE(ui::keyStep(0.5, 10, 2), 5.0);
    QCOMPARE(ui::modifierFactor(Qt::ControlModifier | Qt::ShiftModifier), 0.1);
    QCOMPARE(ui::modifierFactor(Qt::ShiftModifier), 10.0);
}

void PadMathTest::theFillBeginsAtZeroOrAtTheLowerEnd()
{
    const QRectF groove(0, 10, 114, 4);
    const auto span = [&](const ui::SliderScale& scale, double value) {
        const QRectF fill = ui::filledGroove(scale, groove, value);
        return QPointF(fill.left(), fill.right());
    };
    QCOMPARE(span({7, 107, 0, 10}, 5), QPointF(0, 57));
    QCOMPARE(span({7, 107, 0, 10, Qt::RightToLeft}, 5), QPointF(57, 114));
    QCOMPARE(span({7, 107, -10, 10}, 5), QPointF(57, 82));
    QCOMPARE(span({7, 107, -10, 10}, -5), QPointF(32, 57));
    QCOMPARE(span({7, 107, -10, 10}, 0), QPointF(57, 57));
}

void PadMathTest::aColorSurvivesItsText()
{
    for (const QColor& color : {QColor(255, 138, 61), QColor(0, 0, 0, 0), QColor(1, 2, 3, 4)}) {
        QCOMPARE(ui::colorFromText(ui::colorText(color))->rgba(), color.rgba());
        const auto data = ui::colorMimeData(color);
        QVERIFY(data->hasFormat(u"application/x-color"_qs));
        QCOMPARE(ui::colorFromMimeData(data.get())->rgba(), color.rgba());
    }
    QCOMPARE(ui::colorText(QColor(255, 138, 61)), u"#ff8a3d"_qs);
    QCOMPARE(ui::colorText(QColor(1, 2, 3, 4)), u"#01020304"_qs); // alpha comes last
    QCOMPARE(ui::colorFromText(u" F80\n"_qs)->rgba(), 0xffff8800u);
    QMimeData text;
    text.setText(u"#11223344"_qs);
    QCOMPARE(ui::colorFromMimeData(&text)->rgba(), 0x44112233u);
}

void PadMathTest::whatIsNoColorIsRefused()
{
    const QString texts =
        u"|#|#12|#12345|#1234567|#gg0000|red|##112233|#123456789|-12345|#１２３"_qs;
    for (const QString& text : texts.split(u'|')) {
        QVERIFY2(!ui::colorFromText(text), qPrintable(text));
    }
    const QMimeData nothing;
    QVERIFY(!ui::colorFromMimeData(&nothing));
    QVERIFY(!ui::colorFromMimeData(nullptr));
    QCOMPARE(ui::colorText(QColor()), QString());
}

const ui::test::Registration<PadMathTest> kRegistration;

#include "tst_padmath.moc"
