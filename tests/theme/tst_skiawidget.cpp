// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"
#include <MorrantUI/theme/SkiaQWidgetAdapter.h>
#include <MorrantUI/theme/pixels.h>

#include <include/core/SkCanvas.h>
#include <include/core/SkImageInfo.h>
#include <include/core/SkPaint.h>

using namespace ui::test;

namespace {

class Canvas : public ui::SkiaQWidgetAdapter
{
public:
    Canvas() { resize(30, 20); }
    std::function<void(SkCanvas*, SkPaint)> draw = [](SkCanvas*, SkPaint) {};

protected:
    void paintSkia(SkCanvas* canvas, const SkPaint& paint) override { draw(canvas, paint); }
};

sk_sp<SkSurface> filledSurface(
    SkColor color, const SkImageInfo& info = SkImageInfo::MakeN32Premul(8, 8))
{
    sk_sp<SkSurface> surface = SkSurfaces::Raster(info);
    surface->getCanvas()->clear(color);
    return surface;
}

/// A pixel of a source that was copied; invalid if none was.
template <typename Source>
QColor copied(const sk_sp<Source>& source)
{
    bool isCopied = false;
    const QImage image = drawn({8, 8}, 1.0, Qt::transparent, [&](QPainter& painter) {
        isCopied = ui::copyPixels(source, &painter);
    });
    return isCopied ? image.pixelColor(7, 7) : QColor();
}

} // namespace

class SkiaWidgetTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theSurfaceIsMadeOnceForEachSize()
    {
        Canvas widget;
        renderWidget(widget);
        const sk_sp<SkSurface> first = widget.surface();
        QCOMPARE(QSize(first->width(), first->height()), QSize(30, 20) * widget.devicePixelRatio());
        renderWidget(widget);
        QVERIFY(widget.surface() == first);
        widget.resize(31, 7);
        renderWidget(widget);
        const double ratio = widget.devicePixelRatio();
        const QSize size(qCeil(31 * ratio), qCeil(7 * ratio));
        QCOMPARE(ui::renderSizeFromDevice(&widget), size);
        QCOMPARE(widget.surface()->width(), size.width());
    }

    void eachPaintStartsAnewInLogicalPixelsOverTheBackground()
    {
        Canvas widget;
        widget.setBackgroundColor(Qt::blue);
        SkColor color = SkColorSetARGB(100, 255, 0, 0);
        widget.draw = [&](SkCanvas* canvas, SkPaint paint) {
            QVERIFY(paint.isAntiAlias());
            paint.setColor(color);
            canvas->drawRect(SkRect::MakeXYWH(20, 10, 10, 10), paint);
            canvas->save();
            canvas->clipRect(SkRect::MakeWH(5, 5));
            canvas->translate(50, 50);
        };
        const QImage image = renderWidget(widget, 2.0);
        QVERIFY(closeTo(pixelAt(image, {29, 19}), QColor(100, 0, 155)));
        QVERIFY(closeTo(pixelAt(image, {18, 8}), Qt::blue));
        color = SkColorSetARGB(100, 0, 255, 0);
        QVERIFY(closeTo(pixelAt(renderWidget(widget, 2.0), {29, 19}), QColor(0, 100, 155)));

        widget.draw = [&](SkCanvas* canvas, const SkPaint& /*paint*/) {
            widget.updateSurface(); // which replaces what is painted on
            canvas->clear(SK_ColorRED);
        };
        QVERIFY(closeTo(pixelAt(renderWidget(widget), {10, 10}), Qt::red));
    }

    void pixelsOfEveryFormatAreCopiedIfThereIsAPainter()
    {
        for (const auto type :
             {kBGRA_8888_SkColorType, kRGBA_8888_SkColorType, kRGBA_F16_SkColorType}) {
            for (const auto alphaType :
                 {kPremul_SkAlphaType, kUnpremul_SkAlphaType, kOpaque_SkAlphaType}) {
                const QColor color(200, 100, 40, alphaType == kOpaque_SkAlphaType ? 255 : 128);
                const sk_sp<SkSurface> surface =
                    filledSurface(color.rgba(), SkImageInfo::Make(8, 8, type, alphaType));
                QVERIFY(closeTo(copied(surface), color, 2));
                QVERIFY(closeTo(copied(surface->makeImageSnapshot()), color, 2));
            }
        }
        QPainter inactive;
        QVERIFY(!ui::copyPixels(filledSurface(SK_ColorRED), nullptr));
        QVERIFY(!ui::copyPixels(filledSurface(SK_ColorRED), &inactive));
        QVERIFY(!copied(sk_sp<SkSurface>()).isValid() && !copied(sk_sp<SkImage>()).isValid());
    }

    void pixelsLandAtTheOriginWhateverTheTransform()
    {
        const QImage image = drawn({20, 20}, 1.0, Qt::transparent, [](QPainter& painter) {
            painter.setClipRect(0, 0, 20, 4);
            painter.setWindow(0, 0, 10, 10);
            painter.rotate(30);
            const QTransform before = painter.combinedTransform();
            QVERIFY(ui::copyPixels(filledSurface(SK_ColorRED), &painter));
            QCOMPARE(painter.combinedTransform(), before);
        });
        QCOMPARE(image.pixelColor(7, 3), QColor(Qt::red));
        QCOMPARE(image.pixelColor(7, 5).alpha(), 0); // the clip holds
        QCOMPARE(image.pixelColor(8, 3).alpha(), 0);
    }

    void devicePixelsStayOneToOne()
    {
        constexpr int kSize = 61;
        const sk_sp<SkSurface> surface =
            filledSurface(SK_ColorTRANSPARENT, SkImageInfo::MakeN32Premul(kSize, kSize));
        SkPixmap pixels;
        QVERIFY(surface->peekPixels(&pixels));
        for (int i = 0; i < kSize * kSize; ++i) {
            *pixels.writable_addr32(i % kSize, i / kSize) = quint32(i) * 2654435761U | 0xFF000000U;
        }
        for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
            const QSizeF size = QSizeF(kSize, kSize) / ratio;
            const QImage image = drawn(size, ratio, Qt::transparent, [&](QPainter& painter) {
                QVERIFY(ui::copyPixels(surface, &painter));
            });
            QVERIFY(std::equal(
                pixels.addr32(),
                pixels.addr32() + kSize * kSize,
                reinterpret_cast<const quint32*>(image.constBits())));
        }
    }

    void surfacesDrawnInTurnAreNotMixedUp()
    {
        const sk_sp<SkSurface> red = filledSurface(SK_ColorRED);
        QCOMPARE(copied(red), QColor(Qt::red));
        QCOMPARE(copied(filledSurface(SK_ColorGREEN)), QColor(Qt::green));
        QCOMPARE(copied(red), QColor(Qt::red));
        // The memory of a surface that is gone is soon another one's, in another format.
        std::array<quint32, 64> memory{};
        for (const auto type : {kBGRA_8888_SkColorType, kRGBA_8888_SkColorType}) {
            const auto info = SkImageInfo::Make(8, 8, type, kPremul_SkAlphaType);
            const auto surface = SkSurfaces::WrapPixels(info, memory.data(), 32);
            surface->getCanvas()->clear(SK_ColorRED);
            QCOMPARE(copied(surface), QColor(Qt::red));
        }
    }
};

const Registration<SkiaWidgetTest> kRegistration;

#include "tst_skiawidget.moc"
