// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/pixels.h"

#include <QImage>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>

#include <include/core/SkImageInfo.h>
#include <include/core/SkPixmap.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace ui {

namespace {

constexpr std::size_t kKeptHeaders = 8; ///< as many Skia widgets may paint in turn

/// Takes world and view transform off a painter for a while. Unlike QPainter::save() this allocates
/// nothing.
class UntransformedPainter
{
public:
    explicit UntransformedPainter(QPainter& painter)
        : m_painter(painter)
        , m_world(painter.worldMatrixEnabled())
        , m_view(painter.viewTransformEnabled())
    {
        painter.setWorldMatrixEnabled(false);
        painter.setViewTransformEnabled(false);
    }
    ~UntransformedPainter()
    {
        m_painter.setViewTransformEnabled(m_view);
        m_painter.setWorldMatrixEnabled(m_world);
    }
    Q_DISABLE_COPY_MOVE(UntransformedPainter)

private:
    QPainter& m_painter;
    bool m_world;
    bool m_view;
};

/// The QImage format with the same memory layout.
std::optional<QImage::Format> sameFormat(const SkImageInfo& info)
{
    const bool opaque = info.alphaType() == kOpaque_SkAlphaType;
    const bool premultiplied = info.alphaType() == kPremul_SkAlphaType;
    switch (info.colorType()) {
    case kBGRA_8888_SkColorType:
        if (opaque) {
            return QImage::Format_RGB32;
        }
        return premultiplied ? QImage::Format_ARGB32_Premultiplied : QImage::Format_ARGB32;
    case kRGBA_8888_SkColorType:
        if (opaque) {
            return QImage::Format_RGBX8888;
        }
        return premultiplied ? QImage::Format_RGBA8888_Premultiplied : QImage::Format_RGBA8888;
    default: return std::nullopt;
    }
}

/// An image over memory that it does not own.
///
/// The last few are kept, since even an empty image header is allocated and surfaces are drawn
/// again and again from the same places. A header that was kept may name memory that is gone; it is
/// returned only when it equals the pixels asked for, which are alive.
QImage& wrapped(const SkPixmap& pixels, QImage::Format format)
{
    static std::array<QImage, kKeptHeaders> kept;
    static std::size_t oldest = 0;
    const auto found = std::find_if(kept.begin(), kept.end(), [&](const QImage& image) {
        return image.constBits() == pixels.addr() && image.width() == pixels.width()
               && image.height() == pixels.height() && image.format() == format
               && image.bytesPerLine() == static_cast<qsizetype>(pixels.rowBytes());
    });
    QImage& image = found != kept.end() ? *found : kept.at(oldest++ % kept.size());
    // One that a paint engine still shares cannot be changed without copying the pixels.
    if (found == kept.end() || !image.isDetached()) {
        image = QImage(
            static_cast<uchar*>(pixels.writable_addr()),
            pixels.width(),
            pixels.height(),
            static_cast<qsizetype>(pixels.rowBytes()),
            format);
    }
    return image;
}

void drawAtOrigin(QPainter& painter, QImage& image)
{
    // In logical pixels of the device the image is then as many device pixels large as it has.
    image.setDevicePixelRatio(painter.device()->devicePixelRatio());
    const UntransformedPainter untransformed(painter);
    painter.drawImage(QPointF(), image);
}

/// Draws pixels in memory; converts those that QImage has no format for.
bool drawPixels(const SkPixmap& pixels, QPainter& painter)
{
    const auto format = sameFormat(pixels.info());
    if (format && painter.paintEngine()->type() == QPaintEngine::Raster) {
        drawAtOrigin(painter, wrapped(pixels, *format));
        return true;
    }
    // An engine that records or caches images must not be handed memory that is not its own.
    QImage copy(pixels.width(), pixels.height(), QImage::Format_ARGB32_Premultiplied);
    const auto info = SkImageInfo::Make(
        pixels.width(), pixels.height(), kBGRA_8888_SkColorType, kPremul_SkAlphaType);
    if (copy.isNull()
        || !pixels.readPixels(info, copy.bits(), static_cast<std::size_t>(copy.bytesPerLine())))
    {
        return false;
    }
    drawAtOrigin(painter, copy);
    return true;
}

bool canPaint(const QPainter* painter)
{
    return painter && painter->isActive();
}

} // namespace

bool copyPixels(const sk_sp<SkSurface>& surface, QPainter* painter)
{
    if (!surface || !canPaint(painter)) {
        return false;
    }
    SkPixmap pixels;
    if (surface->peekPixels(&pixels)) {
        return drawPixels(pixels, *painter);
    }
    return copyPixels(surface->makeImageSnapshot(), painter);
}

bool copyPixels(const sk_sp<SkImage>& image, QPainter* painter)
{
    if (!image || !canPaint(painter)) {
        return false;
    }
    SkPixmap pixels;
    if (image->peekPixels(&pixels)) {
        return drawPixels(pixels, *painter);
    }
    const sk_sp<SkImage> raster = image->makeRasterImage(nullptr);
    return raster && raster->peekPixels(&pixels) && drawPixels(pixels, *painter);
}

QSize renderSizeFromDevice(const QPaintDevice* device)
{
    if (!device) {
        return {1, 1};
    }
    // Images and pixmaps already report device pixels, everything else logical ones.
    const int type = device->devType();
    const bool inDevicePixels = type == QInternal::Image || type == QInternal::Pixmap;
    const double ratio = inDevicePixels ? 1.0 : device->devicePixelRatio();
    const auto covering = [ratio](int length) {
        return static_cast<int>(std::ceil(std::max(length * ratio, 1.0)));
    };
    return {covering(device->width()), covering(device->height())};
}

} // namespace ui
