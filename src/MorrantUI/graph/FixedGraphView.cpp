// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/FixedGraphView.h"

#include "MorrantUI/graph/ChangeBatch.h"
#include "MorrantUI/graph/graphmoves.h"
#include "MorrantUI/theme/FrozenUpdates.h"
#include <MorrantUI/graph/FixedGraphPointWidget.h>
#include <MorrantUI/graph/FixedGraphScene.h>
#include <MorrantUI/graph/GeneralGraphUtils.h>
#include <MorrantUI/graph/GraphBezierHandleItem.h>
#include <MorrantUI/graph/GraphCurveWidget.h>
#include <MorrantUI/graph/fixedunits.h>
#include <MorrantUI/menus/ContextMenu.h>
#include <MorrantUI/scene/TransformTool.h>
#include <MorrantUI/theme/events.h>

#include <QAction>
#include <QContextMenuEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

using morrant::KeyInterpolationType;
using ui::Graph::Interpolation;
using ui::Graph::Side;

namespace {

constexpr double kDefaultHandle = 3.0; ///< scene units
constexpr double kNudge = 0.1;         ///< scene units, a hundredth of the range

/// QPointF's own comparison takes what is next to nothing for nothing.
bool isSame(const QPointF& a, const QPointF& b)
{
    return a.x() == b.x() && a.y() == b.y();
}

/// What a kind of the data's that we do not know looks like is straight.
Interpolation shownAs(KeyInterpolationType type)
{
    return type == KeyInterpolationType::Bezier ? Interpolation::Bezier : Interpolation::Linear;
}

bool isDeleteKey(const QEvent& event)
{
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Delete || key == Qt::Key_Backspace;
}

/// Whether all of at least one point have an interpolation.
bool allAre(const std::vector<GraphPointWidget*>& points, Interpolation interpolation)
{
    return !points.empty() && std::ranges::all_of(points, [&](const GraphPointWidget* point) {
        return point->getInterpolation() == interpolation;
    });
}

std::set<int> indicesOf(const std::vector<GraphPointWidget*>& points)
{
    std::set<int> indices;
    for (const GraphPointWidget* const point : points) {
        indices.insert(point->index());
    }
    return indices;
}

} // namespace

FixedGraphView::FixedGraphView(GraphCurveData* curveData, QWidget* parent)
    : GeneralGraphView(parent)
    , m_data(curveData)
{
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    setDragMode(RubberBandDrag);
    setViewportUpdateMode(FullViewportUpdate);
    setDefaultInterpolation(Interpolation::Bezier);
    setAccessibleName(tr("Curve"));
    setScene(new FixedGraphScene(this));
    scene()->setSceneRect(m_rangeRect);
    connect(scene(), &QGraphicsScene::selectionChanged, this, &FixedGraphView::updateTransformTool);
    fitToRect(m_rangeRect);
}

FixedGraphView::~FixedGraphView() = default;

void FixedGraphView::setData(GraphCurveData* curveData)
{
    m_data = curveData;
    fillGraph(true);
}

// What is shown

void FixedGraphView::fitToRect(QRectF rect)
{
    const bool finite =
        ui::Graph::isFinite(rect.topLeft()) && ui::Graph::isFinite(rect.bottomRight());
    if (!finite || rect.isEmpty()) {
        return;
    }
    m_shownRect = rect;
    fitInView(rect, Qt::KeepAspectRatio);
    updateItemRects();
}

void FixedGraphView::setRangeRect(QRect rect)
{
    if (rect.isEmpty()) {
        return;
    }
    m_rangeRect = QRectF(rect);
    if (scene()) {
        scene()->setSceneRect(m_rangeRect);
    }
    fitToRect(m_rangeRect);
}

void FixedGraphView::resizeEvent(QResizeEvent* event)
{
    GeneralGraphView::resizeEvent(event);
    fitToRect(m_shownRect);
}

// From the data to the scene

const GraphCurveKey* FixedGraphView::keyOf(const GraphPointWidget& point) const
{
    if (!m_data) {
        return nullptr;
    }
    const auto& keys = m_data->keys();
    const auto found = std::ranges::find(keys, point.index(), &GraphCurveKey::index);
    return found != keys.end() ? &*found : nullptr;
}

