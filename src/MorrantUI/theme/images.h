// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QColor>
#include <QImage>
#include <QPixmap>
#include <QRect>
#include <QSize>
#include <QString>

#include <vector>

class SkBitmap;

/// Small generated images. Sizes are pixels of the image. All are antialiased and of the format
/// ARGB32 premultiplied; an empty size gives a null image.
namespace ui {

/// A swatch with rounded corners on a transparent ground.
MORRANT_UI_EXPORT QImage drawColorSquare(const QColor& color, QSize size, int radius);

/// A two-by-two chequer with rounded corners: the colour top left and bottom right. Everything else
/// is white, outside the corners too.
MORRANT_UI_EXPORT QImage drawChequerBox(const QColor& color, QSize size, int radius);

/// A disc, or a pill when `size` is not square.
MORRANT_UI_EXPORT QImage drawRoundColor(const QColor& color, QSize size);

/// The colours side by side in a strip 16 pixels high, translucent ones over a chequer of white and
/// the theme's "Base". Without colours the strip is transparent.
/// @param width pixels; a fraction is dropped. Below 1 and above 32767 the image is null.
MORRANT_UI_EXPORT QImage drawPalettePreview(std::vector<QColor> colors, double width);

/// Where drawPalettePreview() puts the segment `index` of `count`: equal widths in whole pixels,
/// and the last one takes what is left. Empty for an index out of range.
MORRANT_UI_EXPORT QRect palettePreviewSegment(int index, int count, int width);

/// Colours a pixmap where it is opaque; what is darker than the colour stays as it is. A null
/// pixmap is returned as it is.
MORRANT_UI_EXPORT QPixmap tintPixmap(QPixmap pixmap, const QColor& color);

} // namespace ui

/// A copy of a bitmap's pixels. Null for a null bitmap, for one without pixels and for pixels
/// narrower than 32 bits.
///
/// RGBA pixels keep their values under a format that is not premultiplied, and any colour type
/// other than RGBA and BGRA is read as opaque 32-bit RGB: deliberate, callers pass opaque
/// bitmaps.
MORRANT_UI_EXPORT QImage SkBitmapToQImage(const SkBitmap* bitmap);

/// The image as a PNG file, in Base64 without a "data:" prefix; empty for a null image.
MORRANT_UI_EXPORT QString QImageToBase64(const QImage& image);

/// The image itself if neither side exceeds `max` pixels, else scaled down smoothly into a square
/// of `max`, keeping its proportions. No side becomes less than one pixel.
MORRANT_UI_EXPORT QImage resizeToMaxDimension(const QImage& image, int max);
