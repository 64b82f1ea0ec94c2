// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/ValueGraphView.h"

#include "MorrantUI/graph/axislines.h"
#include <MorrantUI/graph/GeneralGraphUtils.h>
#include <MorrantUI/graph/GraphPointWidget.h>
#include <MorrantUI/graph/ValueGraphCurve.h>
#include <MorrantUI/theme/colors.h>

#include <QGraphicsScene>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLocale>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

using ui::Graph::axisLabel;
using ui::Graph::axisLines;
using ui::Graph::axisStep;

namespace {

constexpr double kZoomStep = 1.25;    ///< a key
constexpr double kLabelDistance = 80; ///< pixels at least from one frame's label to the next
constexpr double kLineDistance = 32;  ///< pixels at least from one value's line to the next
constexpr double kExtentRoom = 20;    ///< times the extent, on each side
constexpr double kAxisShare = 0.08;   ///< of what is fitted, left free for labels
constexpr double kNudgesPerLine = 10; ///< Up and Down, from one labelled value to the next
constexpr double kFarthest = 1e100;   ///< scene units that are looked at
constexpr int kLabelMargin = 4;       ///< pixels

/// Keys that belong to the graph while it has the focus, although the window's menus have them too.
bool isOwnKey(const QKeyEvent& event, bool hasSelection)
{
    const bool isPlain = !(event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier));
    switch (event.key()) {
    case Qt::Key_Space:
    case Qt::Key_F:
    case Qt::Key_A:
    case Qt::Key_Plus:
    case Qt::Key_Equal:
    case Qt::Key_Minus: return isPlain;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down: return isPlain && hasSelection;
    case Qt::Key_Escape: return QGuiApplication::mouseButtons() != Qt::NoButton;
    default: return false;
    }
}

/// A pixel wide at any zoom, which differs between the axes.
void setLinePen(QPainter& painter, const QString& colorName)
{
    painter.setRenderHint(QPainter::Antialiasing, false);
    QPen pen(ui::colorQt(colorName), 1);
    pen.setCosmetic(true);
    painter.setPen(pen);
}

/// A rectangle that can be reckoned with, whatever the host's numbers; null where they are none.
QRectF within(const QRectF& rect)
{
    const auto near = [](double number) { return std::clamp(number, -kFarthest, kFarthest); };
    const QRectF held(
        QPointF(near(rect.left()), near(rect.top())),
        QPointF(near(rect.right()), near(rect.bottom())));
    return std::isfinite(held.width()) && std::isfinite(held.height()) ? held : QRectF();
}

} // namespace

ValueGraphView::ValueGraphView(QWidget* parent)
    : GeneralGraphView(parent)
{
    auto* scene = new QGraphicsScene(this);
    scene->setItemIndexMethod(QGraphicsScene::NoIndex); // what is dragged changes all the time
    setScene(scene);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    setDragMode(RubberBandDrag);
    setViewportUpdateMode(FullViewportUpdate);
    setDefaultInterpolation(ui::Graph::Interpolation::Bezier);
    setAccessibleName(tr("Values over frames"));
    connect(scene, &QGraphicsScene::selectionChanged, this, [this] {
        updateTransformTool();
        viewport()->update();
    });
    noteKeys(false);
}

ValueGraphView::~ValueGraphView()
{
    for (ValueGraphCurve* const curve : curves()) {
        delete curve; // which asks the view
    }
}

ValueGraphCurve* ValueGraphView::addCurve(const QString& text, const QString& colorName)
{
    auto* const curve = new ValueGraphCurve(*this);
    curve->setToolTip(text);
    curve->setColorName(colorName);
    scene()->addItem(curve);
    m_curves.emplace_back(curve);
    return curve;
}

std::vector<ValueGraphCurve*> ValueGraphView::curves() const
{
    std::vector<ValueGraphCurve*> living;
    for (const QPointer<ValueGraphCurve>& curve : m_curves) {
        if (curve) {
            living.push_back(curve);
        }
    }
    return living;
}

void ValueGraphView::setCurrentFrame(int frame)
{
    if (std::exchange(m_frame, frame) != frame) {
        viewport()->update();
    }
}

void ValueGraphView::setHint(const QString& hint)
{
    m_hint = hint;
    setAccessibleDescription(hint);
    viewport()->update();
}

// What is shown

