#include "support/TestCase.h"

#include <Core/Expression.h>

#include <locale>
#include <numbers>

QString repeated(const char* text, int times)
{
    return QString::fromLatin1(text).repeated(times);
}

class ExpressionTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void arithmeticIsEvaluated_data();
    void arithmeticIsEvaluated();
    void anErrorKeepsTheLongestBeginningThatHasAValue_data();
    void anErrorKeepsTheLongestBeginningThatHasAValue();
    void variablesAreReadOnlyAndHideConstants();
    void theLocaleDoesNotMatter();
    void longTextsStayQuick_data();
    void longTextsStayQuick();
};

void ExpressionTest::arithmeticIsEvaluated_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("expected");

    const auto row = [](const char* text, double expected) {
        QTest::newRow(text) << QString::fromLatin1(text) << expected;
    };
    row("2^3^2", 512);
    row("-2^2", -4);
    row("2--3", 5);
    row("-(-5)", 5);
    row("2*-1", -2);
    row(".5+5.", 5.5);
    row("1E-3", 0.001);
    row(" 1 +\t2\n", 3);
    row("1<2 && 3!=3 ? 1 : 7", 7);
    row("pi", std::numbers::pi);
    row("tau/pi", 2);
    row("ln(e)", 1);
    row("sin(pi/2)", 1);
    row("floor(-2.5)", -3);
    row("ceil(-2.5)", -2);
    row("round(2.5)", 3);
    row("round(-2.5)", -3);
    row("pow(2;10)", 1024);
    row("mod(-7,3)", -1);
    row("max(1;2,3)", 3);
    row("atan2(1;1)*4", std::numbers::pi);
}

void ExpressionTest::arithmeticIsEvaluated()
{
    QFETCH(const QString, text);
    QFETCH(const double, expected);
    std::string error = "from an earlier call";
    QCOMPARE(evaluateExpression(text.toStdString(), {}, &error), expected);
    QCOMPARE(error, std::string());
}

void ExpressionTest::anErrorKeepsTheLongestBeginningThatHasAValue_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("expected");

    const auto row = [](const char* text, double expected) {
        QTest::newRow(text) << QString::fromUtf8(text) << expected;
    };
    row("", 0);
    row("  ", 0);
    row("abc", 0);
    row("-", 0);
    row("--5", 0);
    row("*2", 0);
    row("(1+2", 0);
    row("12+", 12);
    row("3px", 3);
    row("((3))px", 3);
    row("5e", 5);
    row("5e+", 5);
    row("2pi", 2);
    row("2*pixels", 2);
    row("2(3)", 2);
    row("5)+1", 5);
    row("3.1.4", 3.1);
    row("10%", 10);
    row("1 000", 1);
    row("1;5", 1);
    row("pi=3", std::numbers::pi);
    row("7+sin(", 7);
    row("1?2:3:4", 2);
    row("\"12\"", 0);
    // The result has to be finite, and a number is never cut in two.
    row("1e400", 0);
    row("1/0", 1);
    row("5+1/0", 6);
    row("0/0", 0);
    row("sqrt(-1)", 0);
    row("1e308*10", 1e308);
    row("mod(1;0)", 0);
    row("12\u20ac", 12);
    row("1+\u0663", 1);
    QTest::newRow("zero byte") << QString::fromLatin1("4\0+1", 4) << 4.0;
    QTest::newRow("too long") << repeated("1+", 2047) + u"123"_qs << 2047.0;
}

void ExpressionTest::anErrorKeepsTheLongestBeginningThatHasAValue()
{
    QFETCH(const QString, text);
    QFETCH(const double, expected);
    std::string error;
    QCOMPARE(evaluateExpression(text.toStdString(), {}, &error), expected);
    QVERIFY(!error.empty());
    QCOMPARE(evaluateExpression(text.toStdString(), {}, nullptr), expected);
}

void ExpressionTest::variablesAreReadOnlyAndHideConstants()
{
    const VariableTable variables = {{"x", 7}, {"pi", 3}, {"2bad", 1}, {"", 1}, {"a b", 1}};
    std::string error;
    QCOMPARE(evaluateExpression("x*pi", variables, &error), 21.0);
    QCOMPARE(error, std::string());
    QCOMPARE(evaluateExpression("x=5", variables, &error), 7.0);
    QVERIFY(!error.empty());
    evaluateExpression("y", variables, &error);
    QVERIFY(!error.empty());
    // Nothing is left over for the next call.
    QCOMPARE(evaluateExpression("pi", {}, &error), std::numbers::pi);
}

void ExpressionTest::theLocaleDoesNotMatter()
{
    struct CommaNumbers : std::numpunct<char>
    {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    // The locale owns the facet.
    const auto before = std::locale::global(std::locale(std::locale::classic(), new CommaNumbers));
    const double value = evaluateExpression("1.5*2", {}, nullptr);
    std::locale::global(before);
    QCOMPARE(value, 3.0);
}

void ExpressionTest::longTextsStayQuick_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("expected");

    QTest::newRow("open parentheses") << repeated("(", 4096) << 0.0;
    QTest::newRow("nested") << repeated("(", 2000) + u"1"_qs + repeated(")", 2000) << 1.0;
    QTest::newRow("signs") << repeated("-(", 1300) + u"1"_qs + repeated(")", 1300) << 1.0;
    QTest::newRow("calls") << repeated("abs(", 800) + u"1"_qs + repeated(")", 800) << 1.0;
    QTest::newRow("sum") << repeated("1+", 2047) + u"1"_qs << 2048.0;
    QTest::newRow("choices") << repeated("0?1:", 1000) + u"2"_qs << 2.0;
    QTest::newRow("every beginning is bad") << u"0/0"_qs + repeated("+1", 2046) << 0.0;
    QTest::newRow("megabytes") << repeated("1+", 1'000'000) << 2048.0;
}

void ExpressionTest::longTextsStayQuick()
{
    QFETCH(const QString, text);
    QFETCH(const double, expected);
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(evaluateExpression(text.toStdString(), {}, nullptr), expected);
    // Unbounded, the search for a beginning takes a minute; bounded, 0.2 s, ten times that under
    // the sanitizers.
    QVERIFY(timer.elapsed() < 10'000);
}

const ui::test::Registration<ExpressionTest> kRegistration;

#include "tst_expression.moc"
