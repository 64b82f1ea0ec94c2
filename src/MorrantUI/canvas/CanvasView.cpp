// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/canvas/CanvasView.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/scene/wheel.h"
#include <MorrantUI/theme/OverrideCursor.h>
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/drawing.h>

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QPointer>
#include <QWheelEvent>

#include <include/core/SkBitmap.h>
#include <include/core/SkCanvas.h>
#include <include/core/SkMatrix.h>
#include <include/core/SkPaint.h>
#include <include/core/SkShader.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double kWheelZoom = 1.2;    ///< a notch
constexpr double kWheelNotch = 120.0; ///< eighths of a degree
constexpr double kKeyZoom = 1.25;
constexpr double kKeyPan = 32;     ///< logical pixels
constexpr double kPageShare = 0.8; ///< of the view, that Shift with an arrow pans by
constexpr int kChequerSide = 8;    ///< logical pixels
constexpr int kHintMargin = 8;     ///< logical pixels, on every side
constexpr double kMostPage = 1e9;  ///< pixels a side
/// Logical pixels of the origin, in either direction: floats get that far.
constexpr double kFarthest = 1e12;
/// Percent of the lighter squares' brightness.
constexpr double kChequerContrast = 88;

bool isFinite(const ui::CanvasMapping& mapping)
{
    return std::isfinite(mapping.origin.x()) && std::isfinite(mapping.origin.y())
           && std::isfinite(mapping.scale);
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
            locale.toString(page.width(), 'f', QLocale::FloatingPointShortest),
            locale.toString(page.height(), 'f', QLocale::FloatingPointShortest),
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
    const bool isPage = size.width() <= kMostPage && size.height() <= kMostPage && !size.isEmpty();
    const QSizeF page = isPage ? size : QSizeF(0, 0);
    if (page.width() == m_pageSize.width() && page.height() == m_pageSize.height()) {
        return;
    }
    abandonGesture();
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
    } else if (const double scale = m_limits.limited(m_mapping.scale); scale != m_mapping.scale) {
        moveTo(ui::zoomedOnCanvas(m_mapping, middle(), scale, m_limits));
    }
}

ui::CanvasMapping CanvasView::shownMapping() const
{
    return ui::snappedToPixels(m_mapping, devicePixelRatioF());
}

void CanvasView::setMapping(const ui::CanvasMapping& mapping)
{
    if (!m_wasShown && isFinite(mapping)) {
        m_viewSize = {};
    }
    moveTo(mapping);
}

void CanvasView::moveTo(const ui::CanvasMapping& mapping)
{
    if (isFinite(mapping)) {
        const QPointF origin(
            std::clamp(mapping.origin.x(), -kFarthest, kFarthest),
            std::clamp(mapping.origin.y(), -kFarthest, kFarthest));
        place({m_limits.limited(mapping.scale), origin}, false);
    }
}

void CanvasView::place(const ui::CanvasMapping& mapping, bool fitted)
{
    const bool isMoved = mapping != m_mapping;
    const bool isScaled = mapping.scale != m_mapping.scale;
    const bool isOtherwise = std::exchange(m_fitted, fitted) != fitted;
    m_mapping = mapping;
    const QPointer<CanvasView> alive(this);
    if (isMoved) {
        update();
        Q_EMIT mappingChanged();
    }
    if (alive && isScaled) {
        ui::notifyAccessible(this, QAccessible::DescriptionChanged);
        Q_EMIT scaleChanged(m_mapping.scale);
    }
    if (alive && isOtherwise) {
        Q_EMIT fittedChanged(m_fitted);
    }
}

void CanvasView::fit()
{
    m_viewSize = size();
    place(hasPage() ? ui::fittedOnCanvas(size(), m_pageSize, m_limits) : m_mapping, true);
}

