// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/GeneralGraphView.h"

#include "MorrantUI/graph/ChangeBatch.h"
#include "MorrantUI/graph/GraphDrag.h"
#include "MorrantUI/scene/AccessibleView.h"
#include "MorrantUI/scene/framemath.h"
#include "MorrantUI/timeeditor/keyscaling.h"
#include <MorrantUI/controls/gestures/modifiers.h>
#include <MorrantUI/graph/GeneralGraphUtils.h>
#include <MorrantUI/graph/GraphBezierHandleItem.h>
#include <MorrantUI/graph/GraphCurveWidget.h>
#include <MorrantUI/graph/GraphPointWidget.h>
#include <MorrantUI/graph/PointTransformTool.h>
#include <MorrantUI/scene/TransformTool.h>

#include <QGraphicsScene>

#include <cmath>
#include <set>
#include <utility>

namespace {

constexpr double kHandleDistance = 5.0; ///< scene units

QString spokenCurve(const GraphCurveWidget& curve)
{
    const QString own = ui::plainText(curve.toolTip());
    return own.isEmpty() ? GeneralGraphView::tr("Curve") : own;
}

QString spokenPoint(const GraphPointWidget& point, int number)
{
    const GeneralGraphView* const view = point.parentView();
    return GeneralGraphView::tr("Keyframe %1: %2")
        .arg(QString::number(number), view ? view->pointText(point) : QString());
}

void installReaders()
{
    using Curve = GraphCurveWidget;
    using Point = GraphPointWidget;
    ui::installAccessible<Curve, ui::AccessibleList<Curve, &spokenCurve, &Curve::points>>();
    ui::installAccessible<Point, ui::AccessibleListItem<Point, &spokenPoint, &Curve::points>>();
}

} // namespace

GeneralGraphView::GeneralGraphView(QWidget* parent)
    : GraphicsView(parent)
    , m_utils(new GeneralGraphUtils(this, this))
    , m_toolEdit(std::make_unique<ui::GraphEdit>())
{
    setAccessibleName(tr("Graph editor"));
    installReaders();
}

GeneralGraphView::~GeneralGraphView()
{
    m_drag.reset();
    if (scene() && scene()->parent() == this) {
        delete scene();
    }
}

QPointF GeneralGraphView::getDefaultBezierPosition(ui::Graph::Side side)
{
    return {side == ui::Graph::Side::Left ? -kHandleDistance : kHandleDistance, 0.0};
}

// The selection and the transform tool

QRectF GeneralGraphView::getSelectionRect()
{
    QRectF rect;
    for (const GraphPointWidget* const point : m_utils->pointItems(true)) {
        rect |= point->sceneBoundingRect();
    }
    return rect;
}

QRectF GeneralGraphView::selectedBounds() const
{
    QRectF bounds;
    for (const QGraphicsItem* const item :
         scene() ? scene()->selectedItems() : QList<QGraphicsItem*>()) {
        if (dynamic_cast<const TransformTool*>(item) == nullptr) {
            bounds |= item->sceneBoundingRect();
        }
    }
    return bounds;
}

void GeneralGraphView::selectionChanged()
{
    if (!scene()) {
        updateTransformTool();
    }
}

TransformTool* GeneralGraphView::createTransformTool()
{
    return new PointTransformTool(this, nullptr);
}

TransformTool* GeneralGraphView::transformTool() const
{
    return m_transformTool;
}

void GeneralGraphView::updateTransformTool()
{
    const bool wanted = m_showTransformTool && m_utils->pointItems(true).size() >= 2;
    if (wanted && !m_transformTool) {
        m_transformTool = createTransformTool();
    }
    if (wanted && m_transformTool && m_transformTool->scene() != scene()) {
        scene()->addItem(m_transformTool);
    }
    if (m_transformTool) {
        m_transformTool->setVisible(wanted);
        m_transformTool->setRect(wanted ? getSelectionRect() : QRectF());
    }
}

// Key scaling, and what else the tool does

void GeneralGraphView::setupKeyScaling(QPoint anchor, bool side)
{
    beginEdit(false);
    m_scaleAnchor = anchor;
    m_keyScalingSide = side;
    std::set<QGraphicsItem*> parents;
    for (GraphPointWidget* const point : m_utils->pointItems(true)) {
        m_scaledKeys.emplace_back(ui::frameOf(point->scenePos().x()), point);
        if (point->parentItem()) {
            parents.insert(point->parentItem());
        } else {
            m_toolEdit->add(point);
        }
    }
    for (const QGraphicsItem* const parent : parents) {
        for (QGraphicsItem* const child : parent->childItems()) {
            if (auto* const point = dynamic_cast<GraphPointWidget*>(child)) {
                m_rippleKeys.emplace_back(ui::frameOf(point->scenePos().x()), point);
                m_toolEdit->add(point);
            }
        }
    }
}

void GeneralGraphView::scaleKeys(QPoint position)
{
    m_utils->scaleKeys(
        m_scaleAnchor.x(),
        position.x(),
        ui::living(m_scaledKeys),
        ui::living(m_rippleKeys),
        m_keyScalingSide);
}

void GeneralGraphView::endKeyScaling()
{
    m_rippleKeys.clear();
    setDoneRippleEdit(false);
    const bool scaled = !std::exchange(m_scaledKeys, {}).empty();
    if (scaled && scene() && !scene()->mouseGrabberItem()) {
        closeGesture(); // else the release does
    }
}

void GeneralGraphView::cancelKeyScaling()
{
    const QPointer<GeneralGraphView> alive(this);
    {
        const ui::ChangeBatch batch(this);
        m_toolEdit->restore();
    }
    if (alive) {
        endKeyScaling();
    }
}

