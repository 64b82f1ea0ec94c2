// SPDX-License-Identifier: Apache-2.0
#include "Viewport.h"

#include "lottie/Document.h"
#include "lottie/renderer.h"
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/painting.h>

#include <QMouseEvent>
#include <QWheelEvent>

#include <include/core/SkBitmap.h>
#include <include/core/SkCanvas.h>
#include <include/core/SkMatrix.h>
#include <include/core/SkPaint.h>
#include <include/core/SkShader.h>

#include <cmath>

namespace studio {

namespace {

constexpr double kZoomPerWheelStep = 1.2;
constexpr double kWheelStep = 120;      ///< eighths of a degree that a notch of the wheel reports
constexpr int kChequerSide = 8;         ///< logical pixels
constexpr double kChequerContrast = 80; ///< percent of the lighter squares' brightness

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

/// Two by two squares that repeat from `corner` on.
sk_sp<SkShader> chequer(QPointF corner)
{
    const SkColor light = named("Midlight");
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
    endPan();
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
    const bool pans = event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton;
    if (!m_document || !pans) {
        event->ignore();
        return;
    }
    if (m_panButton != Qt::NoButton && m_panButton != event->button()) {
        return;
    }
    m_panButton = event->button();
    m_panFrom = event->position();
    m_doors.watch(
        this,
        [this](GestureDoors::Door) { endPan(); },
        {.button = m_panButton, .focus = true}); // as panning is for the document being worked on
    setCursor(Qt::ClosedHandCursor);
}

void Viewport::mouseMoveEvent(QMouseEvent* event)
{
    if (m_panButton == Qt::NoButton) {
        return;
    }
    m_fitted = false;
    ViewMapping mapping = m_mapping;
    mapping.origin += event->position() - m_panFrom;
    m_panFrom = event->position();
    setMapping(mapping);
}

void Viewport::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == m_panButton) {
        endPan();
    }
}

void Viewport::endPan()
{
    m_doors.stop();
    m_panButton = Qt::NoButton;
    setCursor(m_document ? Qt::OpenHandCursor : Qt::ArrowCursor);
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
