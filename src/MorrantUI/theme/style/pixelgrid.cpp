// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/style/pixelgrid.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace ui::style {

PixelGrid::PixelGrid(const QPainter& painter)
    : m_toDevice(painter.deviceTransform())
    , m_aligned(m_toDevice.type() <= QTransform::TxScale && m_toDevice.isInvertible())
{}

double PixelGrid::line(double width) const
{
    const double scale = std::abs(m_toDevice.m22());
    if (!m_aligned) {
        return width;
    }
    return std::max(1.0, std::floor(width * scale + 0.01)) / scale;
}

QRectF PixelGrid::snap(const QRectF& rect) const
{
    if (!m_aligned) {
        return rect;
    }
    const QRectF device = m_toDevice.mapRect(rect);
    const QPointF topLeft(std::round(device.left()), std::round(device.top()));
    const QPointF bottomRight(std::round(device.right()), std::round(device.bottom()));
    return m_toDevice.inverted().mapRect(QRectF(topLeft, bottomRight));
}

double PixelGrid::scale() const
{
    return m_aligned ? std::abs(m_toDevice.m22()) : 1.0;
}

QRect PixelGrid::toDevice(const QRectF& rect) const
{
    const QRectF device = m_toDevice.mapRect(rect);
    return {device.topLeft().toPoint(), device.size().toSize()};
}

QRectF PixelGrid::fromDevice(const QRect& rect) const
{
    return m_toDevice.inverted().mapRect(QRectF(rect));
}

} // namespace ui::style
