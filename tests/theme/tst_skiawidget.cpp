#include "support/TestCase.h"
#include "support/pixels.h"
#include <MorrantUI/theme/SkiaQWidgetAdapter.h>
#include <MorrantUI/theme/pixels.h>

#include <QPainter>
#include <QPicture>

#include <include/core/SkCanvas.h>
#include <include/core/SkImageInfo.h>
#include <include/core/SkPaint.h>

#include <functional>

using ui::test::closeTo;
using ui::test::pixelAt;
using ui::test::renderWidget;

namespace {

class Canvas : public ui::SkiaQWidgetAdapter
{
public:
    std::function<void(SkCanvas*, SkPaint)> draw = [](SkCanvas*, SkPaint) {};

protected:
    void paintSkia(SkCanvas* canvas, const SkPaint& paint) override { draw(canvas, paint); }
};

sk_sp<SkSurface> filledSurface(
    SkColor color,
    int size = 8,
    SkColorType type = kN32_SkColorType,
    SkAlphaType alpha = kPremul_SkAlphaType)
{
    sk_sp<SkSurface> surface = SkSurfaces::Raster(SkImageInfo::Make(size, size, type, alpha));
    surface->getCanvas()->clear(color);
    return surface;
}

QImage target(int size = 8, double ratio = 1.0)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    return image;
}

template <typename Source>
QImage copied(const sk_sp<Source>& source)
{
    QImage image = target();
    QPainter painter(&image);
    return ui::copyPixels(source, &painter) ? image.copy() : QImage();
}

} // namespace

class SkiaWidgetTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theSurfaceIsMadeOnceForEachSize();
    void contentIsDrawnInLogicalPixelsOverTheBackground();
    void nothingOfAPaintReachesTheNext();
    void paintSkiaMayReplaceTheSurface();
    void pixelsOfEveryFormatAreCopied_data();
    void pixelsOfEveryFormatAreCopied();
    void nothingIsDrawnWithoutSourceOrPainter();
    void pixelsLandAtTheOriginWhateverTheTransform();
    void devicePixelsStayOneToOne_data();
    void devicePixelsStayOneToOne();
    void surfacesDrawnInTurnAreNotMixedUp();
    void aRecordedCopyOutlivesTheSurface();
    void renderSizesCoverTheDevice();
};

void SkiaWidgetTest::theSurfaceIsMadeOnceForEachSize()
{
    Canvas widget;
    widget.resize(30, 20);
    QVERIFY(widget.surface() == nullptr);

    renderWidget(widget);
    const sk_sp<SkSurface> first = widget.surface();
    const QSize size = ui::renderSizeFromDevice(&widget);
    QCOMPARE(QSize(first->width(), first->height()), size);
    QCOMPARE(size, QSize(30, 20) * widget.devicePixelRatio());

    renderWidget(widget);
    QVERIFY(widget.surface() == first);
    widget.resize(31, 20);
    renderWidget(widget);
    QVERIFY(widget.surface() != first);
    QCOMPARE(widget.surface()->width(), ui::renderSizeFromDevice(&widget).width());
}

void SkiaWidgetTest::contentIsDrawnInLogicalPixelsOverTheBackground()
{
    Canvas widget;
    widget.resize(30, 20);
    widget.setBackgroundColor(Qt::blue);
    SkPaint given;
    widget.draw = [&](SkCanvas* canvas, SkPaint paint) {
        given = paint;
        paint.setColor(SK_ColorRED);
        canvas->drawRect(SkRect::MakeXYWH(20, 10, 10, 10), paint);
    };

    const QImage image = renderWidget(widget, 2.0);
    QVERIFY(closeTo(pixelAt(image, {21, 11}), Qt::red));
    QVERIFY(closeTo(pixelAt(image, {29, 19}), Qt::red));
    QVERIFY(closeTo(pixelAt(image, {18, 8}), Qt::blue));
    QVERIFY(given.isAntiAlias());
}

