// SPDX-License-Identifier: Apache-2.0
#include "Viewport.h"

#include "lottie/Document.h"
#include "lottie/evaluate.h"
#include "lottie/renderer.h"
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/painting.h>

#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>

#include <include/core/SkBitmap.h>
#include <include/core/SkCanvas.h>
#include <include/core/SkMatrix.h>
#include <include/core/SkPaint.h>
#include <include/core/SkPath.h>
#include <include/core/SkShader.h>

#include <cmath>

namespace studio {

namespace {

constexpr double kZoomPerWheelStep = 1.2;
constexpr double kWheelStep = 120; ///< eighths of a degree that a notch of the wheel reports
constexpr int kChequerSide = 8;    ///< logical pixels
/// Percent of the lighter squares' brightness. Both are middle greys, so that black artwork is seen
/// on them as well as white.
constexpr double kChequerContrast = 88;

SkColor named(const char* name)
{
    return ui::color(name);
}

SkRect toSkia(const QRectF& rect)
{
    return SkRect::MakeXYWH(
        static_cast<float>(rect.x()),
        static_cast<float>(rect.y()),
        static_cast<float>(rect.width()),
        static_cast<float>(rect.height()));
}

SkPoint toSkia(QPointF point)
{
    return SkPoint::Make(static_cast<float>(point.x()), static_cast<float>(point.y()));
}

/// Two by two squares that repeat from `corner` on.
sk_sp<SkShader> chequer(QPointF corner)
{
    const SkColor light = named("Grey");
    const SkColor dark = ui::changeValue(light, kChequerContrast);
    SkBitmap tile;
    tile.allocN32Pixels(2, 2, true);
    tile.eraseColor(light);
    tile.erase(dark, SkIRect::MakeXYWH(0, 0, 1, 1));
    tile.erase(dark, SkIRect::MakeXYWH(1, 1, 1, 1));
    SkMatrix matrix = SkMatrix::Scale(kChequerSide, kChequerSide);
    matrix.postTranslate(static_cast<float>(corner.x()), static_cast<float>(corner.y()));
    return tile.makeShader(SkTileMode::kRepeat, SkTileMode::kRepeat, SkSamplingOptions(), matrix);
}

} // namespace

Viewport::Viewport(QWidget* parent)
    : SkiaQWidgetAdapter(parent)
{
    setAccessibleName(tr("Composition"));
    setMinimumSize(160, 120);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true); // so that a pan whose release got lost ends with the next move
    // The canvas covers every pixel.
    setAttribute(Qt::WA_OpaquePaintEvent);
}

Viewport::~Viewport() = default;

void Viewport::setDocument(std::shared_ptr<const Document> document)
{
    m_document = std::move(document);
    m_layer = -1;
    endPress();
    fit();
    update();
}

void Viewport::setFrame(int frame)
{
    if (m_frame != frame) {
        m_frame = frame;
        update();
    }
}

void Viewport::setBackdrop(Backdrop backdrop)
{
    if (m_backdrop != backdrop) {
        m_backdrop = backdrop;
        update();
    }
}

void Viewport::setLayer(int layer)
{
    if (m_layer != layer) {
        m_layer = layer;
        update();
    }
}

void Viewport::fit()
{
    m_fitted = true;
    if (m_document) {
        setMapping(fitted(size(), compositionSize()));
    }
}

void Viewport::zoomBy(double factor)
{
    zoomAt(QRectF(rect()).center(), factor);
}

void Viewport::showActualSize()
{
    m_fitted = false;
    if (m_document) {
        setMapping(centred(size(), compositionSize(), 1.0));
    }
}

void Viewport::paintEvent(QPaintEvent* event)
{
    SkiaQWidgetAdapter::paintEvent(event);
    if (!m_document) {
        const QColor color = ui::colorQt(QStringLiteral("HelperHints"));
        ui::textAtWidgetCentre(
            this, tr("Drop a Lottie file here, or open one with Ctrl+O"), color, nullptr);
    }
}

void Viewport::paintSkia(SkCanvas* canvas, const SkPaint& paint)
{
    canvas->clear(named("AppBackground"));
    if (!m_document) {
        return;
    }
    ViewMapping mapping = m_mapping;
    mapping.origin = snappedToPixels(mapping.origin, devicePixelRatioF());
    const QRectF area = mapping.mapped(compositionSize());

    paintBackdrop(*canvas, paint, area);
    canvas->save();
    canvas->translate(toSkia(area).x(), toSkia(area).y());
    canvas->scale(static_cast<float>(mapping.scale), static_cast<float>(mapping.scale));
    const DrawResult drawn = draw(*canvas, *m_document, m_frame);
    canvas->restore();
    paintBorder(*canvas, paint, area);
    paintOutline(*canvas, paint, mapping);
    if (const Layer* layer = drawn.unfinished) {
        Q_EMIT leftUnfinished({layer->name, tr("too complex"), layer->span.begin});
    }
}

void Viewport::paintBackdrop(SkCanvas& canvas, const SkPaint& paint, const QRectF& area) const
{
    SkPaint fill = paint;
    switch (m_backdrop) {
    case Backdrop::Chequer: fill.setShader(chequer(area.topLeft())); break;
    case Backdrop::Light: fill.setColor(named("HighlightedText")); break;
    case Backdrop::Dark: fill.setColor(named("Black")); break;
    }
    canvas.drawRect(toSkia(area), fill);
}

