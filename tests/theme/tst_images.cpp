// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/images.h>

#include <include/core/SkBitmap.h>
#include <include/core/SkImageInfo.h>

using namespace ui::test;

namespace {

const QImage::Format kFormat = QImage::Format_ARGB32_Premultiplied;

} // namespace

class ImagesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void swatchesHaveTransparentCornersAndChequerBoxesTwoColors()
    {
        const QColor color(200, 100, 50, 128);
        const QImage image = ui::drawColorSquare(color, {20, 12}, 4);
        QCOMPARE(image.size(), QSize(20, 12));
        QVERIFY(closeTo(image.pixelColor(19, 6), color));
        QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
        QVERIFY(closeTo(ui::drawColorSquare(color, {20, 12}, 0).pixelColor(0, 0), color));

        const QImage pill = ui::drawRoundColor(Qt::red, {15, 40});
        QCOMPARE(pill.pixelColor(1, 1).alpha(), 0);
        QCOMPARE(pill.pixelColor(1, 20), QColor(Qt::red));

        const QImage box = ui::drawChequerBox(Qt::red, {16, 12}, 5);
        QCOMPARE(box.format(), kFormat);
        for (const QPoint inked : {QPoint(7, 5), {8, 6}}) {
            QCOMPARE(box.pixelColor(inked), QColor(Qt::red));
        }
        for (const QPoint blank : {QPoint(8, 5), {7, 6}, {0, 0}}) { // white outside the corner too
            QCOMPARE(box.pixelColor(blank), QColor(Qt::white));
        }
    }

    void emptySizesAndUnreadableBitmapsGiveNullImages()
    {
        QVERIFY(ui::drawChequerBox(Qt::red, {-1, 5}, 2).isNull());
        QVERIFY(ui::drawRoundColor(Qt::red, {}).isNull());
        for (const double width : {0.9, -3.0, 1e300, qQNaN()}) {
            QVERIFY(ui::drawPalettePreview({Qt::red}, width).isNull());
        }
        QVERIFY(SkBitmapToQImage(nullptr).isNull());
        const SkBitmap empty;
        QVERIFY(SkBitmapToQImage(&empty).isNull());

        SkBitmap narrow; // rows long enough for four bytes a pixel, but not the last one
        narrow.allocPixels(SkImageInfo::Make(4, 2, kRGB_565_SkColorType, kOpaque_SkAlphaType), 16);
        QVERIFY(SkBitmapToQImage(&narrow).isNull());
    }

    void colorsFillTheStripTranslucentOnesOverAChequer()
    {
        const std::tuple<int, int, QRect> segments[] = {
            {1, 100, {33, 0, 33, 16}},
            {2, 100, {66, 0, 34, 16}},
            {2, 2, {0, 0, 2, 16}},
            {3, 100, {}},
            {-1, 100, {}}};
        for (const auto& [index, width, expected] : segments) {
            QCOMPARE(ui::palettePreviewSegment(index, 3, width), expected);
        }
        const QColor base(40, 50, 60);
        makeTheme<VisualDesignBase>().setColor(u"Base"_qs, base);
        const QImage image =
            ui::drawPalettePreview({Qt::red, QColor(0, 0, 255, 0), QColor(0, 255, 0, 128)}, 24.9);

        QCOMPARE(image.size(), QSize(24, 16));
        const std::pair<QPoint, QColor> pixels[] = {
            {{7, 15}, Qt::red},
            {{8, 0}, Qt::white},
            {{12, 0}, base},
            {{11, 4}, base},
            {{15, 15}, Qt::white},
            {{16, 8}, {127, 255, 127}}};
        for (const auto& [at, expected] : pixels) {
            QVERIFY(closeTo(image.pixelColor(at), expected));
        }
        QCOMPARE(ui::drawPalettePreview({}, 10.0).pixelColor(9, 15).alpha(), 0);
    }

    void tintingKeepsAlphaAndDarkPixels()
    {
        const QColor tint(200, 100, 50);
        const std::pair<QColor, QColor> cases[] = {
            {Qt::transparent, Qt::transparent},
            {Qt::white, tint},
            {Qt::black, Qt::black},
            // Darkening composes the copy over what is there, which thickens half transparent
            // pixels.
            {{255, 255, 255, 128}, {219, 153, 120, 192}}};
        for (const auto& [source, expected] : cases) {
            QPixmap pixmap(1, 1);
            pixmap.fill(source);
            QVERIFY(closeTo(ui::tintPixmap(pixmap, tint).toImage().pixelColor(0, 0), expected, 4));
            QVERIFY(closeTo(pixmap.toImage().pixelColor(0, 0), source));
        }
        QVERIFY(ui::tintPixmap(QPixmap(), tint).isNull());
    }

    void bitmapsAreCopiedRowByRowAsTheirColorType()
    {
        const std::array<uchar, 4> bytes{10, 20, 30, 128};
        const std::tuple<SkColorType, QImage::Format, QColor> cases[] = {
            {kRGBA_8888_SkColorType,
             QImage::Format_RGBA8888,
             {10, 20, 30, 128}}, // not premultiplied
            {kBGRA_8888_SkColorType, kFormat, {60, 40, 20, 128}},
            {kRGB_888x_SkColorType, QImage::Format_RGB32, {30, 20, 10}}}; // any other: blue first
        for (const auto& [type, format, expected] : cases) {
            SkBitmap whole;
            whole.allocPixels(SkImageInfo::Make(8, 8, type, kPremul_SkAlphaType));
            whole.eraseColor(SK_ColorWHITE);
            SkBitmap part; // whose rows are longer than its width
            QVERIFY(whole.extractSubset(&part, SkIRect::MakeXYWH(4, 4, 3, 2)));
            std::memcpy(part.getAddr(2, 1), bytes.data(), bytes.size());
            const QImage image = SkBitmapToQImage(&part);
            std::memset(whole.getPixels(), 0, whole.computeByteSize()); // the image is a copy

            QCOMPARE(image.format(), format);
            QCOMPARE(image.size(), QSize(3, 2));
            QVERIFY(closeTo(image.pixelColor(2, 1), expected, 1));
            QCOMPARE(image.pixelColor(1, 1), QColor(Qt::white));
        }
    }

    void imagesShrinkIntoTheLargestSideAndBecomePngs()
    {
        const std::tuple<QSize, int, QSize> cases[] = {
            {{64, 32}, 64, {64, 32}},
            {{30, 90}, 30, {10, 30}},
            {{1000, 1}, 10, {10, 1}},
            {{20, 20}, -5, {1, 1}},
            {{0, 0}, -5, {0, 0}}};
        for (const auto& [size, max, expected] : cases) {
            QCOMPARE(resizeToMaxDimension(QImage(size, kFormat), max).size(), expected);
        }
        QImage image(5, 3, kFormat);
        image.fill(QColor(10, 20, 30, 40));
        const QByteArray bytes = QByteArray::fromBase64(QImageToBase64(image).toLatin1());
        QCOMPARE(QImage::fromData(bytes, "PNG").convertToFormat(kFormat), image);
        QCOMPARE(QImageToBase64(QImage()), QString());
    }

    void brightnessScalesButIntegerColorsOnlyGetDarkerOrPaler()
    {
        const std::tuple<const char*, QColor, double, QColor> cases[] = {
            {"unchanged but opaque", {255, 0, 0, 100}, 100.0, {255, 0, 0}},
            {"halved", {200, 100, 50}, 50.0, {100, 50, 25}},
            {"up to full value", {100, 50, 25}, 1000.0, {255, 128, 64}},
            {"grey, which has no hue", {128, 128, 128}, 150.0, {192, 192, 192}},
            {"negative", Qt::white, -50.0, {0, 0, 0}},
            {"not a number", Qt::white, qQNaN(), {0, 0, 0}}};
        for (const auto& [name, color, percent, expected] : cases) {
            const QColor result = ui::changeValue(color, percent);
            QCOMPARE(result.spec(), QColor::Rgb);
            QVERIFY2(result.rgba() == expected.rgba(), name);
        }

        const std::tuple<const char*, unsigned int, double, unsigned int, unsigned int> integers[] =
            {{"above 100", 0xFF804020U, 150.0, 0xFF804020U, 0xFF804020U},
             {"half, and alpha is lost", 0x00804020U, 50.0, 0xFF402010U, 0xFF806050U},
             {"negative", 0xFF804020U, -1.0, 0xFF000000U, 0xFF808080U},
             {"not a number", 0xFF804020U, qQNaN(), 0xFF000000U, 0xFF808080U}};
        for (const auto& [name, argb, percent, value, saturation] : integers) {
            QVERIFY2(ui::changeValue(argb, percent) == value, name);
            QVERIFY2(ui::changeSaturation(argb, percent) == saturation, name);
        }
    }

    void namesAreLookedUpInTheNewestTheme()
    {
        constexpr Color kColor = Color::fromRgba(0x12, 0x34, 0x56, 0x78);
        static_assert(kColor.argb() == 0x78123456U && Color() == Color::fromRgba(0, 0, 0));
        QVERIFY(kColor.red() == 0x12 && kColor.green() == 0x34 && kColor.blue() == 0x56);
        const QString name = QString::fromUtf8("Gr\xC3\xBCn");
        makeTheme<VisualDesignBase>().setColor(name, Qt::green);
        auto& newer = makeTheme<VisualDesignBase>();
        QCOMPARE(ui::colorQt(name), QColor(Qt::black));
        QCOMPARE(VisualDesignBase::takeMissedColors(), QStringList(name));
        newer.setColor(name, QColor(1, 2, 3, 4));
        newer.setColor(u"Base"_qs, QColor(100, 200, 40));
        QVERIFY(ui::color("Gr\xC3\xBCn") == Color(0x04010203U));
        QCOMPARE(ui::windowBackground().rgba(), qRgb(75, 150, 30));
        QCOMPARE(ui::windowPassthroughBackground().rgba(), qRgb(68, 136, 27));
    }
};

const Registration<ImagesTest> kRegistration;

#include "tst_images.moc"
