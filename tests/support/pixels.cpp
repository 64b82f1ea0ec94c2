// SPDX-License-Identifier: Apache-2.0
#include "support/pixels.h"

#include <QWidget>

#include <cmath>
#include <cstdlib>

namespace ui::test {

QImage renderWidget(QWidget& widget, double devicePixelRatio)
{
    const QSize device(
        static_cast<int>(std::ceil(widget.width() * devicePixelRatio)),
        static_cast<int>(std::ceil(widget.height() * devicePixelRatio)));
    QImage image(device, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(Qt::transparent);
    widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

QColor pixelAt(const QImage& image, QPointF logical)
{
    const QPoint device(
        static_cast<int>(std::floor(logical.x() * image.devicePixelRatio())),
        static_cast<int>(std::floor(logical.y() * image.devicePixelRatio())));
    return image.rect().contains(device) ? image.pixelColor(device) : QColor();
}

bool closeTo(const QColor& a, const QColor& b, int tolerance)
{
    return std::abs(a.red() - b.red()) <= tolerance && std::abs(a.green() - b.green()) <= tolerance
           && std::abs(a.blue() - b.blue()) <= tolerance
           && std::abs(a.alpha() - b.alpha()) <= tolerance;
}

} // namespace ui::test
