#include "support/TestCase.h"

#include <Core/Color.h>
#include <Core/num2.h>

#include <QColor>

class ColorTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void channelsLieWhereSkiaAndQtExpectThem();
    void pairsComputeComponentByComponent();
};

void ColorTest::channelsLieWhereSkiaAndQtExpectThem()
{
    constexpr Color kColor = Color::fromRgba(0x12, 0x34, 0x56, 0x78);
    static_assert(kColor.argb() == 0x78123456U);
    static_assert(Color(0x78123456U) == kColor && Color(0xFF123456U) != kColor);
    static_assert(Color().argb() == 0xFF000000U && Color::fromRgba(1, 2, 3).alpha() == 255);

    QCOMPARE(
        QColor::fromRgba(kColor.argb()), QColor(kColor.red(), kColor.green(), kColor.blue(), 0x78));
    const SkColor skia = kColor;
    QCOMPARE(SkColorGetB(skia), 0x56U);
    QCOMPARE(SkColorGetA(skia), unsigned(kColor.alpha()));
}

void ColorTest::pairsComputeComponentByComponent()
{
    constexpr num2<double> kLeft(6, -3);
    constexpr num2<double> kRight(2, 4);
    static_assert(kLeft + kRight == num2<double>(8, 1));
    static_assert(kLeft - kRight == num2<double>(4, -7));
    static_assert(-kLeft == num2<double>(-6, 3));
    static_assert(kLeft * 2.0 == num2<double>(12, -6) && 2.0 * kLeft == kLeft * 2.0);
    static_assert(kLeft / 4.0 == num2<double>(1.5, -0.75));
    static_assert(num2(7, 5) / 2 == num2(3, 2));

    // Each component by itself: one that agrees must not hide the other.
    QVERIFY(kLeft != num2<double>(6, 0));
    QVERIFY(kLeft != num2<double>(0, -3));
    QCOMPARE(num2<double>().x + num2<double>().y, 0.0);
}

const ui::test::Registration<ColorTest> kRegistration;

#include "tst_color.moc"
