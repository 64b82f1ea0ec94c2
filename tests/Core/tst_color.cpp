// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"

#include <Core/Color.h>
#include <Core/num2.h>

class ColorTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void channelsLieWhereSkiaAndQtExpectThem()
    {
        constexpr Color kColor = Color::fromRgba(0x12, 0x34, 0x56, 0x78);
        static_assert(kColor.argb() == 0x78123456U);
        static_assert(Color() == Color::fromRgba(0, 0, 0) && Color().alpha() == 255);

        QCOMPARE(QColor(kColor.red(), kColor.green(), kColor.blue()).name(), u"#123456"_qs);
    }

    void pairsComputeComponentByComponent()
    {
        const num2<double> left(6, -3);
        const num2<double> right(2, 4);
        QVERIFY(2.0 * (left + right) == num2<double>(16, 2));
        QVERIFY(-(left - right) / 2.0 == num2<double>(-2, 3.5));
    }
};

const ui::test::Registration<ColorTest> kRegistration;

#include "tst_color.moc"
