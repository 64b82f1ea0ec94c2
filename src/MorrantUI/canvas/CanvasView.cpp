// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/canvas/CanvasView.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/scene/wheel.h"
#include <MorrantUI/theme/OverrideCursor.h>
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/painting.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPointer>
#include <QWheelEvent>

#include <include/core/SkBitmap.h>
#include <include/core/SkCanvas.h>
#include <include/core/SkMatrix.h>
#include <include/core/SkPaint.h>
#include <include/core/SkShader.h>

#include <cmath>
#include <utility>

namespace {

constexpr double kWheelZoom = 1.2;    ///< a notch
constexpr double kWheelNotch = 120.0; ///< eighths of a degree
constexpr double kKeyZoom = 1.25;
constexpr double kKeyPan = 32;     ///< logical pixels
constexpr double kPageShare = 0.8; ///< of the view, that Shift with an arrow pans by
constexpr int kChequerSide = 8;    ///< logical pixels
/// Percent of the lighter squares' brightness.
constexpr double kChequerContrast = 88;

bool isFinite(QPointF point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
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
    const SkColor light = ui::color("Grey");
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

QString sizeText(const CanvasView& view)
{
    const QLocale locale;
    const QSizeF page = view.pageSize();
    return CanvasView::tr("%1 by %2 pixels, shown at %3 %")
        .arg(
            locale.toString(page.width()),
            locale.toString(page.height()),
            locale.toString(view.mapping().scale * 100, 'f', 0));
}

class AccessibleCanvas : public ui::AccessibleNamed
{
public:
    explicit AccessibleCanvas(CanvasView* view)
        : AccessibleNamed(view, QAccessible::Canvas)
        , m_view(view)
    {}

    QString text(QAccessible::Text kind) const override
    {
        const QString said = AccessibleNamed::text(kind);
        if (kind != QAccessible::Description || !said.isEmpty() || !isValid()) {
            return said;
        }
        return m_view->hasPage() ? sizeText(*m_view) : m_view->hint();
    }

private:
    CanvasView* m_view;
};

} // namespace

CanvasView::CanvasView(QWidget* parent)
    : SkiaQWidgetAdapter(parent)
    , m_viewSize(size())
{
    ui::installAccessible<CanvasView, AccessibleCanvas>();
    setAccessibleName(tr("Canvas"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true); // so that a pan whose release got lost ends with the next move
    // The canvas covers every pixel.
    setAttribute(Qt::WA_OpaquePaintEvent);
}

CanvasView::~CanvasView() = default;

void CanvasView::setPageSize(QSizeF size)
{
    abandonGesture();
    const bool isPage = std::isfinite(size.width() * size.height()) && !size.isEmpty();
    const QSizeF page = isPage ? size : QSizeF(0, 0);
    if (page == m_pageSize) {
        return;
    }
    m_pageSize = page;
    showCursor();
    update();
    ui::notifyAccessible(this, QAccessible::DescriptionChanged);
    if (m_fitted) {
        fit();
    }
}

void CanvasView::setHint(const QString& hint)
{
    if (std::exchange(m_hint, hint) != hint) {
        update();
        ui::notifyAccessible(this, QAccessible::DescriptionChanged);
    }
}

void CanvasView::setBackdrop(CanvasBackdrop backdrop)
{
    if (std::exchange(m_backdrop, backdrop) != backdrop) {
        update();
    }
}

void CanvasView::setHand(bool hand)
{
    if (std::exchange(m_hand, hand) != hand) {
        abandonGesture();
        if (!hand) {
            unsetCursor();
        }
    }
}

// Where the page lies

void CanvasView::setZoomLimits(const ui::CanvasZoom& limits)
{
    if (!(limits.least > 0.0) || !(limits.most >= limits.least) || !std::isfinite(limits.most)) {
        return;
    }
    m_limits = limits;
    if (m_fitted) {
        fit();
    } else {
        zoomTo(middle(), m_mapping.scale);
    }
}

ui::CanvasMapping CanvasView::shownMapping() const
{
    return ui::snappedToPixels(m_mapping, devicePixelRatioF());
}

void CanvasView::setMapping(const ui::CanvasMapping& mapping)
{
    if (isFinite(mapping.origin) && std::isfinite(mapping.scale)) {
        m_fitted = false;
        place({m_limits.limited(mapping.scale), mapping.origin});
    }
}

void CanvasView::place(const ui::CanvasMapping& mapping)
{
    m_viewSize = size();
    if (mapping == m_mapping) {
        return;
    }
    const bool isScaled = mapping.scale != m_mapping.scale;
    m_mapping = mapping;
    update();
    const QPointer<CanvasView> alive(this);
    Q_EMIT mappingChanged();
    if (alive && isScaled) {
        ui::notifyAccessible(this, QAccessible::DescriptionChanged);
        Q_EMIT scaleChanged(m_mapping.scale);
    }
}

void CanvasView::fit()
{
    m_fitted = true;
    if (hasPage()) {
        place(ui::fittedOnCanvas(size(), m_pageSize, m_limits));
    }
}

void CanvasView::showActualSize()
{
    if (hasPage()) {
        m_fitted = false;
        place(ui::centredOnCanvas(size(), m_pageSize, 1.0, m_limits));
    }
}

QPointF CanvasView::middle() const
{
    return QRectF(rect()).center();
}

void CanvasView::setScale(double scale)
{
    zoomTo(middle(), scale);
}

void CanvasView::zoomBy(double factor)
{
    zoomAt(middle(), factor);
}

void CanvasView::zoomAt(QPointF point, double factor)
{
    zoomTo(point, m_mapping.scale * factor);
}

void CanvasView::zoomTo(QPointF anchor, double scale)
{
    if (hasPage() && scale > 0.0 && std::isfinite(scale)) {
        setMapping(ui::zoomedOnCanvas(m_mapping, anchor, scale, m_limits));
    }
}

void CanvasView::panBy(QPointF distance)
{
    if (hasPage()) {
        setMapping({m_mapping.scale, m_mapping.origin + distance});
    }
}

void CanvasView::resizeEvent(QResizeEvent* event)
{
    SkiaQWidgetAdapter::resizeEvent(event);
    const QSize grown = size() - m_viewSize;
    if (m_fitted) {
        fit();
    } else {
        panBy(QPointF(grown.width(), grown.height()) / 2.0);
    }
}

// Painting

void CanvasView::paintEvent(QPaintEvent* event)
{
    SkiaQWidgetAdapter::paintEvent(event);
    if (!hasPage() && !m_hint.isEmpty()) {
        const QColor color = ui::colorQt(QStringLiteral("HelperHints"));
        ui::textAtWidgetCentre(this, m_hint, color, nullptr);
    }
}

void CanvasView::paintSkia(SkCanvas* canvas, const SkPaint& paint)
{
    canvas->clear(ui::color("AppBackground"));
    if (!hasPage()) {
        return;
    }
    const ui::CanvasMapping shown = shownMapping();
    const QRectF area = shown.toView(QRectF(QPointF(), m_pageSize));
    paintBackdrop(*canvas, paint, area);
    {
        const SkAutoCanvasRestore restore(canvas, true);
        const auto scale = static_cast<float>(shown.scale);
        canvas->translate(static_cast<float>(area.x()), static_cast<float>(area.y()));
        canvas->scale(scale, scale);
        paintPage(*canvas, paint);
    }
    paintBorder(*canvas, paint, area);
    const SkAutoCanvasRestore restore(canvas, true);
    paintOverlay(*canvas, paint, shown);
}

void CanvasView::paintOverlay(
    SkCanvas& /*canvas*/, const SkPaint& /*paint*/, const ui::CanvasMapping& /*shown*/)
{}

void CanvasView::paintBackdrop(SkCanvas& canvas, const SkPaint& paint, const QRectF& area) const
{
    SkPaint fill = paint;
    switch (m_backdrop) {
    case CanvasBackdrop::Chequer: fill.setShader(chequer(area.topLeft())); break;
    case CanvasBackdrop::Light: fill.setColor(ui::color("HighlightedText")); break;
    case CanvasBackdrop::Dark: fill.setColor(ui::color("Black")); break;
    }
    canvas.drawRect(toSkia(area), fill);
}

/// A line of one device pixel just outside the page.
void CanvasView::paintBorder(SkCanvas& canvas, const SkPaint& paint, const QRectF& area) const
{
    const double pixel = 1.0 / devicePixelRatioF();
    SkPaint line = paint;
    line.setStyle(SkPaint::kStroke_Style);
    line.setStrokeWidth(static_cast<float>(pixel));
    line.setColor(ui::color("Grey"));
    const double out = pixel / 2.0;
    canvas.drawRect(toSkia(area.adjusted(-out, -out, out, out)), line);
}

// Wheel and touchpad

void CanvasView::wheelEvent(QWheelEvent* event)
{
    const bool isShifted = event->modifiers().testFlag(Qt::ShiftModifier);
    const QPointF turned = event->angleDelta();
    if (event->modifiers().testFlag(Qt::ControlModifier) || (m_wheelZooms && !isShifted)) {
        event->setAccepted(hasPage() && turned.y() != 0.0); // sideways is not for us
        if (event->isAccepted()) {
            zoomAt(event->position(), std::pow(kWheelZoom, turned.y() / kWheelNotch));
        }
        return;
    }
    const QPoint fine = event->pixelDelta();
    const QPointF distance = fine.isNull() ? turned * ui::kWheelShare : QPointF(fine);
    event->setAccepted(hasPage() && !distance.isNull());
    panBy(isShifted && distance.x() == 0.0 ? distance.transposed() : distance);
}

bool CanvasView::obeyGesture(const QNativeGestureEvent& gesture)
{
    if (!hasPage()) {
        return false;
    }
    if (gesture.gestureType() == Qt::ZoomNativeGesture) {
        // Qt leaves its position in the window's coordinates.
        zoomAt(mapFromGlobal(gesture.globalPosition()), 1.0 + gesture.value());
        return true;
    }
    if (gesture.gestureType() == Qt::SmartZoomNativeGesture) {
        m_fitted ? showActualSize() : fit();
        return true;
    }
    return false;
}

bool CanvasView::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        if (takesSpace(*static_cast<QKeyEvent*>(event))) {
            event->accept();
            return true;
        }
        break;
    case QEvent::NativeGesture:
        if (obeyGesture(*static_cast<QNativeGestureEvent*>(event))) {
            event->accept();
            return true;
        }
        break;
    case QEvent::Enter:
    case QEvent::Leave: showCursor(); break;
    default: break;
    }
    return SkiaQWidgetAdapter::event(event);
}

