// SPDX-License-Identifier: Apache-2.0
// What the user does with mouse, wheel and keyboard: the half of GeneralGraphView that takes
// events, and how it zooms.

#include "MorrantUI/graph/ChangeBatch.h"
#include "MorrantUI/graph/GraphDrag.h"
#include "MorrantUI/graph/graphmoves.h"
#include "MorrantUI/scene/framemath.h"
#include "MorrantUI/scene/viewfit.h"
#include <MorrantUI/controls/gestures/modifiers.h>
#include <MorrantUI/graph/GeneralGraphUtils.h>
#include <MorrantUI/graph/GeneralGraphView.h>
#include <MorrantUI/graph/GraphBezierHandleItem.h>
#include <MorrantUI/graph/GraphCurveWidget.h>
#include <MorrantUI/graph/GraphPointWidget.h>
#include <MorrantUI/scene/TransformTool.h>

#include <QApplication>
#include <QGraphicsScene>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

namespace {

constexpr double kCoarseNudge = 10.0;
constexpr double kWheelZoom = 1.2;    ///< a notch
constexpr double kWheelNotch = 120.0; ///< eighths of a degree
constexpr double kFitRoom = 24.0;     ///< pixels around what is fitted

QPoint rounded(QPointF position)
{
    return {ui::nearestFrame(position.x()), ui::nearestFrame(position.y())};
}

/// The factor that keeps a zoom between the ends of what can be drawn; 1 for what is none.
double allowedFactor(double factor, double zoom)
{
    const double wanted = std::abs(zoom) * factor;
    if (!(factor > 0.0) || !std::isfinite(wanted) || zoom == 0.0) {
        return 1.0;
    }
    return std::clamp(wanted, ui::kLeastZoom, ui::kMostZoom) / std::abs(zoom);
}

double fitFactor(double room, double length, double zoom)
{
    return length > 0.0 && room >= 1.0 ? room / length / std::abs(zoom) : 1.0;
}

} // namespace

// Mouse

void GeneralGraphView::mousePressEvent(QMouseEvent* event)
{
    if (isBesideDrag(*event)) {
        return;
    }
    const ui::ChangeBatch batch(this);
    m_pressPosition = rounded(event->position());
    startToolDrag();
    m_bandSelection.clear();
    for (QGraphicsItem* const item : scene() ? scene()->selectedItems() : QList<QGraphicsItem*>()) {
        if (auto* const selected = dynamic_cast<TimeEditorBaseItem*>(item)) {
            m_bandSelection.emplace_back(selected);
        }
    }
    const QPointer<GeneralGraphView> alive(this);
    GraphicsView::mousePressEvent(event);
    if (alive && event->button() == Qt::LeftButton) {
        watchGesture(); // of the transform tool or the rubber band, too
    }
}

void GeneralGraphView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (isBesideDrag(*event)) {
        return;
    }
    if (!itemAt(event->position().toPoint())) {
        mousePressEvent(event); // on empty ground it is a press like any other
        return;
    }
    const ui::ChangeBatch batch(this);
    m_pressPosition = rounded(event->position());
    GraphicsView::mouseDoubleClickEvent(event);
}

void GeneralGraphView::mouseMoveEvent(QMouseEvent* event)
{
    const ui::ChangeBatch batch(this);
    m_axisSnapping = ui::Graph::lockedAxis(
        {.press = m_pressPosition.toPoint(),
         .position = rounded(event->position()),
         .shift = ui::eventKeyboardModifiers().testFlag(Qt::ShiftModifier),
         .startDistance = QApplication::startDragDistance(),
         .present = m_axisSnapping});
    GraphicsView::mouseMoveEvent(event);
    if (!rubberBandRect().isNull()) {
        preferPoints();
    }
    scrollAlong(*event);
}

/// Only along the axis that a drag keeps to.
void GeneralGraphView::scrollAlong(const QMouseEvent& event)
{
    using ui::Graph::AxisSnappingMode;
    const bool tool = m_transformTool && m_transformTool->isDragging();
    const bool dragging = m_drag && m_drag->state() == ui::DragState::Dragging;
    Qt::Orientations directions;
    directions.setFlag(Qt::Horizontal, m_axisSnapping != AxisSnappingMode::Vertical);
    directions.setFlag(Qt::Vertical, m_axisSnapping != AxisSnappingMode::Horizontal && !tool);
    if (dragging || tool || !rubberBandRect().isNull()) {
        scrollAtEdge(event, directions);
    } else {
        stopEdgeScroll();
    }
}