/// Many curves may change together: their extent is taken once.
void ValueGraphView::noteKeys(bool hasNewPoints)
{
    if (hasNewPoints) {
        updateItemRects();
    }
    if (!std::exchange(m_isExtentStale, true)) {
        QMetaObject::invokeMethod(this, &ValueGraphView::takeExtent, Qt::QueuedConnection);
    }
}

/// What can be scrolled to: all curves and much around them. A gesture does it at its end.
void ValueGraphView::takeExtent()
{
    if (!std::exchange(m_isExtentStale, false) || m_isEditing) {
        return;
    }
    m_curves.erase(std::remove(m_curves.begin(), m_curves.end(), nullptr), m_curves.end());
    const auto bounds = pointBounds(true);
    const QRectF extent = within(bounds.value_or(QRectF()));
    const double x = kExtentRoom * std::max(extent.width(), 1.0);
    const double y = kExtentRoom * std::max(extent.height(), 1.0);
    setSceneRect(extent.adjusted(-x, -y, x, y));
    if (m_isFitted && bounds) {
        fit(extent);
    }
    updateItemRects();
    updateTransformTool();
    viewport()->update();
}

void ValueGraphView::fit(QRectF rect)
{
    rect.setWidth(std::max(rect.width(), 1.0)); // of a single key, a frame
    if (rect.height() <= 0) {                   // a value that stands still
        const double room = std::max(std::abs(rect.top()) / 2, 1.0);
        rect.adjust(0, -room, 0, room);
    }
    rect.adjust(-kAxisShare * rect.width(), 0, 0, kAxisShare * rect.height());
    fitSceneRect(rect);
}

void ValueGraphView::fitSelected()
{
    const auto points = utils()->pointItems(true);
    if (points.size() < 2) { // of a single one there is nothing to fill the view with
        fitAll();
        return;
    }
    m_isFitted = false;
    fitPoints(false);
}

void ValueGraphView::fitAll()
{
    m_isFitted = true;
    takeExtent();
    if (const auto bounds = pointBounds(true)) {
        fit(within(*bounds));
    }
}

void ValueGraphView::resizeEvent(QResizeEvent* event)
{
    GeneralGraphView::resizeEvent(event);
    if (m_isFitted) {
        fitAll();
    }
}

QSizeF ValueGraphView::steps() const
{
    const QTransform zoom = transform();
    return {
        std::max(axisStep(kLabelDistance / zoom.m11()), 1.0), axisStep(kLineDistance / zoom.m22())};
}

// Painting

void ValueGraphView::drawBackground(QPainter* painter, const QRectF& rect)
{
    const QSizeF step = steps();
    painter->fillRect(rect, ui::colorQt(QStringLiteral("WindowBase")));
    painter->save();
    setLinePen(*painter, QStringLiteral("Midlight"));
    for (const double frame : axisLines(rect.left(), rect.right(), step.width())) {
        painter->drawLine(QLineF(frame, rect.top(), frame, rect.bottom()));
    }
    for (const double y : axisLines(rect.top(), rect.bottom(), step.height())) {
        painter->drawLine(QLineF(rect.left(), y, rect.right(), y));
    }
    painter->restore();
}

void ValueGraphView::drawForeground(QPainter* painter, const QRectF& rect)
{
    painter->save();
    setLinePen(*painter, QStringLiteral("Accent5"));
    painter->drawLine(QLineF(m_frame, rect.top(), m_frame, rect.bottom()));
    painter->resetTransform();
    paintLabels(*painter);
    if (curves().empty()) {
        painter->setPen(ui::colorQt(QStringLiteral("HelperHints")));
        painter->drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, m_hint);
    }
    painter->restore();
}

/// Values along the left edge, frames along the lower one.
void ValueGraphView::paintLabels(QPainter& painter) const
{
    const QSizeF step = steps();
    const QRectF seen = getVisibleRect();
    const QFontMetricsF metrics(font());
    painter.setFont(font());
    painter.setLayoutDirection(Qt::LeftToRight); // a minus stands before its number
    painter.setPen(ui::colorQt(QStringLiteral("Text")));
    const double bottom = viewport()->height() - kLabelMargin;
    for (const double y : axisLines(seen.top(), seen.bottom(), step.height())) {
        const double at = mapFromScene(0, y).y();
        if (at > metrics.height() && at < bottom - metrics.height()) {
            painter.drawText(QPointF(kLabelMargin, at - 2), axisLabel(-y, step.height()));
        }
    }
    for (const double frame : axisLines(seen.left(), seen.right(), step.width())) {
        const double at = mapFromScene(frame, 0).x();
        painter.drawText(QPointF(at + kLabelMargin, bottom), axisLabel(frame, step.width()));
    }
}