void SkiaWidgetTest::nothingOfAPaintReachesTheNext()
{
    Canvas widget;
    widget.resize(20, 20);
    widget.draw = [](SkCanvas* canvas, SkPaint paint) {
        paint.setColor(SkColorSetARGB(100, 255, 0, 0));
        canvas->drawPaint(paint);
        canvas->save();
        canvas->clipRect(SkRect::MakeWH(5, 5));
        canvas->translate(50, 50);
    };
    const QImage first = renderWidget(widget);
    QCOMPARE(renderWidget(widget), first);
    QVERIFY(closeTo(pixelAt(first, {15, 15}), QColor(255, 0, 0, 100)));
}

void SkiaWidgetTest::paintSkiaMayReplaceTheSurface()
{
    Canvas widget;
    widget.resize(20, 20);
    widget.draw = [&](SkCanvas* canvas, const SkPaint& /*paint*/) {
        widget.updateSurface();
        canvas->clear(SK_ColorRED);
    };
    QVERIFY(closeTo(pixelAt(renderWidget(widget), {10, 10}), Qt::red));
}

void SkiaWidgetTest::pixelsOfEveryFormatAreCopied_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("alphaType");
    QTest::addColumn<QColor>("expected");

    const QColor half(200, 100, 40, 128);
    const int premul = kPremul_SkAlphaType;
    const int unpremul = kUnpremul_SkAlphaType;
    QTest::newRow("BGRA") << int(kBGRA_8888_SkColorType) << premul << half;
    QTest::newRow("BGRA, plain") << int(kBGRA_8888_SkColorType) << unpremul << half;
    QTest::newRow("RGBA") << int(kRGBA_8888_SkColorType) << premul << half;
    QTest::newRow("RGBA, plain") << int(kRGBA_8888_SkColorType) << unpremul << half;
    QTest::newRow("half floats") << int(kRGBA_F16_SkColorType) << premul << half;
    QTest::newRow("opaque") << int(kN32_SkColorType) << int(kOpaque_SkAlphaType)
                            << QColor(200, 100, 40);
    QTest::newRow("565") << int(kRGB_565_SkColorType) << int(kOpaque_SkAlphaType)
                         << QColor(200, 100, 40);
}

void SkiaWidgetTest::pixelsOfEveryFormatAreCopied()
{
    QFETCH(const int, type);
    QFETCH(const int, alphaType);
    QFETCH(const QColor, expected);
    const auto alpha = static_cast<SkAlphaType>(alphaType);
    const SkColor color = SkColorSetARGB(static_cast<U8CPU>(expected.alpha()), 200, 100, 40);
    const sk_sp<SkSurface> surface = filledSurface(color, 8, static_cast<SkColorType>(type), alpha);

    QVERIFY(closeTo(copied(surface).pixelColor(7, 7), expected, 8));
    QVERIFY(closeTo(copied(surface->makeImageSnapshot()).pixelColor(7, 7), expected, 8));
}

void SkiaWidgetTest::nothingIsDrawnWithoutSourceOrPainter()
{
    QImage image = target();
    QPainter painter(&image);
    QPainter inactive;
    const sk_sp<SkSurface> surface = filledSurface(SK_ColorRED);

    QVERIFY(!ui::copyPixels(sk_sp<SkSurface>(), &painter));
    QVERIFY(!ui::copyPixels(sk_sp<SkImage>(), &painter));
    QVERIFY(!ui::copyPixels(surface, nullptr));
    QVERIFY(!ui::copyPixels(surface, &inactive));
    QVERIFY(!ui::copyPixels(surface->makeImageSnapshot(), &inactive));
}

void SkiaWidgetTest::pixelsLandAtTheOriginWhateverTheTransform()
{
    QImage image = target(20);
    QPainter painter(&image);
    painter.setClipRect(0, 0, 20, 4);
    painter.setWindow(0, 0, 10, 10);
    painter.translate(5, 5);
    painter.rotate(30);
    const QTransform before = painter.combinedTransform();
    QVERIFY(ui::copyPixels(filledSurface(SK_ColorRED), &painter));

    QCOMPARE(painter.combinedTransform(), before);
    QVERIFY(painter.worldMatrixEnabled() && painter.viewTransformEnabled());
    painter.end();
    QCOMPARE(image.pixelColor(7, 3), QColor(Qt::red));
    QCOMPARE(image.pixelColor(7, 5).alpha(), 0); // the clip holds
    QCOMPARE(image.pixelColor(8, 3).alpha(), 0);
}

