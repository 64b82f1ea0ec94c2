#include "support/TestCase.h"
#include <MorrantUI/controls/values/valueformat.h>

#include <cmath>
#include <limits>
#include <tuple>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kHighest = std::numeric_limits<double>::max();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

} // namespace

class ValueFormatTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aNumberReadsAsItsKindDoes();
    void limitsHoldForEveryNumber();
    void acceptedLimitsAreFinite();
    void aScrubIsLimitedOnlyOnTheSidesWhereItBeganInside();
};

void ValueFormatTest::aNumberReadsAsItsKindDoes()
{
    const std::tuple<double, const char*, const char*> cases[] = {
        {0.0, "0", "0.0"},
        {-0.0, "0", "0.0"},
        {2.5, "3", "2.5"},
        {-0.5, "-1", "-0.5"},
        {-0.4, "0", "-0.4"},
        {100.0, "100", "100.0"},
        {2.0005, "2", "2.001"},
        {0.9996, "1", "1.0"},
        {0.0004, "0", "0.0"},
        {-0.0004, "0", "-0.0"},
        {1e20, "100000000000000000000", "100000000000000000000.0"}};
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    QStringList texts;
    QStringList expected;
    for (const auto& [value, integer, decimal] : cases) {
        texts << ui::formatValue(value, {-kHighest, kHighest, true})
              << ui::formatValue(value, {-kHighest, kHighest, false});
        expected << QLatin1String(integer) << QLatin1String(decimal);
    }
    QLocale::setDefault(before);
    QCOMPARE(texts, expected);
}

void ValueFormatTest::limitsHoldForEveryNumber()
{
    const std::tuple<double, double, double, const char*> cases[] = {
        {kNaN, -1.0, 1.0, "0.0"},
        {kNaN, 2.0, 3.0, "2.0"},
        {kInfinity, 0.0, 10.0, "10.0"},
        {-kInfinity, 0.0, 10.0, "0.0"},
        {7.0, 2.0, 2.0, "2.0"},
        {7.0, 5.0, 3.0, "3.0"}, // crossed
        {7.0, 0.0, 0.12345, "0.123"}};
    for (const auto& [value, min, max, text] : cases) {
        QCOMPARE(ui::formatValue(value, {min, max, false}), QLatin1String(text));
    }
}

void ValueFormatTest::acceptedLimitsAreFinite()
{
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

void ValueFormatTest::aScrubIsLimitedOnlyOnTheSidesWhereItBeganInside()
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
        // Hard limits nearer than the soft ones take their place; so do soft limits without end.
        QCOMPARE(ui::scrubbedValue({start, distance, 1.0, -100.0, 100.0}, narrow), result);
        QCOMPARE(ui::scrubbedValue({start, distance, 1.0, -kInfinity, kInfinity}, narrow), result);
    }
}

const ui::test::Registration<ValueFormatTest> kRegistration;

#include "tst_valueformat.moc"
