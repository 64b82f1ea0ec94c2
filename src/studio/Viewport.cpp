// SPDX-License-Identifier: Apache-2.0
#include "Viewport.h"

#include "editing/PropertyAddress.h"
#include "lottie/Document.h"
#include "lottie/evaluate.h"
#include "lottie/renderer.h"
#include <MorrantUI/theme/colors.h>

#include <include/core/SkCanvas.h>
#include <include/core/SkMatrix.h>
#include <include/core/SkPaint.h>
#include <include/core/SkPath.h>

#include <utility>

namespace studio {

namespace {

SkPoint toSkia(QPointF point)
{
    return SkPoint::Make(static_cast<float>(point.x()), static_cast<float>(point.y()));
}

} // namespace

Viewport::Viewport(QWidget* parent)
    : CanvasView(parent)
{
    setAccessibleName(tr("Composition"));
    setHint(tr("Drop a Lottie file here, or open one with Ctrl+O"));
    setMinimumSize(160, 120);
    connect(this, &CanvasView::clicked, this, &Viewport::chooseLayer);
    connect(this, &CanvasView::doubleClicked, this, &Viewport::chooseLayer);
}

Viewport::~Viewport() = default;

void Viewport::setDocument(std::shared_ptr<const Document> document)
{
    abandonGesture(); // also if the new page is as large
    m_document = std::move(document);
    m_layer = -1;
    setPageSize(m_document ? QSizeF(m_document->width, m_document->height) : QSizeF());
    fit();
    update();
}

void Viewport::setFrame(int frame)
{
    if (std::exchange(m_frame, frame) != frame) {
        update();
    }
}

void Viewport::setLayer(int layer)
{
    if (std::exchange(m_layer, layer) != layer) {
        update();
    }
}

void Viewport::paintPage(SkCanvas& canvas, const SkPaint& /*paint*/)
{
    if (const Layer* layer = draw(canvas, *m_document, m_frame).unfinished) {
        Q_EMIT leftUnfinished({layer->name, tr("too complex"), layer->span.begin});
    }
}

/// A line of one device pixel around the chosen layer, turned as it is.
void Viewport::paintOverlay(SkCanvas& canvas, const SkPaint& paint, const ui::CanvasMapping& shown)
{
    const Layer* layer = findLayer(*m_document, m_layer);
    if (!layer || layer->hidden || m_frame < layer->inPoint || m_frame >= layer->outPoint) {
        return;
    }
    const SkRect bounds = boundsOf(*m_document, *layer, m_frame);
    if (bounds.isEmpty()) {
        return;
    }
    SkPoint corners[4];
    layerMatrix(m_document->main, *layer, m_frame).mapRectToQuad(corners, bounds);
    const double ratio = devicePixelRatioF();
    for (SkPoint& corner : corners) {
        const QPointF place = shown.toView(QPointF(corner.x(), corner.y()));
        corner = toSkia(ui::middleOfPixel(place, ratio));
    }
    SkPaint line = paint;
    line.setStyle(SkPaint::kStroke_Style);
    line.setStrokeWidth(static_cast<float>(1.0 / ratio));
    line.setColor(ui::color("Accent1"));
    canvas.drawPath(SkPath::Polygon(SkSpan<const SkPoint>(corners, 4), true), line);
}

void Viewport::chooseLayer(QPointF point)
{
    const double scale = mapping().scale * devicePixelRatioF();
    const Layer* layer = layerAt(*m_document, m_frame, toSkia(point), scale);
    const auto& layers = m_document->main.layers;
    Q_EMIT layerClicked(layer ? static_cast<int>(layer - layers.data()) : -1);
}

} // namespace studio