void SkiaWidgetTest::devicePixelsStayOneToOne_data()
{
    QTest::addColumn<double>("ratio");
    for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        QTest::addRow("%g", ratio) << ratio;
    }
}

void SkiaWidgetTest::devicePixelsStayOneToOne()
{
    QFETCH(const double, ratio);
    constexpr int kSize = 61;
    QImage image = target(kSize, ratio);
    const sk_sp<SkSurface> surface = filledSurface(SK_ColorTRANSPARENT, kSize);
    SkPixmap pixels;
    QVERIFY(surface->peekPixels(&pixels));
    quint32 noise = 1;
    for (int i = 0; i < kSize * kSize; ++i) {
        noise = noise * 1664525U + 1013904223U;
        *pixels.writable_addr32(i % kSize, i / kSize) = noise | 0xFF000000U;
    }
    QPainter painter(&image);
    QVERIFY(ui::copyPixels(surface, &painter));
    painter.end();

    for (int i = 0; i < kSize * kSize; ++i) {
        QCOMPARE(image.pixel(i % kSize, i / kSize), *pixels.addr32(i % kSize, i / kSize));
    }
}

void SkiaWidgetTest::surfacesDrawnInTurnAreNotMixedUp()
{
    const sk_sp<SkSurface> red = filledSurface(SK_ColorRED);
    const sk_sp<SkSurface> green = filledSurface(SK_ColorGREEN);
    QCOMPARE(copied(red).pixelColor(0, 0), QColor(Qt::red));
    QCOMPARE(copied(green).pixelColor(0, 0), QColor(Qt::green));
    QCOMPARE(copied(red).pixelColor(0, 0), QColor(Qt::red));

    // The memory of a surface that is gone is soon another one's, in another size or format.
    for (const SkColor color : {SK_ColorRED, SK_ColorGREEN, SK_ColorBLUE}) {
        QCOMPARE(copied(filledSurface(color)).pixelColor(7, 7), QColor::fromRgb(color));
        QCOMPARE(
            copied(filledSurface(color, 8, kRGBA_8888_SkColorType)).pixelColor(7, 7),
            QColor::fromRgb(color));
    }
}

void SkiaWidgetTest::aRecordedCopyOutlivesTheSurface()
{
    QPicture picture;
    {
        const sk_sp<SkSurface> surface = filledSurface(SK_ColorRED);
        QPainter recorder(&picture);
        QVERIFY(ui::copyPixels(surface, &recorder));
        recorder.end();
        surface->getCanvas()->clear(SK_ColorGREEN);
    }
    QImage image = target();
    QPainter painter(&image);
    painter.drawPicture(0, 0, picture);
    painter.end();
    QCOMPARE(image.pixelColor(0, 0), QColor(Qt::red));
}

void SkiaWidgetTest::renderSizesCoverTheDevice()
{
    QWidget widget;
    widget.resize(11, 7);
    const double ratio = widget.devicePixelRatio();
    QCOMPARE(ui::renderSizeFromDevice(&widget), QSize(qCeil(11 * ratio), qCeil(7 * ratio)));

    QImage image = target(31, 2.0); // already device pixels
    QCOMPARE(ui::renderSizeFromDevice(&image), QSize(31, 31));
    const QPixmap empty;
    QCOMPARE(ui::renderSizeFromDevice(&empty), QSize(1, 1));
    QCOMPARE(ui::renderSizeFromDevice(nullptr), QSize(1, 1));
}

const ui::test::Registration<SkiaWidgetTest> kRegistration;

#include "tst_skiawidget.moc"