void GeneralGraphView::mouseReleaseEvent(QMouseEvent* event)
{
    if (isBesideDrag(*event)) {
        return;
    }
    const QPointer<GeneralGraphView> alive(this);
    m_axisSnapping = ui::Graph::AxisSnappingMode::None;
    endKeyScaling();
    if (alive && !rubberBandRect().isNull()) {
        preferPoints(); // a zoom in mid-band catches more, without a movement of the mouse
    }
    if (!alive) {
        return;
    }
    const QRectF bounds = selectedBounds();
    setScaleRange({ui::frameOf(bounds.left()), ui::frameOf(bounds.left() + bounds.width())});
    {
        const ui::ChangeBatch batch(this);
        GraphicsView::mouseReleaseEvent(event);
    }
    if (alive && event->button() == Qt::LeftButton) {
        closeGesture();
    }
    if (alive) {
        describeSelection();
    }
}

/// A band that has caught points leaves handles and curves alone.
void GeneralGraphView::preferPoints()
{
    if (m_utils->pointItems(true).empty()) {
        return;
    }
    bool filtered = false;
    {
        const QSignalBlocker quiet(scene()); // one signal for all of them
        for (QGraphicsItem* const item : scene()->selectedItems()) {
            if (dynamic_cast<GraphPointWidget*>(item) == nullptr) {
                item->setSelected(false);
                filtered = true;
            }
        }
    }
    if (filtered) {
        Q_EMIT scene()->selectionChanged();
    }
}

bool GeneralGraphView::cancelRubberBand()
{
    if (!scene() || !endRubberBand()) {
        return false;
    }
    {
        const QSignalBlocker quiet(scene());
        scene()->clearSelection();
        for (const QPointer<TimeEditorBaseItem>& item : m_bandSelection) {
            if (item) {
                item->setSelected(true);
            }
        }
    }
    Q_EMIT scene()->selectionChanged();
    return true;
}

void GeneralGraphView::abandonGesture()
{
    const QPointer<GeneralGraphView> alive(this);
    m_zHeld = false;
    m_axisSnapping = ui::Graph::AxisSnappingMode::None;
    endKeyScaling();
    if (!alive) {
        return;
    }
    {
        const ui::ChangeBatch batch(this);
        GraphicsView::abandonGesture();
    }
    if (alive) {
        closeGesture();
    }
}

// Keys

void GeneralGraphView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Z: m_zHeld = true; break;
    case Qt::Key_Escape:
        if (cancelGesture()) {
            event->accept();
            return; // it has done its work, and must not close what the view is in
        }
        break;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (nudgeByKey(*event)) {
            event->accept();
            return;
        }
        break;
    default: break;
    }
    GraphicsView::keyPressEvent(event);
}

void GeneralGraphView::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Z) {
        m_zHeld = false;
    }
    GraphicsView::keyReleaseEvent(event);
}

QSizeF GeneralGraphView::nudgeStep() const
{
    const double unit = m_gridSnapping ? std::abs(static_cast<double>(m_gridSnappingValue)) : 1.0;
    return {unit, unit};
}

bool GeneralGraphView::nudgeByKey(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    if ((held != Qt::NoModifier && held != Qt::ShiftModifier) || m_drag) {
        return false;
    }
    const QSizeF step = nudgeStep() * (held == Qt::ShiftModifier ? kCoarseNudge : 1.0);
    const QPointer<GeneralGraphView> alive(this);
    const auto nudge = [&](double x, double y) {
        return nudgeSelection({x * step.width(), y * step.height()});
    };
    bool moved = false;
    switch (event.key()) {
    case Qt::Key_Left: moved = nudge(-1.0, 0.0); break;
    case Qt::Key_Right: moved = nudge(1.0, 0.0); break;
    case Qt::Key_Up: moved = nudge(0.0, -1.0); break;
    default: moved = nudge(0.0, 1.0); break;
    }
    if (moved && alive) {
        describeSelection();
    }
    return moved;
}

QString GeneralGraphView::pointText(const GraphPointWidget& point) const
{
    const QPointF place = point.scenePos();
    return tr("Point at time %1, value %2").arg(place.x()).arg(0.0 - place.y());
}

QObjectList GeneralGraphView::listsForReaders() const
{
    QObjectList curves;
    const QList<QGraphicsItem*> items = scene() ? scene()->items() : QList<QGraphicsItem*>();
    for (QGraphicsItem* const item : items) {
        auto* const curve = dynamic_cast<GraphCurveWidget*>(item);
        if (curve && curve->isVisible()) {
            curves.append(curve);
        }
    }
    return curves;
}

QString GeneralGraphView::selectionText() const
{
    const std::vector<GraphPointWidget*> points = m_utils->pointItems(true);
    if (points.size() == 1) {
        return pointText(*points.front());
    }
    return points.empty() ? QString() : tr("%1 points selected").arg(points.size());
}

