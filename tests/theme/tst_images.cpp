#include "support/TestCase.h"
#include "support/pixels.h"
#include "support/themes.h"
#include <MorrantUI/theme/VisualDesignBase.h>
#include <MorrantUI/theme/images.h>

#include <include/core/SkBitmap.h>
#include <include/core/SkImageInfo.h>

#include <limits>

using ui::test::closeTo;

namespace {

const QImage::Format kFormat = QImage::Format_ARGB32_Premultiplied;

QImage blank(int width, int height)
{
    QImage image(width, height, kFormat);
    image.fill(Qt::blue);
    return image;
}

} // namespace

class ImagesTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void aSwatchHasRoundedTransparentCorners();
    void aRoundSwatchIsADiscOrAPill();
    void aChequerBoxIsColouredInTwoQuadrants();
    void emptySizesGiveNullImages();
    void segmentsFillTheStripWithoutGaps_data();
    void segmentsFillTheStripWithoutGaps();
    void translucentColoursLieOverAChequer();
    void aStripWithoutColoursIsTransparent();
    void tintingKeepsAlphaAndDarkPixels();
    void bitmapsAreCopiedByTheirColourType_data();
    void bitmapsAreCopiedByTheirColourType();
    void bitmapsWithoutReadablePixelsAreNull();
    void aPartOfABitmapIsCopiedRowByRow();
    void base64HoldsAPngOfTheSamePixels();
    void imagesShrinkIntoTheLargestSide_data();
    void imagesShrinkIntoTheLargestSide();

private:
    VisualDesignBase* m_theme = nullptr;
};

void ImagesTest::initTestCase()
{
    m_theme = &ui::test::makeTheme<VisualDesignBase>();
    m_theme->setColor(QStringLiteral("Base"), QColor(40, 50, 60));
}

void ImagesTest::aSwatchHasRoundedTransparentCorners()
{
    const QColor color(200, 100, 50, 128);
    const QImage image = ui::drawColorSquare(color, {20, 12}, 4);

    QCOMPARE(image.format(), kFormat);
    QCOMPARE(image.size(), QSize(20, 12));
    QVERIFY(closeTo(image.pixelColor(10, 6), color));
    QVERIFY(closeTo(image.pixelColor(19, 6), color));
    QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
    QCOMPARE(image.pixelColor(19, 11).alpha(), 0);
    QVERIFY(closeTo(ui::drawColorSquare(color, {20, 12}, 0).pixelColor(0, 0), color));
}

void ImagesTest::aRoundSwatchIsADiscOrAPill()
{
    const QImage disc = ui::drawRoundColor(Qt::red, {15, 15});
    QCOMPARE(disc.pixelColor(7, 7), QColor(Qt::red));
    QCOMPARE(disc.pixelColor(1, 1).alpha(), 0);

    const QImage pill = ui::drawRoundColor(Qt::red, {10, 40});
    QCOMPARE(pill.pixelColor(0, 0).alpha(), 0);
    QCOMPARE(pill.pixelColor(1, 20), QColor(Qt::red));
}

void ImagesTest::aChequerBoxIsColouredInTwoQuadrants()
{
    const QImage image = ui::drawChequerBox(Qt::red, {16, 12}, 5);

    QCOMPARE(image.format(), kFormat);
    QCOMPARE(image.pixelColor(7, 5), QColor(Qt::red));
    QCOMPARE(image.pixelColor(8, 6), QColor(Qt::red));
    QCOMPARE(image.pixelColor(8, 5), QColor(Qt::white));
    QCOMPARE(image.pixelColor(7, 6), QColor(Qt::white));
    QCOMPARE(image.pixelColor(0, 0), QColor(Qt::white)); // outside the corner, not transparent
}

void ImagesTest::emptySizesGiveNullImages()
{
    QVERIFY(ui::drawColorSquare(Qt::red, {0, 5}, 2).isNull());
    QVERIFY(ui::drawChequerBox(Qt::red, {-1, 5}, 2).isNull());
    QVERIFY(ui::drawRoundColor(Qt::red, {}).isNull());
    for (const double width : {0.9, -3.0, 1e300, std::numeric_limits<double>::quiet_NaN()}) {
        QVERIFY(ui::drawPalettePreview({Qt::red}, width).isNull());
    }
}