GraphPointWidget* FixedGraphView::makePoint(KeyInterpolationType type)
{
    auto* const point = new FixedGraphPointWidget(this, m_curve);
    point->setInterpolation(shownAs(type), true);
    point->setClipPosition(true);
    connect(point, &GraphPointWidget::pointDataChange, this, [this, point] { tellMoved(point); });
    return point;
}

GraphPointWidget* FixedGraphView::addPoint(QPointF position, KeyInterpolationType type)
{
    if (!m_data || !scene() || !ui::Graph::isFinite(position)) {
        return nullptr;
    }
    if (!m_curve) {
        makeCurve();
        scene()->addItem(m_curve);
    }
    GraphPointWidget* const point = makePoint(type);
    const auto axis = getAxisSnapping();
    setAxisSnapping(ui::Graph::AxisSnappingMode::None); // of a drag, in which it takes no part
    {
        const QSignalBlocker quiet(point);
        point->setPos(position);
    }
    setAxisSnapping(axis);
    point->storePosition();
    return point;
}

void FixedGraphView::makeHandles(GraphPointWidget* point, const GraphCurveKey& key)
{
    if (!point->getLeftBezier() && !point->getRightBezier()) {
        for (const Side side : {Side::Left, Side::Right}) {
            auto* const handle = new GraphBezierHandleItem(side, point, point);
            connect(handle, &GraphBezierHandleItem::bezierDataChange, this, [this, point] {
                tellMoved(point);
            });
        }
    }
    if (point->getLeftBezier() && point->getRightBezier()) {
        point->getLeftBezier()->placeSilently(ui::Graph::fixedOffset(key.leftHandle));
        point->getRightBezier()->placeSilently(ui::Graph::fixedOffset(key.rightHandle));
    }
}

void FixedGraphView::addBezierHandles(GraphPointWidget* point)
{
    const GraphCurveKey* const key = point ? keyOf(*point) : nullptr;
    if (key) {
        makeHandles(point, *key);
        point->setLockedBeziers(key->handlesLocked, false);
    }
}

void FixedGraphView::updateBezierVisibility()
{
    if (!scene()) {
        return;
    }
    // As soloPointCheck() does, but the points are counted once.
    const bool several = utils()->pointItems(false).size() >= 2;
    for (QGraphicsItem* const item : scene()->items()) {
        if (auto* const handle = dynamic_cast<GraphBezierHandleItem*>(item)) {
            handle->showHandle(several);
        }
    }
}

void FixedGraphView::fillGraph(bool force)
{
    const int keys = m_data ? m_data->count() : 0;
    if (!scene() || (!force && keys == static_cast<int>(utils()->pointItems(false).size()))) {
        return;
    }
    const bool hadSelection = !scene()->selectedItems().isEmpty();
    const std::set<int> selected = indicesOf(selectedPoints());
    {
        const ui::FrozenUpdates frozen({this});
        const QSignalBlocker quiet(scene());
        clearGraph();
        buildGraph();
        for (GraphPointWidget* const point : utils()->pointItems(false)) {
            point->setSelected(selected.contains(point->index()));
        }
    }
    updateTransformTool();
    if (hadSelection) {
        Q_EMIT scene()->selectionChanged(); // none of the items is the same
    }
}

/// What is taken out of the scene goes when control returns to the event loop: Qt may be in the
/// middle of moving it, as the slot of one of its signals may have asked for this.
void FixedGraphView::clearGraph()
{
    std::vector<QGraphicsItem*> leaving;
    for (QGraphicsItem* const item : scene()->items()) {
        if (dynamic_cast<TransformTool*>(item)) {
            item->hide();
        } else if (!item->parentItem()) {
            leaving.push_back(item);
        }
    }
    for (QGraphicsItem* const item : leaving) {
        scene()->removeItem(item);
        if (auto* const object = dynamic_cast<QObject*>(item)) {
            if (!object->parent()) {
                object->setParent(this); // which may be gone before
            }
            object->deleteLater();
        } else {
            delete item;
        }
    }
}