void CanvasView::showActualSize()
{
    if (hasPage()) {
        m_viewSize = size();
        place(ui::centredOnCanvas(size(), m_pageSize, 1.0, m_limits), false);
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
        m_viewSize = size(); // what is in the middle of it stays there
        moveTo(ui::zoomedOnCanvas(m_mapping, anchor, scale, m_limits));
    }
}

void CanvasView::panBy(QPointF distance)
{
    if (hasPage() && !distance.isNull()) { // one of nothing leaves a fitted page fitted
        moveTo({m_mapping.scale, m_mapping.origin + distance});
    }
}

void CanvasView::resizeEvent(QResizeEvent* event)
{
    SkiaQWidgetAdapter::resizeEvent(event);
    if (m_fitted) {
        fit();
    } else if (m_viewSize.isValid()) {
        const QSize grown = size() - std::exchange(m_viewSize, size());
        moveTo({m_mapping.scale, m_mapping.origin + QPointF(grown.width(), grown.height()) / 2.0});
    }
}

// Painting

void CanvasView::paintEvent(QPaintEvent* event)
{
    SkiaQWidgetAdapter::paintEvent(event);
    QPainter painter(this);
    if (!hasPage()) {
        const QRect room = rect().adjusted(kHintMargin, kHintMargin, -kHintMargin, -kHintMargin);
        painter.setPen(ui::colorQt(QStringLiteral("HelperHints")));
        painter.drawText(room, Qt::AlignCenter | Qt::TextWordWrap, m_hint);
    }
    if (hasFocus() && m_showsFocus) {
        ui::drawFocusRing(painter, rect());
    }
}

void CanvasView::paintSkia(SkCanvas* canvas, const SkPaint& paint)
{
    canvas->clear(ui::color("AppBackground"));
    if (!hasPage()) {
        return;
    }
    const ui::CanvasMapping shown = shownMapping();
    const QRectF page = shown.toView(QRectF(QPointF(), m_pageSize));
    const QRectF area = ui::snappedToPixels(page, devicePixelRatioF());
    paintBackdrop(*canvas, paint, area);
    {
        const SkAutoCanvasRestore restore(canvas, true);
        const auto scale = static_cast<float>(shown.scale);
        canvas->translate(static_cast<float>(area.x()), static_cast<float>(area.y()));
        canvas->scale(scale, scale);
        paintPage(*canvas, paint);
    }
    if (!hasPage()) {
        return; // what it tells of may take the page away
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
    case CanvasBackdrop::Light: fill.setColor(SK_ColorWHITE); break;
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
    m_isTap = false;
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
    event->setAccepted(hasPage() && !distance.isNull()); // touchpads begin and end with nothing
    panBy(isShifted && distance.x() == 0.0 ? distance.transposed() : distance);
}

bool CanvasView::obeyGesture(const QNativeGestureEvent& gesture)
{
    if (!hasPage()) {
        return false;
    }
    m_isTap = false;
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
    case QEvent::FocusIn: {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        m_showsFocus = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
                       || reason == Qt::ShortcutFocusReason;
        break;
    }
    case QEvent::Show:
        m_wasShown = true;
        m_viewSize = m_viewSize.isValid() ? m_viewSize : size();
        break;
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
        setPress(m_hand ? Press::Pan : Press::Tool, m_button);
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
    const bool isLent = m_spaceHeld && m_press != Press::Tool && underMouse();
    m_cursor.reset();
    if (isPanning() || isLent) {
        m_cursor = std::make_unique<ui::OverrideCursor>(
            isPanning() ? Qt::ClosedHandCursor : Qt::OpenHandCursor);
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
    m_isTap = isSpace && m_press == Press::None && (m_isTap || !event->isAutoRepeat());
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
    case Qt::Key_1: showActualSize(); return true; // to which some keyboards need Shift
    default: break;
    }
    if (held) {
        return false;
    }
    switch (event.key()) {
    case Qt::Key_F:
    case Qt::Key_Home: fit(); return true;
    default: return false;
    }
}