void GeneralGraphView::startToolDrag()
{
    *m_toolEdit = {};
    m_toolDistance = 0.0;
}

double GeneralGraphView::moveSelectedPoints(double distance)
{
    if (!std::isfinite(m_toolDistance + distance)) {
        return 0.0;
    }
    const ui::ChangeBatch batch(this);
    if (m_toolEdit->isEmpty()) {
        startToolDrag();
        for (GraphPointWidget* const point : m_utils->pointItems(true)) {
            m_toolEdit->add(point);
        }
        if (m_toolEdit->isEmpty()) {
            return 0.0;
        }
        beginEdit(false);
    }
    m_toolDistance += distance;
    if (m_toolDistance == 0.0) {
        m_toolEdit->restore(); // also where the points' rules would put them elsewhere
    } else {
        m_toolEdit->moveBy({m_toolDistance, 0.0});
    }
    return distance;
}

bool GeneralGraphView::nudgeSelection(QPointF distance)
{
    ui::GraphEdit nudge;
    for (GraphPointWidget* const point : m_utils->pointItems(true)) {
        nudge.add(point);
    }
    if (nudge.isEmpty() && scene()) {
        for (QGraphicsItem* const item : scene()->selectedItems()) {
            if (auto* const handle = dynamic_cast<GraphBezierHandleItem*>(item)) {
                nudge.add(handle);
            }
        }
    }
    if (nudge.isEmpty()) {
        return false;
    }
    asEdit([&] {
        const ui::ChangeBatch batch(this);
        m_nudging = true;
        nudge.moveBy(distance);
        m_nudging = false;
        return nudge.hasChanged();
    });
    return true;
}

// Drags

void GeneralGraphView::startDrag(TimeEditorBaseItem* item, QPointF scenePosition)
{
    m_drag = std::make_unique<ui::GraphDrag>(item, scenePosition);
    watchGesture();
}

void GeneralGraphView::watchGesture()
{
    const auto abandon = [this](GestureDoors::Door door) {
        if (door != GestureDoors::Door::Destroyed) {
            abandonGesture();
        }
    };
    m_gestureDoors.watch(viewport(), abandon, {.focus = true});
}

void GeneralGraphView::dragTo(QPointF scenePosition)
{
    if (!m_drag) {
        return;
    }
    const ui::ChangeBatch batch(this);
    if (m_drag->state() == ui::DragState::Pressed) {
        beginEdit(false);
    }
    if (m_drag) { // else the host has taken the mouse away from it
        m_drag->dragTo(scenePosition);
    }
}

/// However it ends.
void GeneralGraphView::closeGesture()
{
    m_gestureDoors.stop();
    stopEdgeScroll();
    const auto drag = std::exchange(m_drag, nullptr);
    const ui::GraphEdit tool = std::exchange(*m_toolEdit, {});
    if (m_edit == Edit::Unchanged && ((drag && drag->hasChanged()) || tool.hasChanged())) {
        m_edit = Edit::Changed;
    }
    m_bandSelection.clear();
    finishEdit();
}

bool GeneralGraphView::cancelGesture()
{
    const QPointer<GeneralGraphView> alive(this);
    stopEdgeScroll();
    {
        const ui::ChangeBatch batch(this);
        if (m_drag && m_drag->state() == ui::DragState::Dragging) {
            m_drag->cancel();
        } else if (m_transformTool && m_transformTool->isDragging()) {
            m_transformTool->cancelDrag();
            *m_toolEdit = {};
        } else {
            return cancelRubberBand();
        }
        m_edit = m_edit == Edit::None ? Edit::None : Edit::Unchanged;
    }
    if (alive) {
        finishEdit();
    }
    return true;
}

void GeneralGraphView::beginEdit(bool changed)
{
    if (m_edit == Edit::None) {
        m_edit = Edit::Unchanged;
        editStarted();
    }
    if (changed) {
        m_edit = Edit::Changed;
    }
}

void GeneralGraphView::asEdit(const std::function<bool()>& change)
{
    const QPointer<GeneralGraphView> alive(this);
    const bool alone = m_edit == Edit::None;
    beginEdit(false);
    const bool changed = change();
    if (alive && changed && m_edit == Edit::Unchanged) {
        m_edit = Edit::Changed;
    }
    if (alive && alone) {
        finishEdit();
    }
}

void GeneralGraphView::finishEdit()
{
    const Edit edit = std::exchange(m_edit, Edit::None);
    if (edit != Edit::None) {
        editEnded(edit == Edit::Changed);
    }
}

void GeneralGraphView::editEnded(bool /*changed*/)
{}

Qt::KeyboardModifiers GeneralGraphView::heldModifiers(const GeneralGraphView* view)
{
    return view && view->m_nudging ? Qt::KeyboardModifiers() : ui::eventKeyboardModifiers();
}

// Telling the host

void GeneralGraphView::queueChange(TimeEditorBaseItem* item)
{
    m_changed.emplace_back(item);
}

void GeneralGraphView::queueNotice(GraphPointWidget* point)
{
    m_noticed.emplace_back(point);
}

void GeneralGraphView::closeBatch()
{
    if (--m_batches > 0) {
        return;
    }
    const auto changed = std::exchange(m_changed, {});
    const auto noticed = std::exchange(m_noticed, {});
    for (const QPointer<TimeEditorBaseItem>& item : changed) {
        if (auto* const point = qobject_cast<GraphPointWidget*>(item.data())) {
            point->reportChange();
        } else if (auto* const handle = qobject_cast<GraphBezierHandleItem*>(item.data())) {
            handle->reportChange();
        }
    }
    for (const QPointer<GraphPointWidget>& point : noticed) {
        if (point) {
            point->reportNotice();
        }
    }
}