// What the user does

QSizeF ValueGraphView::nudgeStep() const
{
    return {1, steps().height() / kNudgesPerLine};
}

QString ValueGraphView::pointText(const GraphPointWidget& point) const
{
    const QLocale locale;
    return tr("Frame %1, value %2")
        .arg(locale.toString(point.x()), locale.toString(0.0 - point.y()));
}

void ValueGraphView::editStarted()
{
    GeneralGraphView::editStarted();
    m_isEditing = true;
    for (ValueGraphCurve* const curve : curves()) {
        curve->rememberTimes();
    }
    Q_EMIT gestureStarted();
}

/// What the mouse has moved, told before anything else happens. @return whether the view is still
/// there
bool ValueGraphView::tellStep()
{
    if (m_snapsToFrames) {
        for (ValueGraphCurve* const curve : curves()) {
            curve->snapToFrames();
        }
    }
    const QPointer<ValueGraphView> alive(this);
    Q_EMIT keysChanging();
    if (alive) {
        updateTransformTool();
    }
    return !alive.isNull();
}

void ValueGraphView::editEnded(bool changed)
{
    GeneralGraphView::editEnded(changed);
    if (!tellStep()) {
        return;
    }
    m_isEditing = false;
    const QPointer<ValueGraphView> alive(this);
    Q_EMIT gestureEnded(changed);
    if (alive) {
        noteKeys(false);
        updateTransformTool();
    }
}

void ValueGraphView::abandonGesture()
{
    m_isTap = m_spaceHeld = false;
    m_panned.reset();
    GeneralGraphView::abandonGesture();
}

bool ValueGraphView::event(QEvent* event)
{
    const bool hasSelection = scene() && !scene()->selectedItems().isEmpty();
    if (event->type() == QEvent::ShortcutOverride
        && isOwnKey(*static_cast<QKeyEvent*>(event), hasSelection))
    {
        event->accept();
        return true;
    }
    return GeneralGraphView::event(event);
}

void ValueGraphView::mousePressEvent(QMouseEvent* event)
{
    m_isTap = false;
    const bool isPan =
        event->buttons() == Qt::MiddleButton || (m_spaceHeld && event->buttons() == Qt::LeftButton);
    if (isPan) {
        m_panned = event->position().toPoint();
        changeMouse(Qt::ClosedHandCursor);
        return;
    }
    GeneralGraphView::mousePressEvent(event);
}

void ValueGraphView::mouseMoveEvent(QMouseEvent* event)
{
    if (m_panned) {
        const QPoint now = event->position().toPoint();
        m_isFitted = false;
        panBy(now - *std::exchange(m_panned, now));
        return;
    }
    const QPointer<ValueGraphView> alive(this);
    GeneralGraphView::mouseMoveEvent(event);
    if (alive && m_isEditing && event->buttons() != Qt::NoButton) {
        tellStep();
    }
}

void ValueGraphView::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_panned) {
        m_panned.reset();
        restoreMouse();
        return;
    }
    GeneralGraphView::mouseReleaseEvent(event);
}

void ValueGraphView::wheelEvent(QWheelEvent* event)
{
    m_isFitted = false;
    if (zoomByWheel(*event)) {
        event->accept();
    } else {
        GeneralGraphView::wheelEvent(event);
    }
}

void ValueGraphView::keyPressEvent(QKeyEvent* event)
{
    const bool isSpace = event->key() == Qt::Key_Space;
    m_isTap = isSpace && (m_isTap || !event->isAutoRepeat());
    const auto zoom = [this](double factor) {
        m_isFitted = false;
        zoomAt({factor, 1}, mapFromScene(m_frame, 0));
    };
    switch (event->key()) {
    case Qt::Key_Space: m_spaceHeld = true; break;
    case Qt::Key_F: fitSelected(); break;
    case Qt::Key_A: fitAll(); break;
    case Qt::Key_Plus:
    case Qt::Key_Equal: zoom(kZoomStep); break;
    case Qt::Key_Minus: zoom(1 / kZoomStep); break;
    default: GeneralGraphView::keyPressEvent(event); break;
    }
}

void ValueGraphView::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Space || event->isAutoRepeat()) {
        GeneralGraphView::keyReleaseEvent(event);
        return;
    }
    m_spaceHeld = false;
    if (std::exchange(m_isTap, false)) {
        Q_EMIT spaceTapped();
    }
}
