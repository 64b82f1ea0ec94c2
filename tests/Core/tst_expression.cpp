// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"

#include <Core/Expression.h>

#include <clocale>
#include <locale>

using Cases = std::initializer_list<std::pair<const char*, double>>;

class ExpressionTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void arithmeticIsEvaluated()
    {
        for (const auto& [text, expected] : Cases{
                 {"2^3^2", 512},
                 {"-2^2--5", 1},
                 {".5 +\t5.\n+ 5E-1", 6},
                 {"1<2 && 3!=3 ? 1 : 7", 7},
                 {"ln(e)+tau/pi", 3},
                 {"floor(-2.5)+10*ceil(-2.5)", -23},
                 {"round(2.5)+10*round(-2.5)", -27},
                 {"pow(2;10)+mod(-7,3)", 1023}})
        {
            std::string error = "from an earlier call";
            const double value = evaluateExpression(text, {}, &error);
            QVERIFY2(value == expected && error.empty(), text);
        }
    }

    void anErrorKeepsTheLongestBeginningThatHasAValue()
    {
        for (const auto& [text, expected] : Cases{
                 {"", 0},
                 {"(1+2", 0},
                 {"12+", 12},
                 {"3px", 3},
                 {"5e+", 5},
                 {"2pi", 2},
                 {"2*pixels", 2},
                 {"5)+1", 5},
                 {"1;5", 1},
                 // The result has to be finite, and a number is never cut in two.
                 {"1e400", 0},
                 {"5+1/0", 6},
                 {"1e308*10", 1e308},
                 {"12\u20ac", 12},
                 {"1+\u0663", 1}})
        {
            std::string error;
            const double value = evaluateExpression(text, {}, &error);
            QVERIFY2(value == expected && !error.empty(), text);
        }
        QCOMPARE(evaluateExpression(std::string("4\0+1", 4), {}, nullptr), 4.0);
    }

    void longTextsStayQuick()
    {
        const auto repeated = [](const char* text, int times) {
            return QString::fromLatin1(text).repeated(times);
        };
        const QString nested = u"1"_qs + repeated(")", 1300);
        const std::pair<QString, double> cases[] = {
            {repeated("(", 4096), 0},
            {repeated("-(", 1300) + nested, 1},
            {repeated("abs(", 800) + nested.left(801), 1},
            {repeated("1+", 2047) + u"123"_qs, 2047}, // the limit does not cut a number
            {repeated("0?1:", 1000) + u"2"_qs, 2},
            {u"0/0"_qs + repeated("+1", 2046), 0}, // every beginning is bad
            {repeated("1+", 1'000'000), 2048},
        };
        for (const auto& [text, expected] : cases) {
            QElapsedTimer timer;
            timer.start();
            QCOMPARE(evaluateExpression(text.toStdString(), {}, nullptr), expected);
            // Unbounded, the search for a beginning takes a minute; bounded, 0.2 s, ten times that
            // under the sanitizers.
            QVERIFY(timer.elapsed() < 10'000);
        }
    }

    void variablesAreReadOnlyAndHideConstants()
    {
        const VariableTable variables = {{"x", 7}, {"pi", 3}, {"2bad", 1}, {"", 1}, {"a b", 1}};
        std::string error;
        QCOMPARE(evaluateExpression("x*pi", variables, &error), 21.0);
        QCOMPARE(error, std::string());
        QCOMPARE(evaluateExpression("x=5", variables, &error), 7.0);
        QVERIFY(!error.empty());
    }

    void theLocaleDoesNotMatter()
    {
        struct CommaNumbers : std::numpunct<char>
        {
            char do_decimal_point() const override { return ','; }
            char do_thousands_sep() const override { return '.'; }
            std::string do_grouping() const override { return "\3"; }
        };
        // The locale owns the facet.
        const auto before =
            std::locale::global(std::locale(std::locale::classic(), new CommaNumbers));
        const std::string former = std::setlocale(LC_ALL, nullptr);
        std::setlocale(LC_ALL, "de_DE.UTF-8"); // as far as the system has it
        const double value = evaluateExpression("1.5*2", {}, nullptr);
        std::locale::global(before);
        std::setlocale(LC_ALL, former.c_str());
        QCOMPARE(value, 3.0);
    }
};

const ui::test::Registration<ExpressionTest> kRegistration;

#include "tst_expression.moc"
