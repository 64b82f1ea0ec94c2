// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets>

#include <algorithm>
#include <cmath>

namespace ui::test {

/// Renders a widget, laid out but not necessarily shown, into an image of the given device pixel
/// ratio over a transparent ground. Children are included, the system's window background is not.
inline QImage renderWidget(QWidget& widget, double devicePixelRatio = 1.0)
{
    const QSizeF device = QSizeF(widget.size()) * devicePixelRatio;
    QImage image(
        qCeil(device.width()), qCeil(device.height()), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(Qt::transparent);
    widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

/// What is drawn on a ground of so many logical pixels.
template <typename Draw>
QImage drawn(QSizeF size, double devicePixelRatio, const QColor& ground, Draw draw)
{
    QImage image((size * devicePixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(ground);
    QPainter painter(&image);
    draw(painter);
    painter.end();
    return image;
}

/// Whether anything can be seen in it.
inline bool hasInk(const QImage& image)
{
    QImage empty(image.size(), image.format());
    empty.fill(Qt::transparent);
    empty.setDevicePixelRatio(image.devicePixelRatio());
    return image != empty;
}

/// The colour of the device pixel that holds a point in logical pixels; invalid outside the image.
inline QColor pixelAt(const QImage& image, QPointF logical)
{
    const QPointF device = logical * image.devicePixelRatio();
    const QPoint pixel(qFloor(device.x()), qFloor(device.y()));
    return image.rect().contains(pixel) ? image.pixelColor(pixel) : QColor();
}

/// Whether two colours differ by at most `tolerance` in every channel, alpha included.
inline bool closeTo(const QColor& a, const QColor& b, int tolerance = 2)
{
    return std::max({
               std::abs(a.red() - b.red()),
               std::abs(a.green() - b.green()),
               std::abs(a.blue() - b.blue()),
               std::abs(a.alpha() - b.alpha()),
           })
           <= tolerance;
}

} // namespace ui::test
