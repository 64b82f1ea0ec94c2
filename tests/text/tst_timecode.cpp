// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"
#include <MorrantUI/text/timecode.h>

#include <climits>

class TimeCodeTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void framesAreWrittenAndReadBack()
    {
        const std::tuple<int, double, const char*> codes[] = {
            {0, 24, "00:00:00:00"},
            {23, 23.976, "00:00:00:23"},
            {1800, 29.97, "00:01:00:00"},
            {-25, 25, "-00:00:01:00"},
            {119, 120, "00:00:00:119"},
            {360000 * 24, 24, "100:00:00:00"},
            {INT_MAX, 1, "596523:14:07:00"},
            {INT_MIN, 24, "-24855:08:05:08"}};
        for (const auto& [frame, rate, code] : codes) {
            QCOMPARE(ui::timeCode(frame, rate), QLatin1String(code));
            QCOMPARE(ui::framesFromTimeCode(QLatin1String(code), rate), std::optional(frame));
        }
        for (const double noRate : {0.0, -24.0, qQNaN(), qInf()}) {
            QVERIFY(ui::timeCode(1, noRate).isEmpty() && !ui::framesFromTimeCode(u"1"_qs, noRate));
        }
    }

    void whatAUserTypesIsUnderstood()
    {
        const QString longest(1000, u'9');
        const std::pair<QString, std::optional<int>> texts[] = {
            {u"12"_qs, 12},
            {u" 1:02\n"_qs, 26},
            {u"0;90"_qs, 90},
            {u"1:::"_qs, 86400},
            {u"\u22123"_qs, -3},
            {u"\uff11\uff1a\uff10\uff12"_qs, 26}, // full width
            {u"\u0661\u0662"_qs, 12},             // Arabic
            {u"\U0001D7CF"_qs, 1},                // beyond 16 bits
            {longest, INT_MAX},
            {u'-' + longest + u":00:00:00"_qs, INT_MIN}};
        for (const auto& [text, frame] : texts) {
            QVERIFY2(ui::framesFromTimeCode(text, 24) == frame, qPrintable(text));
        }
        for (const QString& text :
             {u""_qs, u"-"_qs, u" : "_qs, u"12f"_qs, u"1:2:3:4:5"_qs, u"²"_qs}) {
            QVERIFY2(!ui::framesFromTimeCode(text, 24), qPrintable(text));
        }
    }
};

const ui::test::Registration<TimeCodeTest> kRegistration;

#include "tst_timecode.moc"