// Mouse

bool CanvasView::beginPress(const QMouseEvent& event, Press press)
{
    m_isTap = false;
    const Qt::MouseButton button = event.button();
    if (!hasPage() || (button != Qt::LeftButton && button != Qt::MiddleButton)) {
        return false;
    }
    if (m_press == Press::None || m_button == button) { // another one does not concern a pan
        m_from = event.position();
        setPress(button == Qt::MiddleButton || m_spaceHeld ? Press::Pan : press, button);
    }
    return true;
}

void CanvasView::setPress(Press press, Qt::MouseButton button)
{
    m_press = press;
    m_button = button;
    watchDoors();
    showCursor();
}

void CanvasView::mousePressEvent(QMouseEvent* event)
{
    event->setAccepted(beginPress(*event, Press::Click));
}

void CanvasView::mouseDoubleClickEvent(QMouseEvent* event)
{
    event->setAccepted(beginPress(*event, Press::DoubleClick));
}

void CanvasView::mouseMoveEvent(QMouseEvent* event)
{
    const QPointF moved = event->position() - m_from;
    const bool isClick = m_press == Press::Click || m_press == Press::DoubleClick;
    if (isClick && moved.manhattanLength() >= QApplication::startDragDistance()) {
        m_hand ? setPress(Press::Pan, m_button) : setPress(Press::None, Qt::NoButton);
    }
    if (m_press == Press::Pan) {
        m_from = event->position();
        panBy(moved);
    }
}

