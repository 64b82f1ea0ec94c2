// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/typednumber.h"
#include "controls/ControlBench.h"

#include <cfloat>
#include <climits>
#include <numbers>

using namespace ui::test;

/// The arithmetic of controls, without a control.
class ControlMathTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aNumberReadsAsItsKindDoesInAnyLocale()
    {
        const std::tuple<double, const char*, const char*> cases[] = {
            {-0.0, "0", "0.0"},
            {0.4, "0", "0.4"},
            {-0.5, "-1", "-0.5"},
            {2.5, "3", "2.5"},
            {100.0, "100", "100.0"},
            {2.0005, "2", "2.001"},
            {0.9996, "1", "1.0"},
            {-0.0004, "0", "-0.0"},
            {1e20, "100000000000000000000", "100000000000000000000.0"}};
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German));
        QStringList texts, expected;
        for (const auto& [value, integer, decimal] : cases) {
            texts << ui::formatValue(value, {-DBL_MAX, DBL_MAX, true})
                  << ui::formatValue(value, {-DBL_MAX, DBL_MAX, false});
            expected << QLatin1String(integer) << QLatin1String(decimal);
        }
        QLocale::setDefault(before);
        QCOMPARE(texts, expected);
    }

    void aNumberInAnExpressionIsFoundWhole()
    {
        const std::tuple<const char*, int, const char*> cases[] = {
            {"-12.5", 2, "-12.5"},
            {"3-2,5", 3, "2,5"}, // there the sign is an operator
            {"3*-.5e-3", 8, "-.5e-3"},
            {"(-1 000.25)", 4, "-1 000.25"},
            {"log2(8)", 3, ""},
            {"", 0, ""}};
        for (const auto& [text, position, number] : cases) {
            const QString whole = QString::fromLatin1(text);
            const ui::TextSpan span = ui::numberAt(whole, position);
            QCOMPARE(whole.mid(span.start, span.length), QLatin1String(number));
        }
    }

    void limitsHoldForEveryNumberAndAreFinite()
    {
        const std::tuple<double, double, double, const char*> cases[] = {
            {kNaN, -1.0, 1.0, "0.0"},
            {kNaN, 2.0, 3.0, "2.0"},
            {kInfinity, 0.0, 10.0, "10.0"},
            {-kInfinity, 0.0, 10.0, "0.0"},
            {7.0, 5.0, 3.0, "3.0"}, // crossed
            {7.0, 0.0, 0.12345, "0.123"}};
        for (const auto& [value, min, max, text] : cases) {
            QCOMPARE(ui::formatValue(value, {min, max, false}), QLatin1String(text));
        }
        QCOMPARE(ui::acceptedMin(-1e12, true), -2147483648.0);
        QCOMPARE(ui::acceptedMax(1e12, true), 2147483647.0);
        QCOMPARE(ui::acceptedMin(1e12, true), 1e12);
        QCOMPARE(ui::acceptedMin(-1e12, false), -1e12);
        for (const double wild : {kInfinity, -kInfinity}) {
            for (const bool isInteger : {true, false}) {
                QVERIFY(std::isfinite(ui::acceptedMin(wild, isInteger)));
                QVERIFY(std::isfinite(ui::acceptedMax(wild, isInteger)));
            }
        }
    }

    void aScrubIsLimitedOnlyOnTheSidesWhereItBeganInside()
    {
        const ui::NumberRange wide{-100.0, 100.0, false};
        const ui::NumberRange narrow{0.0, 10.0, false};
        const std::tuple<double, double, double> cases[] = {
            {5.0, 3.0, 8.0},
            {8.0, 30.0, 10.0},
            {8.0, -30.0, 0.0},
            {10.0, 1.0, 10.0}, // begins on the end
            {0.0, -1.0, 0.0},
            {12.0, 30.0, 42.0}, // above, further up
            {12.0, -7.0, 5.0},  // and back through the end
            {12.0, -70.0, 0.0},
            {-3.0, -10.0, -13.0}, // below
            {-3.0, 70.0, 10.0}};
        for (const auto& [start, distance, result] : cases) {
            QCOMPARE(ui::scrubbedValue({start, distance, 1.0, 0.0, 10.0}, wide), result);
            // Hard limits nearer than the soft ones take their place; so do soft ones without end.
            QCOMPARE(ui::scrubbedValue({start, distance, 1.0, -100.0, 100.0}, narrow), result);
            const ui::ScrubState endless{start, distance, 1.0, -kInfinity, kInfinity};
            QCOMPARE(ui::scrubbedValue(endless, narrow), result);
        }
        QCOMPARE(ui::scrubbedValue({5.0, -4.0, -0.5, 0.0, 10.0}, wide), 7.0);
        QCOMPARE(ui::modifierFactor(Qt::ControlModifier | Qt::ShiftModifier), 0.1);
        QCOMPARE(ui::modifierFactor(Qt::ShiftModifier), 10.0);
    }

    void pointsAndValuesOfASliderFitEachOther()
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
        QCOMPARE((ui::SliderScale{7, 107, -DBL_MAX, DBL_MAX}.valueAt(57)), 0.0);

        const std::tuple<ui::SliderScale, double, double, double> fills[] = {
            {{7, 107, 0, 10}, 5, 0, 57},
            {{7, 107, 0, 10, Qt::RightToLeft}, 5, 57, 114},
            {{7, 107, -10, 10}, 5, 57, 82}, // from 0
            {{7, 107, -10, 10}, -5, 32, 57},
            {{7, 107, -10, 10}, 0, 57, 57},
            {{7, 107, -DBL_MAX, DBL_MAX}, DBL_MAX, 57, 107}};
        for (const auto& [spanned, value, left, right] : fills) {
            const QRectF fill = ui::filledGroove(spanned, {0, 10, 114, 4}, value);
            QCOMPARE(fill, QRectF(left, 10, right - left, 4));
        }
    }

    void aSliderStepsButReachesItsEnds()
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
    }

    void turningAddsUpAcrossTheTopAndThroughTheCenter()
    {
        const std::tuple<QPointF, std::optional<double>> directions[] = {
            {{0, -10}, 0.0}, // up, and clockwise from there
            {{10, 0}, 90.0},
            {{0, 10}, 180.0},
            {{-10, -10}, 315.0},
            {{1, 1}, std::nullopt},
            {{kNaN, 50}, std::nullopt}};
        for (const auto& [point, direction] : directions) {
            QCOMPARE(ui::directionOf(point), direction);
        }
        QCOMPARE(ui::shortestTurn(350, 10), 20.0);
        QCOMPARE(ui::shortestTurn(10, 350), -20.0);
        QCOMPARE(ui::shortestTurn(0, 180), 180.0);
        QCOMPARE(ui::shortestTurn(180, 0), 180.0);

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
        QVERIFY(isNear(turned, -1169.0)); // 90 down to -1079 in steps of seven
        tracker.start(at(90, 20));
        QCOMPARE(tracker.advance(at(90, 1)), 0.0); // the dead radius has no direction
        QVERIFY(isNear(tracker.advance(at(135, 20)), 45.0));
        tracker.start({0, 0});
        QCOMPARE(tracker.advance(at(200, 20)), 0.0); // only where the turning can be told from
        QVERIFY(isNear(tracker.advance(at(210, 20)), 10.0));
    }

    void anAngleIsToldAsWholeTurnsAndDegrees()
    {
        const std::pair<double, QString> texts[] = {
            {-0.001, u"0°"_qs},
            {30.5, u"30.5°"_qs},
            {-390, u"-1× -30°"_qs},
            {359.999, u"1× 0°"_qs}};
        for (const auto& [degrees, text] : texts) {
            QCOMPARE(ui::angleText(degrees), text);
        }
        QCOMPARE(ui::turnsOf(-725).whole, -2);
        QCOMPARE(ui::turnsOf(-725).rest, -5.0);
        QCOMPARE(ui::nearestMultiple(-22.5, 15), -30.0);
        QCOMPARE(ui::nearestMultiple(7.3, 0), 7.3);
    }

    void pointsAndPairsOfAPadFitEachOther()
    {
        const ui::PadArea up{{10, 20, 100, 200}, {-1, 0}, {1, 10}, false};
        const ui::PadArea down{up.rect, up.minimum, up.maximum, true};
        const ui::PadArea flat{{10, 20, 0, 0}, {-1, 0}, {1, 10}, false};
        QCOMPARE(up.pointOf({-1, 0}), QPointF(10, 220));
        QCOMPARE(up.pointOf({1, 10}), QPointF(110, 20));
        QCOMPARE(down.pointOf({1, 10}), QPointF(110, 220));
        QVERIFY(up.valueAt({60, 120}) == num2<double>(0, 5));
        QVERIFY(up.valueAt({160, 220}) == num2<double>(2, 0)); // limits are the control's
        QVERIFY(down.valueAt({10, 20}) == num2<double>(-1, 0));
        QVERIFY(flat.valueAt({400, 400}) == num2<double>(-1, 0));
        const ui::PadArea widest{up.rect, {-DBL_MAX, 0}, {DBL_MAX, 10}, false};
        QVERIFY(widest.pointOf(widest.valueAt({60, 120})) == QPointF(60, 120));
        QCOMPARE(ui::alongOneAxis({3, -4}), QPointF(0, -4));
        QCOMPARE(ui::alongOneAxis({-4, 4}), QPointF(-4, 0));
    }

    void aColorSurvivesItsTextAndWhatIsNoneIsRefused()
    {
        for (const QRgb rgba : {0xffff8a3du, 0x00000000u, 0x04010203u}) {
            const QColor color = QColor::fromRgba(rgba);
            QCOMPARE(ui::colorFromText(ui::colorText(color))->rgba(), rgba);
            const auto data = ui::colorMimeData(color);
            QVERIFY(data->hasFormat(u"application/x-color"_qs));
            QCOMPARE(ui::colorFromMimeData(data.get())->rgba(), rgba);
        }
        QCOMPARE(ui::colorText(QColor(255, 138, 61)), u"#ff8a3d"_qs);
        QCOMPARE(ui::colorText(QColor(1, 2, 3, 4)), u"#01020304"_qs); // alpha comes last
        QCOMPARE(ui::colorText(QColor()), QString());
        QCOMPARE(ui::colorFromText(u" F80\n"_qs)->rgba(), 0xffff8800u);
        QMimeData data;
        QVERIFY(!ui::colorFromMimeData(&data) && !ui::colorFromMimeData(nullptr));
        data.setText(u"#11223344"_qs);
        QCOMPARE(ui::colorFromMimeData(&data)->rgba(), 0x44112233u);
        const QString none =
            u"|#|#12|#12345|#1234567|#gg0000|red|##112233|#123456789|-12345|#１２３"_qs;
        for (const QString& text : none.split(u'|')) {
            QVERIFY2(!ui::colorFromText(text), qPrintable(text));
        }
    }

    void segmentsFillTheRowWithoutGapsInAnyWidth()
    {
        for (const std::vector<int>& wishes :
             {std::vector{30}, {30, 30, 30}, {10, 47, 3}, {0, -5, 20}, {INT_MAX, INT_MAX, 7}, {}})
        {
            for (const int width : {0, 1, 2, 97, 300}) {
                const QRect row(5, 3, width, 22);
                const auto rects = ui::segmentRects(row, wishes, Qt::LeftToRight);
                const auto mirrored = ui::segmentRects(row, wishes, Qt::RightToLeft);
                QCOMPARE(rects.size(), wishes.size());
                int x = row.left();
                for (std::size_t i = 0; i < rects.size(); ++i) {
                    QCOMPARE(rects[i], QRect(x, 3, std::max(0, rects[i].width()), 22));
                    x += rects[i].width();
                    QCOMPARE(mirrored[i], QRect(10 + width - x, 3, rects[i].width(), 22));
                }
                QCOMPARE(x, wishes.empty() ? row.left() : row.left() + width);
            }
        }
        const auto shared = ui::segmentRects({0, 0, 120, 20}, {10, 20, 30}, Qt::LeftToRight);
        QCOMPARE(shared[1], QRect(20, 0, 40, 20));
    }

    void cornersOfSegmentsAreRoundOnlyWhereTheRowEnds()
    {
        for (int place = 0; place < 6; ++place) { // of one, two and three, from left to right
            const int count = place < 1 ? 1 : place < 3 ? 2 : 3;
            const int drawn = place - count * (count - 1) / 2;
            for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
                const int index = direction == Qt::LeftToRight ? drawn : count - 1 - drawn;
                const QPainterPath shape =
                    ui::segmentShape({0, 0, 20, 10}, ui::segmentEnds(index, count, direction), 4.0);
                for (const double y : {0.2, 9.8}) {
                    QCOMPARE(shape.contains(QPointF(0.2, y)), drawn > 0);
                    QCOMPARE(shape.contains(QPointF(19.8, y)), drawn < count - 1);
                    QVERIFY(shape.contains(QPointF(10, y)));
                }
            }
        }
    }

    void theKnobStaysInsideItsTrackAndIsMirrored()
    {
        for (const QRectF& bounds : {QRectF(0, 0, 100, 22), QRectF(3, 5, 10, 8), QRectF()}) {
            for (const double position : {0.0, 0.3, 1.0, -2.0, 7.0, kNaN}) {
                const auto parts = ui::switchParts(bounds, 16, position, Qt::LeftToRight);
                const auto mirrored = ui::switchParts(bounds, 16, position, Qt::RightToLeft);
                QVERIFY(parts.track.top() >= bounds.top());
                QVERIFY(parts.track.bottom() <= bounds.bottom());
                QVERIFY(parts.track.contains(parts.knob) || parts.knob.isEmpty());
                QVERIFY(parts.knob.width() == parts.knob.height() && parts.text.width() >= 0);
                const double sum = bounds.left() + bounds.right();
                QCOMPARE(mirrored.track.left(), sum - parts.track.right());
                QCOMPARE(mirrored.knob.left(), sum - parts.knob.right());
                QCOMPARE(mirrored.text.left(), sum - parts.text.right());
            }
        }
        const auto on = ui::switchParts({0, 0, 100, 22}, 16, 1, Qt::LeftToRight);
        QCOMPARE(on.track, QRectF(0, 3, 28, 16));
        QCOMPARE(on.knob, QRectF(14, 5, 12, 12));
        QCOMPARE(on.text, QRectF(34, 0, 66, 22));
    }
};

const Registration<ControlMathTest> kRegistration;

#include "tst_controlmath.moc"
