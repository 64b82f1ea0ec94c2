#include "support/TestCase.h"
#include "support/themes.h"
#include <MorrantUI/theme/VisualDesignBase.h>
#include <MorrantUI/theme/colors.h>

#include <limits>

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

class ColorsTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void brightnessOfAColorScalesUpAndDown_data();
    void brightnessOfAColorScalesUpAndDown();
    void integerColorsOnlyGetDarkerOrPaler_data();
    void integerColorsOnlyGetDarkerOrPaler();
    void namesAreLookedUpInTheNewestTheme();
};

void ColorsTest::brightnessOfAColorScalesUpAndDown_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<double>("percent");
    QTest::addColumn<QRgb>("expected");

    QTest::newRow("unchanged but opaque") << QColor(255, 0, 0, 100) << 100.0 << qRgb(255, 0, 0);
    QTest::newRow("transparent") << QColor(Qt::transparent) << 100.0 << qRgb(0, 0, 0);
    QTest::newRow("halved") << QColor(200, 100, 50) << 50.0 << qRgb(100, 50, 25);
    QTest::newRow("brightened") << QColor(100, 50, 25) << 150.0 << qRgb(150, 75, 38);
    QTest::newRow("up to full value") << QColor(100, 50, 25) << 1000.0 << qRgb(255, 128, 64);
    QTest::newRow("grey, which has no hue")
        << QColor(128, 128, 128) << 150.0 << qRgb(192, 192, 192);
    QTest::newRow("given as HSV") << QColor::fromHsv(120, 255, 200) << 50.0 << qRgb(0, 100, 0);
    QTest::newRow("zero") << QColor(Qt::white) << 0.0 << qRgb(0, 0, 0);
    QTest::newRow("negative") << QColor(Qt::white) << -50.0 << qRgb(0, 0, 0);
    QTest::newRow("not a number") << QColor(Qt::white) << kNan << qRgb(0, 0, 0);
    QTest::newRow("infinite") << QColor(100, 50, 25) << kInfinity << qRgb(255, 128, 64);
    QTest::newRow("black times infinity") << QColor(Qt::black) << kInfinity << qRgb(0, 0, 0);
    QTest::newRow("invalid") << QColor() << 100.0 << qRgb(0, 0, 0);
}

void ColorsTest::brightnessOfAColorScalesUpAndDown()
{
    QFETCH(const QColor, color);
    QFETCH(const double, percent);
    QFETCH(const QRgb, expected);

    const QColor result = ui::changeValue(color, percent);
    QCOMPARE(result.spec(), QColor::Rgb);
    QCOMPARE(QColor(result.rgba()).name(QColor::HexArgb), QColor(expected).name(QColor::HexArgb));
}

void ColorsTest::integerColorsOnlyGetDarkerOrPaler_data()
{
    QTest::addColumn<unsigned int>("argb");
    QTest::addColumn<double>("percent");
    QTest::addColumn<unsigned int>("value");
    QTest::addColumn<unsigned int>("saturation");

    QTest::newRow("100") << 0xFF804020U << 100.0 << 0xFF804020U << 0xFF804020U;
    QTest::newRow("above 100") << 0xFF808080U << 150.0 << 0xFF808080U << 0xFF808080U;
    QTest::newRow("above 100, with hue") << 0xFF804020U << 900.0 << 0xFF804020U << 0xFF804020U;
    QTest::newRow("half") << 0xFF804020U << 50.0 << 0xFF402010U << 0xFF806050U;
    QTest::newRow("alpha is lost") << 0x00804020U << 50.0 << 0xFF402010U << 0xFF806050U;
    QTest::newRow("zero") << 0xFF804020U << 0.0 << 0xFF000000U << 0xFF808080U;
    QTest::newRow("negative") << 0xFF804020U << -1.0 << 0xFF000000U << 0xFF808080U;
    QTest::newRow("not a number") << 0xFF804020U << kNan << 0xFF000000U << 0xFF808080U;
}

void ColorsTest::integerColorsOnlyGetDarkerOrPaler()
{
    QFETCH(const unsigned int, argb);
    QFETCH(const double, percent);
    QFETCH(const unsigned int, value);
    QFETCH(const unsigned int, saturation);

    QCOMPARE(QString::number(ui::changeValue(argb, percent), 16), QString::number(value, 16));
    QCOMPARE(
        QString::number(ui::changeSaturation(argb, percent), 16), QString::number(saturation, 16));
}

void ColorsTest::namesAreLookedUpInTheNewestTheme()
{
    const QString name = QString::fromUtf8("Gr\xC3\xBCn");
    auto& older = ui::test::makeTheme<VisualDesignBase>();
    older.setColor(name, Qt::green);
    QCOMPARE(ui::colorQt(name), QColor(Qt::green));

    auto& newer = ui::test::makeTheme<VisualDesignBase>();
    QCOMPARE(ui::colorQt(name), QColor(Qt::black));
    newer.setColor(name, QColor(1, 2, 3, 4));
    newer.setColor(QStringLiteral("Base"), QColor(100, 200, 40));

    QCOMPARE(ui::colorQt(name), QColor(1, 2, 3, 4));
    QVERIFY(ui::color("Gr\xC3\xBCn") == Color(0x04010203U));
    QCOMPARE(ui::windowBackground().rgba(), qRgb(75, 150, 30));
    QCOMPARE(ui::windowPassthroughBackground().rgba(), qRgb(68, 136, 27));
}

const ui::test::Registration<ColorsTest> kRegistration;

#include "tst_colors.moc"