void ImagesTest::segmentsFillTheStripWithoutGaps_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("width");
    QTest::addColumn<QList<int>>("widths");

    QTest::newRow("remainder") << 3 << 100 << QList<int>{33, 33, 34};
    QTest::newRow("even") << 4 << 100 << QList<int>{25, 25, 25, 25};
    QTest::newRow("single") << 1 << 7 << QList<int>{7};
    QTest::newRow("more colours than pixels") << 3 << 2 << QList<int>{0, 0, 2};
}

void ImagesTest::segmentsFillTheStripWithoutGaps()
{
    QFETCH(const int, count);
    QFETCH(const int, width);
    QList<int> widths;
    int end = 0;
    for (int i = 0; i < count; ++i) {
        const QRect segment = ui::palettePreviewSegment(i, count, width);
        QCOMPARE(segment.x(), end);
        end = segment.x() + segment.width();
        widths << segment.width();
    }
    QTEST(widths, "widths");
    QCOMPARE(end, width);
    QVERIFY(ui::palettePreviewSegment(count, count, width).isEmpty());
    QVERIFY(ui::palettePreviewSegment(-1, count, width).isEmpty());
}

void ImagesTest::translucentColoursLieOverAChequer()
{
    const QImage image =
        ui::drawPalettePreview({Qt::red, QColor(0, 0, 255, 0), QColor(0, 255, 0, 128)}, 24.9);
    const QColor base = m_theme->getColor(QStringLiteral("Base"));

    QCOMPARE(image.size(), QSize(24, 16));
    QCOMPARE(image.pixelColor(7, 15), QColor(Qt::red));
    QCOMPARE(image.pixelColor(8, 0), QColor(Qt::white));
    QCOMPARE(image.pixelColor(12, 0), base);
    QCOMPARE(image.pixelColor(11, 4), base);
    QCOMPARE(image.pixelColor(15, 15), QColor(Qt::white));
    QVERIFY(closeTo(image.pixelColor(16, 8), QColor(127, 255, 127)));
}

void ImagesTest::aStripWithoutColoursIsTransparent()
{
    const QImage image = ui::drawPalettePreview({}, 10.0);
    QCOMPARE(image.size(), QSize(10, 16));
    QCOMPARE(image.pixelColor(5, 5).alpha(), 0);
}

void ImagesTest::tintingKeepsAlphaAndDarkPixels()
{
    QImage source(4, 1, kFormat);
    source.fill(Qt::transparent);
    source.setPixelColor(1, 0, Qt::white);
    source.setPixelColor(2, 0, Qt::black);
    source.setPixelColor(3, 0, QColor(255, 255, 255, 128));
    const QPixmap original = QPixmap::fromImage(source);
    const QColor tint(200, 100, 50);
    const QImage tinted = ui::tintPixmap(original, tint).toImage();

    QCOMPARE(tinted.pixelColor(0, 0).alpha(), 0);
    QVERIFY(closeTo(tinted.pixelColor(1, 0), tint));
    QVERIFY(closeTo(tinted.pixelColor(2, 0), Qt::black));
    // Darkening composes the copy over what is there, which thickens half transparent pixels.
    QVERIFY(closeTo(tinted.pixelColor(3, 0), QColor(219, 153, 120, 192), 4));
    QCOMPARE(original.toImage().pixelColor(1, 0), QColor(Qt::white));
    QVERIFY(ui::tintPixmap(QPixmap(), tint).isNull());
}

void ImagesTest::bitmapsAreCopiedByTheirColourType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<QColor>("expected");

    // The bytes 10, 20, 30, 128 read as each type.
    QTest::newRow("RGBA, not premultiplied")
        << int(kRGBA_8888_SkColorType) << QImage::Format_RGBA8888 << QColor(10, 20, 30, 128);
    QTest::newRow("BGRA") << int(kBGRA_8888_SkColorType) << kFormat << QColor(60, 40, 20, 128);
    QTest::newRow("other, opaque")
        << int(kRGB_888x_SkColorType) << QImage::Format_RGB32 << QColor(30, 20, 10);
}

