// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QIcon>
#include <QPixmap>
#include <QRectF>

class QPainter;

/// Icons on whole device pixels. At a device ratio such as 1.25 the logical position of an icon
/// lies between pixels, where Qt would drop and repeat rows of it.
namespace ui::style {

/// Draws a small pixmap over `rect`: moved to the nearest device pixel and, unless its pixels fit
/// as they are, resampled smoothly to whole pixels. Pictures larger than icons and rotated painters
/// get Qt's own smooth drawing.
void drawSharp(QPainter& painter, const QRectF& rect, const QPixmap& pixmap);

/// Draws an icon in the middle of `rect`, from the pixels that are best for the painter's ratio.
void drawSharp(
    QPainter& painter,
    const QRectF& rect,
    const QIcon& icon,
    QIcon::Mode mode,
    QIcon::State state = QIcon::Off);

/// The same icon, which draws itself with drawSharp(): for options handed on to the base style.
QIcon sharpened(const QIcon& icon);

} // namespace ui::style
