#pragma once

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

private:
    QTransform m_toDevice;
    bool m_aligned;
};

} // namespace ui::style
