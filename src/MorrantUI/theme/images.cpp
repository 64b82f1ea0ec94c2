// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/images.h"

#include <MorrantUI/theme/colors.h>

#include <QBuffer>
#include <QPainter>
#include <QPainterPath>

#include <include/core/SkBitmap.h>

#include <algorithm>
#include <cmath>

namespace ui {

namespace {

constexpr int kPreviewHeight = 16;           ///< pixels of a palette strip
constexpr double kMaxPreviewWidth = 32767.0; ///< pixels; the most that painting can address
constexpr int kTileSize = 8;                 ///< pixels of the chequer below translucent colours

QImage filledImage(QSize size, const QColor& color)
{
    if (size.isEmpty()) {
        return {};
    }
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    return image;
}

/// Calls `paint` with an antialiasing painter on the image, unless that is null.
template <typename Paint>
QImage painted(QImage image, Paint paint)
{
    if (!image.isNull()) {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        paint(painter, image.rect());
    }
    return image;
}

void clipToRoundedRect(QPainter& painter, const QRect& rect, int radius)
{
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    painter.setClipPath(path);
}

QImage chequerTile()
{
    const QSize square(kTileSize / 2, kTileSize / 2);
    return painted(
        filledImage({kTileSize, kTileSize}, colorQt(QStringLiteral("Base"))),
        [&](QPainter& painter, const QRect& /*rect*/) {
            painter.fillRect(QRect(QPoint(0, 0), square), Qt::white);
            painter.fillRect(QRect(QPoint(kTileSize / 2, kTileSize / 2), square), Qt::white);
        });
}

} // namespace

QImage drawColorSquare(const QColor& color, QSize size, int radius)
{
    return painted(filledImage(size, Qt::transparent), [&](QPainter& painter, const QRect& rect) {
        clipToRoundedRect(painter, rect, radius);
        painter.fillRect(rect, color);
    });
}

QImage drawChequerBox(const QColor& color, QSize size, int radius)
{
    return painted(filledImage(size, Qt::white), [&](QPainter& painter, const QRect& rect) {
        clipToRoundedRect(painter, rect, radius);
        const QSize quadrant(size.width() / 2, size.height() / 2);
        painter.fillRect(QRect(QPoint(quadrant.width(), quadrant.height()), quadrant), color);
        painter.fillRect(QRect(QPoint(0, 0), quadrant), color);
    });
}

QImage drawRoundColor(const QColor& color, QSize size)
{
    return drawColorSquare(color, size, qRound(size.width() * 0.5));
}

QImage drawPalettePreview(std::vector<QColor> colors, double width)
{
    if (!(width >= 1.0 && width <= kMaxPreviewWidth)) {
        return {};
    }
    const QSize size(static_cast<int>(width), kPreviewHeight);
    return painted(filledImage(size, Qt::transparent), [&](QPainter& painter, const QRect& rect) {
        const int count = static_cast<int>(colors.size());
        const QBrush chequer = count > 0 ? QBrush(chequerTile()) : QBrush();
        for (int i = 0; i < count; ++i) {
            const QRect segment = palettePreviewSegment(i, count, rect.width());
            const QColor& color = colors.at(static_cast<std::size_t>(i));
            if (color.alpha() < 255) {
                painter.fillRect(segment, chequer);
            }
            painter.fillRect(segment, color);
        }
    });
}

QRect palettePreviewSegment(int index, int count, int width)
{
    if (index < 0 || index >= count) {
        return {};
    }
    const int step = width / count;
    const int x = index * step;
    return {x, 0, index == count - 1 ? width - x : step, kPreviewHeight};
}

QPixmap tintPixmap(QPixmap pixmap, const QColor& color)
{
    if (pixmap.isNull()) {
        return pixmap;
    }
    const QPixmap original = pixmap.copy();

    QPainter painter(&pixmap);
    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    painter.fillRect(pixmap.rect(), color);
    painter.setCompositionMode(QPainter::CompositionMode_Darken);
    painter.drawPixmap(0, 0, original);
    painter.end();
    return pixmap;
}

} // namespace ui

QImage SkBitmapToQImage(const SkBitmap* bitmap)
{
    if (!bitmap || !bitmap->getPixels()) {
        return {};
    }
    constexpr int kBytesPerPixel = 4; // of every format below
    if (bitmap->bytesPerPixel() < kBytesPerPixel) {
        return {}; // the last row would be read past its end
    }
    const auto format = [&] {
        switch (bitmap->colorType()) {
        case kRGBA_8888_SkColorType: return QImage::Format_RGBA8888;
        case kBGRA_8888_SkColorType: return QImage::Format_ARGB32_Premultiplied;
        default: return QImage::Format_RGB32;
        }
    }();
    return QImage(
               static_cast<const uchar*>(bitmap->getPixels()),
               bitmap->width(),
               bitmap->height(),
               static_cast<qsizetype>(bitmap->rowBytes()),
               format)
        .copy();
}

QString QImageToBase64(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return QString::fromLatin1(bytes.toBase64());
}

QImage resizeToMaxDimension(const QImage& image, int max)
{
    if (image.isNull() || (image.width() <= max && image.height() <= max)) {
        return image;
    }
    const int side = std::max(max, 1);
    return image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}