void ImagesTest::bitmapsAreCopiedByTheirColourType()
{
    QFETCH(const int, type);
    SkBitmap bitmap;
    bitmap.allocPixels(
        SkImageInfo::Make(3, 2, static_cast<SkColorType>(type), kPremul_SkAlphaType));
    const std::array<uchar, 4> bytes{10, 20, 30, 128};
    for (int y = 0; y < 2; ++y) {
        for (int x = 0; x < 3; ++x) {
            std::memcpy(bitmap.getAddr(x, y), bytes.data(), bytes.size());
        }
    }
    const QImage image = SkBitmapToQImage(&bitmap);
    bitmap.reset(); // the image must not lean on the bitmap's memory

    QTEST(image.format(), "format");
    QCOMPARE(image.size(), QSize(3, 2));
    QFETCH(const QColor, expected);
    QVERIFY(closeTo(image.pixelColor(2, 1), expected, 1));
}

void ImagesTest::bitmapsWithoutReadablePixelsAreNull()
{
    QVERIFY(SkBitmapToQImage(nullptr).isNull());
    const SkBitmap empty;
    QVERIFY(SkBitmapToQImage(&empty).isNull());

    SkBitmap narrow; // rows long enough for four bytes a pixel, but not the last one
    const auto info = SkImageInfo::Make(4, 2, kRGB_565_SkColorType, kOpaque_SkAlphaType);
    narrow.allocPixels(info, 16);
    QVERIFY(SkBitmapToQImage(&narrow).isNull());
}

void ImagesTest::aPartOfABitmapIsCopiedRowByRow()
{
    SkBitmap whole;
    whole.allocN32Pixels(10, 10);
    whole.eraseColor(SK_ColorRED);
    whole.eraseArea(SkIRect::MakeXYWH(7, 7, 3, 3), SK_ColorGREEN);
    SkBitmap part;
    QVERIFY(whole.extractSubset(&part, SkIRect::MakeXYWH(6, 6, 4, 4)));

    const QImage image = SkBitmapToQImage(&part);
    QCOMPARE(image.size(), QSize(4, 4));
    QCOMPARE(image.pixelColor(0, 3), QColor(Qt::red));
    QCOMPARE(image.pixelColor(3, 3), QColor(Qt::green));
}

void ImagesTest::base64HoldsAPngOfTheSamePixels()
{
    QImage image = blank(5, 3);
    image.setPixelColor(4, 2, Qt::red);
    const QByteArray bytes = QByteArray::fromBase64(QImageToBase64(image).toLatin1());

    const QImage decoded = QImage::fromData(bytes, "PNG");
    QCOMPARE(decoded.convertToFormat(kFormat), image);
    QCOMPARE(QImageToBase64(QImage()), QString());
}

void ImagesTest::imagesShrinkIntoTheLargestSide_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("max");
    QTest::addColumn<QSize>("expected");

    QTest::newRow("fits") << QSize(64, 32) << 64 << QSize(64, 32);
    QTest::newRow("wide") << QSize(200, 100) << 50 << QSize(50, 25);
    QTest::newRow("tall") << QSize(30, 90) << 30 << QSize(10, 30);
    QTest::newRow("a thread") << QSize(1000, 1) << 10 << QSize(10, 1);
    QTest::newRow("zero") << QSize(20, 20) << 0 << QSize(1, 1);
    QTest::newRow("negative") << QSize(20, 20) << -5 << QSize(1, 1);
    QTest::newRow("null image") << QSize(0, 0) << -5 << QSize(0, 0);
}

void ImagesTest::imagesShrinkIntoTheLargestSide()
{
    QFETCH(const QSize, size);
    QFETCH(const int, max);
    const QImage image = blank(size.width(), size.height());
    QTEST(resizeToMaxDimension(image, max).size(), "expected");
}

const ui::test::Registration<ImagesTest> kRegistration;

#include "tst_images.moc"