void CanvasView::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_press == Press::None || event->button() != m_button) {
        return;
    }
    const Press ended = m_press;
    setPress(Press::None, Qt::NoButton);
    const QPointF point = m_mapping.toPage(event->position());
    if (ended == Press::Click) {
        Q_EMIT clicked(point, event->modifiers());
    } else if (ended == Press::DoubleClick) {
        Q_EMIT doubleClicked(point, event->modifiers());
    }
}

void CanvasView::abandonGesture()
{
    m_isTap = m_spaceHeld = false;
    setPress(Press::None, Qt::NoButton);
}

void CanvasView::watchDoors()
{
    if (m_press == Press::None && !m_spaceHeld) {
        m_doors.stop();
        return;
    }
    m_doors.watch(
        this,
        [this](GestureDoors::Door) { abandonGesture(); },
        {.button = m_button, .focus = true}); // as panning is for the document being worked on
}

void CanvasView::showCursor()
{
    const bool isPan = m_press == Press::Pan;
    m_cursor.reset();
    if (isPan || (m_spaceHeld && underMouse())) {
        m_cursor =
            std::make_unique<ui::OverrideCursor>(isPan ? Qt::ClosedHandCursor : Qt::OpenHandCursor);
    }
    if (m_hand) {
        setCursor(hasPage() ? Qt::OpenHandCursor : Qt::ArrowCursor);
    }
}