/// Outside the scene, so that nothing is looked at before all of it is there.
void FixedGraphView::buildGraph()
{
    makeCurve();
    std::vector<std::pair<GraphPointWidget*, bool>> locks;
    const auto show = [&](const GraphCurveKey& key) {
        GraphPointWidget* const point = makePoint(key.interpolation);
        point->setIndex(key.index);
        const num2<double> place(std::clamp(key.time, 0.0, 1.0), std::clamp(key.value, 0.0, 1.0));
        point->forceMove(ui::Graph::fixedPosition(place));
        point->storePosition();
        makeHandles(point, key);
        locks.emplace_back(point, key.handlesLocked);
    };
    if (m_data) {
        for (const GraphCurveKey& key : m_data->keys()) {
            if (std::isfinite(key.time) && std::isfinite(key.value)) {
                show(key);
            }
        }
    }
    scene()->addItem(m_curve);
    for (const auto& [point, locked] : locks) {
        point->setLockedBeziers(locked, false);
    }
    updateBezierVisibility();
    updateItemRects();
}

void FixedGraphView::makeCurve()
{
    m_curve = new GraphCurveWidget;
    m_curve->setFlag(QGraphicsItem::ItemIsSelectable);
}

// From the scene to the data

GraphCurveKey FixedGraphView::shownKey(GraphPointWidget* point) const
{
    GraphCurveKey shown;
    shown.index = -1;
    if (!point) {
        return shown;
    }
    if (const GraphCurveKey* const key = keyOf(*point)) {
        shown = *key;
    }
    shown.index = point->index();
    if (!isSame(ui::Graph::fixedPosition({shown.time, shown.value}), point->pos())) {
        const num2<double> place = ui::Graph::fixedData(point->pos());
        shown.time = place.x;
        shown.value = place.y;
    }
    const auto take = [](num2<double>& offset, const GraphBezierHandleItem* handle) {
        const QPointF place = handle ? handle->pos() : QPointF();
        if (!isSame(ui::Graph::fixedOffset(offset), place)) {
            offset = ui::Graph::fixedDataOffset(place);
        }
    };
    take(shown.leftHandle, point->getLeftBezier());
    take(shown.rightHandle, point->getRightBezier());
    shown.handlesLocked = point->hasLockedBeziers();
    if (shownAs(shown.interpolation) != point->getInterpolation()) {
        shown.interpolation = static_cast<KeyInterpolationType>(point->getInterpolation());
    }
    return shown;
}

/// By time.
std::vector<GraphPointWidget*> FixedGraphView::selectedPoints()
{
    std::vector<GraphPointWidget*> points = utils()->pointItems(true);
    std::ranges::stable_sort(points, {}, [](const GraphPointWidget* point) { return point->x(); });
    return points;
}

bool FixedGraphView::canDelete() const
{
    return m_data && m_data->count() > m_minimumPoints;
}

/// Lazily: where the base begins an edit, Qt may be in the middle of moving what a slot deletes.
void FixedGraphView::tellStart()
{
    if (m_gesture == Gesture::Begun) {
        m_gesture = Gesture::Told;
        Q_EMIT gestureStarted();
    }
}

void FixedGraphView::tellMoved(GraphPointWidget* point)
{
    const QPointer<FixedGraphView> alive(this);
    const QPointer<GraphPointWidget> guarded(point);
    tellStart();
    if (alive && guarded) {
        Q_EMIT pointMoved(point);
    }
}

void FixedGraphView::editStarted()
{
    GeneralGraphView::editStarted();
    m_gesture = Gesture::Begun;
}

void FixedGraphView::editEnded(bool changed)
{
    GeneralGraphView::editEnded(changed);
    updateBezierVisibility(); // other points may be the first and the last
    updateTransformTool();
    if (std::exchange(m_gesture, Gesture::None) == Gesture::Told) {
        Q_EMIT gestureEnded(changed);
    }
}

/// One step of the owner's history.
void FixedGraphView::asGesture(const std::function<void()>& report)
{
    const QPointer<FixedGraphView> alive(this);
    cancelGesture();
    if (alive) {
        asEdit([&] {
            tellStart();
            if (alive) {
                report();
            }
            return true;
        });
    }
}

/// The owner may do anything with each report, so that indices are taken down first. Where it
/// removes keys at once, the least number of them stays. Returns whether there were any.
bool FixedGraphView::deleteSelectedItems()
{
    const QPointer<FixedGraphView> alive(this);
    std::vector<int> indices;
    for (const GraphPointWidget* const point : selectedPoints()) {
        indices.push_back(point->index());
    }
    if (!canDelete()) {
        return false;
    }
    if (!indices.empty()) {
        asGesture([&] {
            for (const int index : indices) {
                if (alive && canDelete()) {
                    Q_EMIT pointRemoved(static_cast<unsigned long>(index));
                }
            }
        });
    }
    if (alive) {
        fillGraph(false);
    }
    return !indices.empty();
}

