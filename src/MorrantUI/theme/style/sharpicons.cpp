// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/style/sharpicons.h"

#include "MorrantUI/theme/style/pixelgrid.h"
#include "MorrantUI/theme/style/shapes.h"

#include <QIconEngine>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace ui::style {

namespace {

constexpr double kLargestIcon = 64.0; ///< side; resampling more at every paint is too slow

/// The icon's pixels for a logical size. Asked for a ratio between whole ones Qt answers with those
/// of the smaller, which would be enlarged; those of the larger are scaled down.
QPixmap pixelsFor(
    const QIcon& icon, const QSize& size, double ratio, QIcon::Mode mode, QIcon::State state)
{
    return icon.pixmap(size, std::ceil(ratio), mode, state);
}

class SharpIconEngine : public QIconEngine
{
public:
    explicit SharpIconEngine(const QIcon& icon)
        : m_icon(icon)
    {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        drawSharp(*painter, rect, m_icon, mode, state);
    }

    /// `size` is in device pixels here and in scaledPixmap().
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        return m_icon.pixmap(size, 1.0, mode, state);
    }

    QPixmap scaledPixmap(
        const QSize& size, QIcon::Mode mode, QIcon::State state, qreal ratio) override
    {
        const double scale = std::max(1.0, ratio);
        QPixmap pixels = pixelsFor(m_icon, (QSizeF(size) / scale).toSize(), scale, mode, state);
        pixels.setDevicePixelRatio(1.0);
        if (pixels.width() > size.width() || pixels.height() > size.height()) {
            pixels = pixels.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        }
        return pixels;
    }

    QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        return m_icon.actualSize(size, mode, state);
    }

    QIconEngine* clone() const override { return new SharpIconEngine(m_icon); }

private:
    QIcon m_icon;
};

} // namespace

void drawSharp(QPainter& painter, const QRectF& rect, const QPixmap& pixmap)
{
    const PixelGrid grid(painter);
    const bool isIcon = std::max(rect.width(), rect.height()) <= kLargestIcon;
    const PainterState state(painter);
    if (!isIcon || !grid.isAligned()) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawPixmap(rect, pixmap, pixmap.rect());
        return;
    }
    const QRect place = grid.toDevice(rect);
    if (place.isEmpty()) {
        return;
    }
    QPixmap fitting = pixmap;
    if (pixmap.size() != place.size()) {
        fitting = pixmap.scaled(place.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawPixmap(grid.fromDevice(place), fitting, fitting.rect());
}

void drawSharp(
    QPainter& painter, const QRectF& rect, const QIcon& icon, QIcon::Mode mode, QIcon::State state)
{
    const double scale = PixelGrid(painter).scale();
    const QPixmap pixmap = pixelsFor(icon, rect.size().toSize(), scale, mode, state);
    if (pixmap.isNull()) {
        return;
    }
    const QSizeF natural = pixmap.deviceIndependentSize();
    QRectF place({}, natural.scaled(natural.boundedTo(rect.size()), Qt::KeepAspectRatio));
    place.moveCenter(rect.center());
    drawSharp(painter, place, pixmap);
}

QIcon sharpened(const QIcon& icon)
{
    return icon.isNull() ? icon : QIcon(new SharpIconEngine(icon));
}

} // namespace ui::style