void GeneralGraphView::describeSelection()
{
    const QString text = selectionText();
    if (text != accessibleDescription()) {
        setAccessibleDescription(text);
    }
}

void GeneralGraphView::focusInEvent(QFocusEvent* event)
{
    describeSelection();
    GraphicsView::focusInEvent(event);
}

// Zoom

void GeneralGraphView::zoomAt(QPointF factors, QPointF place)
{
    const ui::ChangeBatch batch(this); // in mid-drag Qt repeats the last movement meanwhile
    const QTransform before = transform();
    const double x = allowedFactor(factors.x(), before.m11());
    const double y = allowedFactor(factors.y(), before.m22());
    const QPointF held = viewportTransform().inverted().map(place);
    const ViewportAnchor anchor = transformationAnchor();
    setTransformationAnchor(NoAnchor);
    setTransform(QTransform(before).scale(x, y));
    setTransformationAnchor(anchor);
    panBy(rounded(place - viewportTransform().map(held)));
    updateItemRects();
}

void GeneralGraphView::panBy(QPoint distance)
{
    const ui::ChangeBatch batch(this);
    constexpr int kFarthest = std::numeric_limits<int>::max(); // of what is saturated
    scrollAcross(-std::max(distance.x(), -kFarthest));
    QScrollBar* const bar = verticalScrollBar();
    bar->setValue(ui::movedFrame(bar->value(), -1.0 * distance.y()));
}

void GeneralGraphView::fitSceneRect(const QRectF& rect)
{
    const ui::ChangeBatch batch(this);
    const QRectF wanted = rect.normalized();
    const QTransform now = transform();
    const QSizeF room = QSizeF(viewport()->size()) - QSizeF(2.0 * kFitRoom, 2.0 * kFitRoom);
    zoomAt(
        {fitFactor(room.width(), wanted.width(), now.m11()),
         fitFactor(room.height(), wanted.height(), now.m22())},
        viewport()->rect().center());
    if (ui::Graph::isFinite(wanted.center())) {
        centerOn(wanted.center());
    }
}

/// Of their places, not of their diamonds, whose size is the zoom's.
std::optional<QRectF> GeneralGraphView::pointBounds(bool all) const
{
    std::vector<GraphPointWidget*> points = m_utils->pointItems(true);
    const bool whole = all || points.empty();
    if (whole) {
        points = m_utils->pointItems(false);
    }
    if (points.empty()) {
        return std::nullopt;
    }
    QRectF bounds(points.front()->scenePos(), QSizeF(0.0, 0.0)); // QSizeF() is less than nothing
    std::set<const GraphCurveWidget*> curves;
    for (const GraphPointWidget* const point : points) {
        bounds = ui::spanned(bounds, {point->scenePos(), QSizeF(0.0, 0.0)});
        curves.insert(point->curve());
    }
    curves.erase(nullptr);
    for (const GraphCurveWidget* const curve : curves) {
        const std::vector<GraphPointWidget*> ends = curve->points();
        const std::vector<ui::Graph::Segment> between = curve->segments();
        for (std::size_t i = 0; i < std::min(between.size(), ends.size() - 1); ++i) {
            if (whole || (ends.at(i)->isSelected() && ends.at(i + 1)->isSelected())) {
                const QRectF reached = ui::Graph::segmentBounds(between.at(i));
                bounds = ui::spanned(bounds, curve->mapRectToScene(reached));
            }
        }
    }
    return bounds;
}

void GeneralGraphView::fitPoints(bool all)
{
    if (const std::optional<QRectF> bounds = pointBounds(all)) {
        fitSceneRect(*bounds);
    }
}

bool GeneralGraphView::zoomByWheel(const QWheelEvent& event)
{
    if (!event.modifiers().testFlag(Qt::ControlModifier)) {
        return false;
    }
    const QPoint delta = event.angleDelta(); // which systems turn on its side while Alt is held
    const double turned = delta.y() != 0 ? delta.y() : delta.x();
    const double factor = std::pow(kWheelZoom, turned / kWheelNotch);
    const bool valuesOnly = event.modifiers().testFlag(Qt::ShiftModifier);
    const bool timeOnly = event.modifiers().testFlag(Qt::AltModifier);
    zoomAt({valuesOnly ? 1.0 : factor, timeOnly ? 1.0 : factor}, event.position());
    return true;
}

void GeneralGraphView::updateItemRects()
{
    if (!scene()) {
        return;
    }
    scene()->update(); // once for all of them
    for (QGraphicsItem* const item : scene()->items()) {
        if (auto* const point = dynamic_cast<GraphPointWidget*>(item)) {
            point->sizeFor(transform());
        } else if (auto* const handle = dynamic_cast<GraphBezierHandleItem*>(item)) {
            handle->sizeFor(transform());
        }
    }
}
