// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRect>
#include <QRectF>
#include <QTransform>

class QPainter;

namespace ui::style {

/// The device pixels under a painter, so that a line meant as one pixel covers whole pixels at any
/// device ratio. Coordinates are the painter's own; a rotated painter is left unsnapped.
class PixelGrid
{
public:
    explicit PixelGrid(const QPainter& painter);

    /// The logical thickness of a line of `width` logical pixels, rounded to whole device pixels
    /// and never less than one of them.
    double line(double width = 1.0) const;

    /// The rectangle with every edge moved to the nearest device pixel.
    QRectF snap(const QRectF& rect) const;

    /// Whether device pixels are rows and columns to the painter: not when it is rotated.
    bool isAligned() const { return m_aligned; }
    /// Device pixels in a logical pixel; 1 for a rotated painter.
    double scale() const;
    /// The rectangle in device pixels, at the nearest position and of the nearest whole size, so
    /// that equal sizes stay equal wherever they are. For an aligned painter.
    QRect toDevice(const QRectF& rect) const;
    QRectF fromDevice(const QRect& rect) const;

private:
    QTransform m_toDevice;
    bool m_aligned;
};

} // namespace ui::style
