// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/painting.h"

#include <QFontMetrics>
#include <QPainter>
#include <QWidget>

#include <algorithm>

namespace ui {

namespace {

constexpr int kPixmapGap = 5; ///< logical pixels between a centred text and the pixmap above it

num2<double> limitedRadius(const num2<double>& radius, const QRectF& rect)
{
    // Written so that NaN becomes zero.
    const auto limited = [](double value, double limit) {
        return value > 0.0 ? std::min(value, std::max(limit, 0.0)) : 0.0;
    };
    return {limited(radius.x, rect.width() / 2.0), limited(radius.y, rect.height() / 2.0)};
}

} // namespace

QRectF borderedRect(const QRectF& rect, double penWidth, bool pixelAligned)
{
    const double inset = penWidth * 0.5;
    const QRectF inside = rect.adjusted(inset, inset, -inset, -inset);
    return pixelAligned ? inside.adjusted(0.5, 0.5, -0.5, -0.5) : inside;
}

QPainterPath radiusClip(const std::array<num2<double>, 4>& radii, const QRectF& rect)
{
    const num2<double> topLeft = limitedRadius(radii[0], rect);
    const num2<double> topRight = limitedRadius(radii[1], rect);
    const num2<double> bottomRight = limitedRadius(radii[2], rect);
    const num2<double> bottomLeft = limitedRadius(radii[3], rect);
    const double left = rect.x();
    const double top = rect.y();
    const double right = left + rect.width();
    const double bottom = top + rect.height();

    QPainterPath path;
    // A quarter turn clockwise; Qt counts degrees counter-clockwise from three o'clock.
    const auto corner = [&](double x, double y, const num2<double>& radius, double startAngle) {
        path.arcTo(QRectF(x, y, 2.0 * radius.x, 2.0 * radius.y), startAngle, -90.0);
    };
    path.moveTo(left + topLeft.x, top);
    path.lineTo(right - topRight.x, top);
    corner(right - 2.0 * topRight.x, top, topRight, 90.0);
    path.lineTo(right, bottom - bottomRight.y);
    corner(right - 2.0 * bottomRight.x, bottom - 2.0 * bottomRight.y, bottomRight, 0.0);
    path.lineTo(left + bottomLeft.x, bottom);
    corner(left, bottom - 2.0 * bottomLeft.y, bottomLeft, 270.0);
    path.lineTo(left, top + topLeft.y);
    corner(left, top, topLeft, 180.0);
    path.closeSubpath();
    return path;
}

CentredText centredText(QSize widget, QSize textBox, std::optional<double> pixmapWidth)
{
    const int centreX = (widget.width() - 1) / 2;
    const int centreY = (widget.height() - 1) / 2;
    double offset = textBox.height() * 0.25;

    CentredText result;
    if (pixmapWidth) {
        const double half = *pixmapWidth / 2.0;
        result.pixmapTopLeft =
            QPoint(qRound(centreX - half), qRound(centreY - half - offset - kPixmapGap));
        offset += half + kPixmapGap;
    }
    result.baseline = {qRound(centreX - textBox.width() * 0.5), qRound(centreY + offset)};
    return result;
}

void textAtWidgetCentre(
    QWidget* widget, const QString& text, const QColor& color, const QPixmap* pixmap)
{
    if (!widget) {
        return;
    }
    QPainter painter(widget);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(color);
    painter.setBrush(Qt::NoBrush);

    const QSize textBox = painter.fontMetrics().boundingRect(text).size() + QSize(1, 1);
    const auto pixmapWidth =
        pixmap ? std::optional(pixmap->width() / pixmap->devicePixelRatio()) : std::nullopt;
    const CentredText place = centredText(widget->size(), textBox, pixmapWidth);
    if (place.pixmapTopLeft) {
        painter.drawPixmap(*place.pixmapTopLeft, *pixmap);
    }
    painter.drawText(place.baseline, text);
}

} // namespace ui
