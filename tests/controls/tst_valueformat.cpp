#include "support/TestCase.h"
#include <MorrantUI/controls/valueformat.h>

#include <cmath>
#include <limits>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kHighest = std::numeric_limits<double>::max();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

} // namespace

class ValueFormatTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aNumberReadsAsItsKindDoes_data();
    void aNumberReadsAsItsKindDoes();
    void limitsHoldForEveryNumber_data();
    void limitsHoldForEveryNumber();
    void acceptedLimitsAreFinite();
    void aScrubIsLimitedOnlyOnTheSidesWhereItBeganInside_data();
    void aScrubIsLimitedOnlyOnTheSidesWhereItBeganInside();
};

void ValueFormatTest::aNumberReadsAsItsKindDoes_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("integer");
    QTest::addColumn<QString>("decimal");
    const auto row = [](const char* name, double value, const char* integer, const char* decimal) {
        QTest::newRow(name) << value << QString::fromLatin1(integer)
                            << QString::fromLatin1(decimal);
    };
    row("zero", 0.0, "0", "0.0");
    row("negative zero", -0.0, "0", "0.0");
    row("half", 2.5, "3", "2.5");
    row("negative half", -0.5, "-1", "-0.5");
    row("negative below half", -0.4, "0", "-0.4");
    row("hundred", 100.0, "100", "100.0");
    row("rounded up", 2.0005, "2", "2.001");
    row("rounded to whole", 0.9996, "1", "1.0");
    row("too small", 0.0004, "0", "0.0");
    row("too small, negative", -0.0004, "0", "-0.0");
    row("beyond 64 bits", 1e20, "100000000000000000000", "100000000000000000000.0");
}

void ValueFormatTest::aNumberReadsAsItsKindDoes()
{
    QFETCH(double, value);
    QFETCH(QString, integer);
    QFETCH(QString, decimal);
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    const QString whole = ui::formatValue(value, {-kHighest, kHighest, true});
    const QString fraction = ui::formatValue(value, {-kHighest, kHighest, false});
    QLocale::setDefault(before);
    QCOMPARE(whole, integer);
    QCOMPARE(fraction, decimal);
}

void ValueFormatTest::limitsHoldForEveryNumber_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::addColumn<QString>("text");
    QTest::newRow("NaN is zero") << kNaN << -1.0 << 1.0 << QStringLiteral("0.0");
    QTest::newRow("NaN is limited") << kNaN << 2.0 << 3.0 << QStringLiteral("2.0");
    QTest::newRow("infinite") << kInfinity << 0.0 << 10.0 << QStringLiteral("10.0");
    QTest::newRow("negative infinite") << -kInfinity << 0.0 << 10.0 << QStringLiteral("0.0");
    QTest::newRow("equal limits") << 7.0 << 2.0 << 2.0 << QStringLiteral("2.0");
    QTest::newRow("crossed limits") << 7.0 << 5.0 << 3.0 << QStringLiteral("3.0");
    QTest::newRow("limits between decimals") << 7.0 << 0.0 << 0.12345 << QStringLiteral("0.123");
}

void ValueFormatTest::limitsHoldForEveryNumber()
{
    QFETCH(double, value);
    QFETCH(double, min);
    QFETCH(double, max);
    QTEST(ui::formatValue(value, {min, max, false}), "text");
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

void ValueFormatTest::aScrubIsLimitedOnlyOnTheSidesWhereItBeganInside_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("distance");
    QTest::addColumn<double>("result");
    // Soft limits 0 to 10, hard limits -100 to 100.
    QTest::newRow("inside") << 5.0 << 3.0 << 8.0;
    QTest::newRow("stops at the upper end") << 8.0 << 30.0 << 10.0;
    QTest::newRow("stops at the lower end") << 8.0 << -30.0 << 0.0;
    QTest::newRow("begins on the end") << 10.0 << 1.0 << 10.0;
    QTest::newRow("begins on the lower end") << 0.0 << -1.0 << 0.0;
    QTest::newRow("above, further up") << 12.0 << 30.0 << 42.0;
    QTest::newRow("above, back through the end") << 12.0 << -7.0 << 5.0;
    QTest::newRow("above, down to the other end") << 12.0 << -70.0 << 0.0;
    QTest::newRow("below, further down") << -3.0 << -10.0 << -13.0;
    QTest::newRow("below, up to the other end") << -3.0 << 70.0 << 10.0;
}

void ValueFormatTest::aScrubIsLimitedOnlyOnTheSidesWhereItBeganInside()
{
    QFETCH(double, start);
    QFETCH(double, distance);
    const ui::NumberRange range{-100.0, 100.0, false};
    QTEST(ui::scrubbedValue({start, distance, 1.0, 0.0, 10.0}, range), "result");

    // Hard limits nearer than the soft ones take their place; so do soft limits that are infinite.
    const ui::NumberRange narrow{0.0, 10.0, false};
    QTEST(ui::scrubbedValue({start, distance, 1.0, -100.0, 100.0}, narrow), "result");
    QTEST(ui::scrubbedValue({start, distance, 1.0, -kInfinity, kInfinity}, narrow), "result");
}

namespace {
const ui::test::Registration<ValueFormatTest> kRegistration;
} // namespace

#include "tst_valueformat.moc"