void FixedGraphView::addPointByUser(QPointF position)
{
    const QPointer<FixedGraphView> alive(this);
    const QPointer<GraphPointWidget> point = addPoint(position, KeyInterpolationType::Linear);
    if (!point) {
        return;
    }
    asGesture([&] {
        if (point) {
            Q_EMIT pointAdded(position, point);
            ui::processEvents();
        }
    });
    if (alive && point && point->scene() && point->scene() == scene()) {
        addBezierHandles(point);
        updateBezierVisibility();
        scene()->update();
    }
}

// What the user does

void FixedGraphView::fillMenu(QMenu* menu, QPointF position)
{
    connect(menu->addAction(tr("Add Point")), &QAction::triggered, this, [this, position] {
        addPointByUser(position);
    });
    const std::vector<GraphPointWidget*> selected = selectedPoints();
    if (!selected.empty() && canDelete()) {
        const QString text = selected.size() == 1 ? tr("Delete Point") : tr("Delete Points");
        connect(
            menu->addAction(text), &QAction::triggered, this, &FixedGraphView::deleteSelectedItems);
    }
    auto* const types = new ContextMenu(menu);
    types->setTitle(tr("Curve Type"));
    menu->addMenu(types);
    const auto addType = [&](const QString& text, Interpolation type) {
        QAction* const action = types->addAction(text);
        action->setCheckable(true);
        action->setChecked(allAre(selected, type));
        connect(action, &QAction::triggered, this, [this, type] {
            asGesture([&] {
                const ui::ChangeBatch batch(this); // the owner goes through all points first
                Q_EMIT interpolationChanged(static_cast<short>(type));
            });
        });
    };
    addType(tr("Linear"), Interpolation::Linear);
    addType(tr("Bézier"), Interpolation::Bezier);
}

void FixedGraphView::mouseMoveEvent(QMouseEvent* event)
{
    const QPointer<FixedGraphView> alive(this);
    GeneralGraphView::mouseMoveEvent(event);
    if (alive && m_gesture == Gesture::Told) {
        updateTransformTool(); // it stays around points that are dragged by themselves
    }
}

void FixedGraphView::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    if ((scene() && scene()->mouseGrabberItem()) || rubberBandRect().isValid()) {
        return; // in mid-drag
    }
    const QPointer<ContextMenu> menu = new ContextMenu(this);
    fillMenu(menu, mapToScene(viewport()->mapFromGlobal(event->globalPos())));
    menu->exec(event->globalPos());
    if (menu) { // the view may be gone, and the menu with it
        menu->deleteLater();
    }
}

bool FixedGraphView::event(QEvent* event)
{
    // Delete is the graph's before it is a shortcut of the window.
    if (event->type() == QEvent::ShortcutOverride && isDeleteKey(*event) && canDelete()
        && !selectedPoints().empty())
    {
        event->accept();
        return true;
    }
    return GeneralGraphView::event(event);
}

void FixedGraphView::keyPressEvent(QKeyEvent* event)
{
    const QPointer<FixedGraphView> alive(this);
    const bool deleted = isDeleteKey(*event) && deleteSelectedItems();
    if (alive) {
        GeneralGraphView::keyPressEvent(event);
    }
    event->setAccepted(deleted || event->isAccepted()); // it is not the window's as well
}

QPointF FixedGraphView::getDefaultBezierPosition(Side side)
{
    return {side == Side::Left ? -kDefaultHandle : kDefaultHandle, 0.0};
}

QSizeF FixedGraphView::nudgeStep() const
{
    return isGridSnapping() ? GeneralGraphView::nudgeStep() : QSizeF(kNudge, kNudge);
}

QString FixedGraphView::pointText(const GraphPointWidget& point) const
{
    const num2<double> place = ui::Graph::fixedData(point.pos());
    const QLocale locale;
    return tr("Time %1, value %2").arg(locale.toString(place.x), locale.toString(place.y));
}
