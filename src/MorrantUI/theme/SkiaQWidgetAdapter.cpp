// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/SkiaQWidgetAdapter.h"

#include <MorrantUI/theme/pixels.h>

#include <Core/ShapeRendering.h>

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPainter>

#include <include/core/SkCanvas.h>
#include <include/core/SkImageInfo.h>
#include <include/core/SkMatrix.h>
#include <include/core/SkPaint.h>

#include <cmath>
#include <limits>

namespace ui {

namespace {

/// To assistive tools it is a canvas, which the host names.
QAccessibleInterface* accessibleCanvas(const QString& key, QObject* object)
{
    auto* const widget = key == QLatin1String(SkiaQWidgetAdapter::staticMetaObject.className())
                             ? qobject_cast<SkiaQWidgetAdapter*>(object)
                             : nullptr;
    return widget ? new QAccessibleWidget(widget, QAccessible::Canvas) : nullptr;
}

} // namespace

SkiaQWidgetAdapter::SkiaQWidgetAdapter(QWidget* parent)
    : Widget(parent)
{
    QAccessible::installFactory(accessibleCanvas); // once, however often
}

SkiaQWidgetAdapter::~SkiaQWidgetAdapter() = default;

void SkiaQWidgetAdapter::updateSurface()
{
    m_surfaceSize = renderSizeFromDevice(this);
    m_devicePixelRatio = devicePixelRatio();
    m_surface = SkSurfaces::Raster(
        SkImageInfo::MakeN32Premul(m_surfaceSize.width(), m_surfaceSize.height()));
}

void SkiaQWidgetAdapter::updateSurfaceIfDifferent()
{
    const bool sameRatio =
        std::abs(devicePixelRatio() - m_devicePixelRatio) < std::numeric_limits<double>::epsilon();
    if (!sameRatio || renderSizeFromDevice(this) != m_surfaceSize) {
        updateSurface();
    }
}

void SkiaQWidgetAdapter::paintEvent(QPaintEvent* event)
{
    Widget::paintEvent(event);

    updateSurfaceIfDifferent();
    // Kept here as well, since paintSkia() may call updateSurface().
    const sk_sp<SkSurface> surface = m_surface;
    if (!surface) {
        return;
    }

    SkCanvas* canvas = surface->getCanvas();
    {
        const SkAutoCanvasRestore restore(canvas, true);
        const auto scale = static_cast<SkScalar>(m_devicePixelRatio);
        canvas->clear(SK_ColorTRANSPARENT);
        canvas->setMatrix(SkMatrix::Scale(scale, scale));
        paintSkia(canvas, ShapeRendering::commonPaint());
    }

    QPainter painter(this);
    copyPixels(surface, &painter);
}

} // namespace ui
