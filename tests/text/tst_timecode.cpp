#include "support/TestCase.h"
#include <MorrantUI/text/timecode.h>

#include <climits>

class TimeCodeTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void framesAreWrittenAndReadBack();
    void whatAUserTypesIsUnderstood();
};

void TimeCodeTest::framesAreWrittenAndReadBack()
{
    const std::tuple<int, double, const char*> codes[] = {
        {0, 24, "00:00:00:00"},
        {23, 23.976, "00:00:00:23"},
        {1800, 29.97, "00:01:00:00"},
        {-25, 25, "-00:00:01:00"},
        {119, 120, "00:00:00:119"},
        {360000 * 24, 24, "100:00:00:00"},
        {INT_MAX, 1, "596523:14:07:00"},
        {INT_MIN, 24, "-24855:08:05:08"},
    };
    for (const auto& [frame, rate, code] : codes) {
        QCOMPARE(ui::timeCode(frame, rate), QLatin1String(code));
        QCOMPARE(ui::framesFromTimeCode(QLatin1String(code), rate), std::optional(frame));
    }
    for (const double noRate : {0.0, -24.0, qQNaN(), qInf()}) {
        QVERIFY(ui::timeCode(1, noRate).isEmpty());
        QVERIFY(!ui::framesFromTimeCode(QStringLiteral("1"), noRate));
    }
}

void TimeCodeTest::whatAUserTypesIsUnderstood()
{
    const QString longest(1000, u'9');
    const std::pair<QString, std::optional<int>> texts[] = {
        {QStringLiteral("12"), 12},
        {QStringLiteral(" 1:02\n"), 26},
        {QStringLiteral("00:00:05:12"), 132},
        {QStringLiteral("0;90"), 90},
        {QStringLiteral("1:::"), 86400},
        {QStringLiteral("\u22123"), -3},
        {QStringLiteral("\uff11\uff1a\uff10\uff12"), 26}, // full width
        {QStringLiteral("\u0661\u0662"), 12},             // Arabic
        {QStringLiteral("\U0001D7CF"), 1},                // beyond 16 bits
        {longest, INT_MAX},
        {QLatin1Char('-') + longest + QStringLiteral(":00:00:00"), INT_MIN},
        {QString(), std::nullopt},
        {QStringLiteral("-"), std::nullopt},
        {QStringLiteral(" : "), std::nullopt},
        {QStringLiteral("12f"), std::nullopt},
        {QStringLiteral("1:2:3:4:5"), std::nullopt},
        {QStringLiteral("\u00b2"), std::nullopt}, // superscript two
    };
    for (const auto& [text, frame] : texts) {
        QVERIFY2(ui::framesFromTimeCode(text, 24) == frame, qPrintable(text));
    }
}

const ui::test::Registration<TimeCodeTest> kRegistration;

#include "tst_timecode.moc"