/// A line of one device pixel just outside the composition.
void Viewport::paintBorder(SkCanvas& canvas, const SkPaint& paint, const QRectF& area) const
{
    const double pixel = 1.0 / devicePixelRatioF();
    SkPaint line = paint;
    line.setStyle(SkPaint::kStroke_Style);
    line.setStrokeWidth(static_cast<float>(pixel));
    line.setColor(named("Grey"));
    const double out = pixel / 2.0;
    canvas.drawRect(toSkia(area.adjusted(-out, -out, out, out)), line);
}

/// A line of one device pixel around the chosen layer, turned as it is.
void Viewport::paintOutline(
    SkCanvas& canvas, const SkPaint& paint, const ViewMapping& mapping) const
{
    const auto& layers = m_document->main.layers;
    if (m_layer < 0 || m_layer >= static_cast<int>(layers.size())) {
        return;
    }
    const Layer& layer = layers[static_cast<std::size_t>(m_layer)];
    const bool isShown = layer.inPoint <= m_frame && m_frame < layer.outPoint && !layer.hidden;
    const SkRect bounds = isShown ? boundsOf(*m_document, layer, m_frame) : SkRect::MakeEmpty();
    if (bounds.isEmpty()) {
        return;
    }
    SkPoint corners[4];
    layerMatrix(m_document->main, layer, m_frame).mapRectToQuad(corners, bounds);
    const double ratio = devicePixelRatioF();
    for (SkPoint& corner : corners) {
        const QPointF place = mapping.origin + QPointF(corner.x(), corner.y()) * mapping.scale;
        corner = toSkia(middleOfPixel(place, ratio));
    }
    SkPaint line = paint;
    line.setStyle(SkPaint::kStroke_Style);
    line.setStrokeWidth(static_cast<float>(1.0 / ratio));
    line.setColor(named("Accent1"));
    canvas.drawPath(SkPath::Polygon(SkSpan<const SkPoint>(corners, 4), true), line);
}

void Viewport::resizeEvent(QResizeEvent* event)
{
    SkiaQWidgetAdapter::resizeEvent(event);
    if (m_fitted) {
        fit();
        return;
    }
    const QSizeF grown = event->size() - event->oldSize();
    m_mapping.origin += QPointF(grown.width(), grown.height()) / 2.0;
}

void Viewport::wheelEvent(QWheelEvent* event)
{
    const int turned = event->angleDelta().y();
    event->setAccepted(turned != 0); // sideways is not for us
    if (turned != 0) {
        zoomAt(event->position(), std::pow(kZoomPerWheelStep, turned / kWheelStep));
    }
}

void Viewport::mousePressEvent(QMouseEvent* event)
{
    const bool isOurs = event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton;
    if (!m_document || !isOurs) {
        event->ignore();
        return;
    }
    if (m_press != Press::None && m_button != event->button()) {
        return;
    }
    m_press = Press::Click;
    m_button = event->button();
    m_from = event->position();
    m_doors.watch(
        this,
        [this](GestureDoors::Door) { endPress(); },
        {.button = m_button, .focus = true}); // as panning is for the document being worked on
    if (m_button == Qt::MiddleButton) {
        beginPan();
    }
}

void Viewport::mouseMoveEvent(QMouseEvent* event)
{
    const QPointF moved = event->position() - m_from;
    if (m_press == Press::Click && moved.manhattanLength() >= QApplication::startDragDistance()) {
        beginPan();
    }
    if (m_press != Press::Pan) {
        return;
    }
    m_fitted = false;
    ViewMapping mapping = m_mapping;
    mapping.origin += moved;
    m_from = event->position();
    setMapping(mapping);
}

void Viewport::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_press == Press::None || event->button() != m_button) {
        return;
    }
    const bool isClick = m_press == Press::Click;
    endPress();
    if (isClick) {
        click(event->position());
    }
}

void Viewport::beginPan()
{
    m_press = Press::Pan;
    setCursor(Qt::ClosedHandCursor);
}

void Viewport::endPress()
{
    m_doors.stop();
    m_press = Press::None;
    m_button = Qt::NoButton;
    setCursor(m_document ? Qt::OpenHandCursor : Qt::ArrowCursor);
}

void Viewport::click(QPointF point)
{
    const QPointF place = compositionPoint(m_mapping, point);
    const double scale = m_mapping.scale * devicePixelRatioF();
    const Layer* layer = layerAt(*m_document, m_frame, toSkia(place), scale);
    const auto& layers = m_document->main.layers;
    Q_EMIT layerClicked(layer ? static_cast<int>(layer - layers.data()) : -1);
}

QSizeF Viewport::compositionSize() const
{
    return QSizeF(m_document->width, m_document->height);
}

void Viewport::setMapping(const ViewMapping& mapping)
{
    m_mapping = mapping;
    update();
    Q_EMIT scaleChanged(mapping.scale);
}

void Viewport::zoomAt(QPointF anchor, double factor)
{
    if (m_document) {
        m_fitted = false;
        setMapping(zoomedAt(m_mapping, anchor, m_mapping.scale * factor));
    }
}

} // namespace studio