// Keys

bool CanvasView::takesSpace(const QKeyEvent& event) const
{
    return event.key() == Qt::Key_Space && !event.modifiers() && !m_hand && hasPage();
}

void CanvasView::setSpaceHeld(bool held)
{
    if (std::exchange(m_spaceHeld, held) != held) {
        watchDoors();
        showCursor();
    }
}

void CanvasView::keyPressEvent(QKeyEvent* event)
{
    const bool isSpace = takesSpace(*event);
    m_isTap = isSpace && (m_isTap || !event->isAutoRepeat());
    if (isSpace) {
        setSpaceHeld(true);
    } else if (!obeyKey(*event)) {
        SkiaQWidgetAdapter::keyPressEvent(event);
    }
}

void CanvasView::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Space || !m_spaceHeld) {
        SkiaQWidgetAdapter::keyReleaseEvent(event);
    } else if (!event->isAutoRepeat()) {
        setSpaceHeld(false);
        if (std::exchange(m_isTap, false)) {
            Q_EMIT spaceTapped();
        }
    }
}

/// Shift is also what a keyboard may need for signs.
bool CanvasView::obeyKey(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    if (!hasPage() || (held & ~Qt::ShiftModifier)) {
        return false;
    }
    const QSizeF step = held ? QSizeF(size()) * kPageShare : QSizeF(kKeyPan, kKeyPan);
    switch (event.key()) {
    case Qt::Key_Left: panBy({step.width(), 0}); return true; // what lies there comes into sight
    case Qt::Key_Right: panBy({-step.width(), 0}); return true;
    case Qt::Key_Up: panBy({0, step.height()}); return true;
    case Qt::Key_Down: panBy({0, -step.height()}); return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal: zoomBy(kKeyZoom); return true;
    case Qt::Key_Minus: zoomBy(1.0 / kKeyZoom); return true;
    default: break;
    }
    if (held) {
        return false;
    }
    switch (event.key()) {
    case Qt::Key_F:
    case Qt::Key_Home: fit(); return true;
    case Qt::Key_1: showActualSize(); return true;
    default: return false;
    }
}
