// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/TimeEditorView.h"

#include "MorrantUI/scene/AccessibleView.h"
#include "MorrantUI/scene/DragOverlay.h"
#include "MorrantUI/scene/viewfit.h"
#include "MorrantUI/timeeditor/KeptSelection.h"
#include "MorrantUI/timeeditor/KeyEdit.h"
#include "MorrantUI/timeeditor/clipselection.h"
#include "MorrantUI/timeeditor/keylook.h"
#include "MorrantUI/timeeditor/keyscaling.h"
#include "MorrantUI/timeeditor/keywalk.h"
#include "MorrantUI/timeeditor/marqueefilter.h"
#include <MorrantUI/controls/connections/ConnectionInstance.h>
#include <MorrantUI/controls/gestures/modifiers.h>
#include <MorrantUI/scene/framemath.h>
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/timeeditor/TimeEditorClipItem.h>
#include <MorrantUI/timeeditor/TimeEditorCurveItem.h>
#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>
#include <MorrantUI/timeeditor/TimeEditorScene.h>
#include <MorrantUI/timeeditor/TimeEditorSoundItem.h>
#include <MorrantUI/timeeditor/TranslateScaleTool.h>
#include <MorrantUI/timeline/TimeHandle.h>

#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <utility>

namespace {

constexpr double kToolZ = 100.0;

QString spokenRow(const TimeEditorBaseItem& row)
{
    const QString name = ui::rowName(row);
    return name.isEmpty() ? TimeEditorView::tr("Keys") : name;
}

QString spokenKey(const TimeEditorKeyframeItem& key, int number)
{
    const QString frame = QString::number(ui::nearestFrame(key.scenePos().x()));
    return TimeEditorView::tr("Keyframe %1: frame %2").arg(QString::number(number), frame);
}

template <class Row>
void installReader()
{
    ui::installAccessible<Row, ui::AccessibleList<Row, &spokenRow, &ui::keysIn>>();
}

void installReaders()
{
    installReader<TimeEditorCurveItem>();
    installReader<TimeEditorClipItem>();
    installReader<TimeEditorSoundItem>();
    using Key = TimeEditorKeyframeItem;
    ui::installAccessible<Key, ui::AccessibleListItem<Key, &spokenKey, &ui::keysIn, &ui::rowOf>>();
}

bool isHeld(Qt::KeyboardModifier modifier)
{
    return ui::queryKeyboardModifiers().testFlag(modifier);
}

template <typename Item, typename Items>
std::set<Item*> itemsOf(const Items& items)
{
    std::set<Item*> found;
    for (QGraphicsItem* const item : items) {
        if (auto* const wanted = dynamic_cast<Item*>(item)) {
            found.insert(wanted);
        }
    }
    return found;
}

template <typename Items>
void deselect(const Items& items)
{
    for (QGraphicsItem* const item : items) {
        item->setSelected(false);
    }
}

} // namespace

TimeEditorView::TimeEditorView(QWidget* parent)
    : GraphicsView(parent)
    , m_edit(std::make_unique<ui::KeyEdit>())
    , m_overlay(std::make_unique<DragOverlay>())
{
    configure();
}

TimeEditorView::~TimeEditorView()
{
    m_keyDrag.reset();
    if (m_scene) {
        m_scene->disconnect(this);
        delete m_scene.data();
    }
}

void TimeEditorView::configure()
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAccessibleName(tr("Time editor"));
    installReaders();
    setMouseTracking(true);
    viewport()->setMouseTracking(true);
    setRenderHints(
        QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    setDragMode(RubberBandDrag);
    setOptimizationFlag(DontSavePainterState);
    setViewportUpdateMode(SmartViewportUpdate);
    setTransformationAnchor(NoAnchor);
    setResizeAnchor(NoAnchor);
    setAlignment(Qt::AlignHCenter | Qt::AlignTop); // few rows begin at the top
}

void TimeEditorView::setup(TimeEditorScene* scene)
{
    if (!scene || scene == m_scene) {
        return;
    }
    delete m_scene.data();
    m_scene = scene;
    setScene(scene);
    scene->setParent(this);
    m_tool = new TranslateScaleTool(this, nullptr);
    m_tool->setVisible(false);
    m_tool->setZValue(kToolZ);
    m_tool->setY(
        ui::kKeyMiddle); // its rectangle is about the keys' positions, which are above them
    scene->addItem(m_tool);
    scene->setBackgroundRegionColor(ui::colorQt(QStringLiteral("Base")));
    connect(scene, &QGraphicsScene::selectionChanged, this, &TimeEditorView::selectionChanged);
    connect(
        this,
        &QGraphicsView::rubberBandChanged,
        this,
        &TimeEditorView::subSelect,
        Qt::UniqueConnection);
    const QScrollBar* const bar = horizontalScrollBar();
    connect(
        bar,
        &QScrollBar::valueChanged,
        this,
        &TimeEditorView::viewRectChanged,
        Qt::UniqueConnection);
    connect(
        bar,
        &QScrollBar::rangeChanged,
        this,
        &TimeEditorView::viewRectChanged,
        Qt::UniqueConnection);
    makeWidgetReceiver(this);
    m_itemScale = 0.0;
    updateItemRects();
}

TimeEditorScene* TimeEditorView::getEditorScene() const
{
    return m_scene;
}

void TimeEditorView::setUtils(TimeEditorUtils* utils)
{
    m_utils = utils;
}

// Coordinates and zoom

void TimeEditorView::setupViewAndScene(double first, double last, int height)
{
    if (!m_scene || !std::isfinite(first) || !std::isfinite(last)) {
        return;
    }
    const int rows = height != 0 ? height : ui::frameOf(m_scene->sceneRect().height());
    const QRectF wanted = ui::sceneRectOf(first, last, rows);
    if (m_scene->sceneRect() != wanted) {
        m_scene->setSceneRect(wanted);
    }
    fitRect(ui::scaledFrameRect(first, last, m_scale, rows));
    centerOn(frameNumber(), 0.0);
    if (m_scene->useTimeHandle()) {
        m_scene->getTimeHandle()->setHeight(rows);
    }
}

void TimeEditorView::setScale(double scale)
{
    if (!std::isfinite(scale)) {
        return;
    }
    m_scale = std::max(scale, getMinScale());
    setupViewAndScene(m_frameRange.first, m_frameRange.second, 0);
    Q_EMIT scaleChanged();
}

double TimeEditorView::getMinScale() const
{
    return ui::minimumScale(width(), m_playbackRange);
}

void TimeEditorView::setScaleAt(double scale, int x)
{
    const double frame = mapToScene(x, 0).x();
    const int rowsAbove = verticalScrollBar()->value();
    const QPointer<TimeEditorView> alive(this);
    setScale(scale); // which goes to the first row
    if (!alive) {
        return;
    }
    const int moved = mapFromScene(frame, 0.0).x() - x;
    scrollAcross(moved);
    if (alive) {
        verticalScrollBar()->setValue(rowsAbove);
    }
}

void TimeEditorView::fitRect(const QRectF& rect)
{
    const QRectF unit = transform().mapRect(QRectF(0.0, 0.0, 1.0, 1.0));
    if (!(unit.width() > 0.0) || !(unit.height() > 0.0)) {
        return;
    }
    const std::optional<double> factor = ui::horizontalFit(rect, viewport()->size());
    setTransform(QTransform::fromScale(factor.value_or(1.0), 1.0));
    updateItemRects();
    if (factor) {
        centerOn(rect.center());
    }
}

void TimeEditorView::updateItemRects()
{
    const double scale = transform().m11();
    if (!m_scene || scale == m_itemScale) {
        return;
    }
    m_itemScale = scale;
    for (TimeEditorCurveItem* const curve : m_scene->curves()) {
        curve->updateRect();
    }
    for (TimeEditorClipItem* const clip : m_scene->clips()) {
        clip->updateRect();
    }
    for (TimeEditorBaseItem* const item : m_scene->m_others) {
        item->updateRect();
    }
}

void TimeEditorView::fitTimelineInView()
{
    if (!m_scene) {
        return;
    }
    const ui::FrameRange& range = isHeld(Qt::ShiftModifier) ? m_frameRange : m_playbackRange;
    const QRectF rect = ui::framedRange(range, m_scale, m_scene->itemsBoundingRect());
    fitRect(rect);
    Q_EMIT rescale(rect);
}

void TimeEditorView::fitSelectedItemsInView()
{
    const QRectF rect = selectedBounds();
    fitRect(rect);
    Q_EMIT rescale(rect);
}

int TimeEditorView::frameNumber() const
{
    return m_scene ? m_scene->currentFrame() : 0;
}

void TimeEditorView::setCurrentFrame(int frame)
{
    if (m_scene) {
        m_scene->setCurrentFrame(frame);
        m_scene->update();
    }
}

void TimeEditorView::setBackgroundRegion(int first, int last)
{
    if (m_scene) {
        m_scene->setBackgroundRegion(first, last);
        m_scene->update();
    }
}

void TimeEditorView::setBackgroundRegionColor(QColor color)
{
    if (m_scene) {
        m_scene->setBackgroundRegionColor(color);
    }
}

void TimeEditorView::drawBackground(QPainter* painter, const QRectF& /*exposed*/)
{
    GraphicsView::drawBackground(painter, ui::evenBackground(getVisibleRect()));
}

// What is selected

std::vector<QGraphicsItem*> TimeEditorView::selectedContent() const
{
    std::vector<QGraphicsItem*> items;
    if (m_scene) {
        const QList<QGraphicsItem*> selected = m_scene->selectedItems();
        const QGraphicsItem* const tool = m_tool;
        std::copy_if(
            selected.begin(),
            selected.end(),
            std::back_inserter(items),
            [tool](const QGraphicsItem* item) { return item != tool; });
    }
    return items;
}

std::set<TimeEditorKeyframeItem*> TimeEditorView::selectedKeyframes() const
{
    return itemsOf<TimeEditorKeyframeItem>(selectedContent());
}

QRectF TimeEditorView::selectedBounds() const
{
    QRectF bounds;
    for (const QGraphicsItem* const item : selectedContent()) {
        bounds |= item->sceneBoundingRect();
    }
    return bounds;
}

/// In one pass: this is asked for with every key that joins the selection.
TimeEditorView::KeyExtent TimeEditorView::selectedKeyExtent() const
{
    KeyExtent extent;
    for (const QGraphicsItem* const item :
         m_scene ? m_scene->selectedItems() : QList<QGraphicsItem*>()) {
        if (dynamic_cast<const TimeEditorKeyframeItem*>(item) == nullptr) {
            continue;
        }
        const QPointF place = item->scenePos();
        const QRectF before = extent.keys++ > 0 ? extent.places : QRectF(place, place);
        extent.places.setCoords(
            std::min(before.left(), place.x()),
            std::min(before.top(), place.y()),
            std::max(before.right(), place.x()),
            std::max(before.bottom(), place.y()));
    }
    return extent;
}

QRectF TimeEditorView::getTranslateToolRect() const
{
    return selectedKeyExtent().places;
}

void TimeEditorView::clearSelection()
{
    if (m_scene) {
        m_scene->clearSelection();
    }
}

void TimeEditorView::selectionChanged()
{
    if (m_inSelectionChange || !m_scene) {
        return;
    }
    m_inSelectionChange = true;
    const QPointer<TimeEditorView> alive(this);
    if (filterMarquee()) {
        Q_EMIT m_scene->selectionChanged();
    }
    if (!alive) {
        return;
    }
    showTool();
    const auto isSelected = [](const TimeEditorClipItem* clip) { return clip->isSelected(); };
    if (m_scene && std::ranges::none_of(m_scene->clips(), isSelected)) {
        for (TimeEditorClipItem* const clip : m_scene->clips()) {
            clip->clearSelectedClipAreas();
        }
    }
    m_inSelectionChange = false;
}

bool TimeEditorView::filterMarquee()
{
    if (!rubberBandRect().isValid() || m_marqueeMode == None) {
        return false;
    }
    const QSignalBlocker quiet(m_scene); // one signal for all that goes
    const std::vector<QGraphicsItem*> selected = selectedContent();
    const auto keys = itemsOf<TimeEditorKeyframeItem>(selected);
    const auto clips = itemsOf<TimeEditorClipItem>(selected);
    const ui::MarqueeFilter filter =
        ui::marqueeFilter(m_marqueeMode, isHeld(Qt::AltModifier), !keys.empty());
    if (filter.keys) {
        deselect(keys);
    }
    if (filter.curves) {
        deselect(itemsOf<TimeEditorCurveItem>(selected));
    }
    if (filter.clips) {
        deselect(clips);
    }
    if (filter.clipAreas) {
        for (TimeEditorClipItem* const clip : clips) {
            clip->clearSelectedClipAreas();
        }
    }
    if (m_tool) {
        m_tool->setSelected(false);
    }
    return selectedContent().size() != selected.size();
}

void TimeEditorView::subSelect(QRect band, QPointF from, QPointF to)
{
    if (m_scene && band.isValid()) {
        ui::selectClipAreas(m_scene->clips(), from, to, m_trackHeight);
    }
}

std::set<TimeEditorCurveItem*> TimeEditorView::curvesForMenu(QPoint position) const
{
    const auto curveOf = [](QGraphicsItem* item) {
        auto* const key = dynamic_cast<TimeEditorKeyframeItem*>(item);
        return key != nullptr ? key->curve() : dynamic_cast<TimeEditorCurveItem*>(item);
    };
    if (TimeEditorCurveItem* const clicked = curveOf(itemUnder(position))) {
        return {clicked};
    }
    std::set<TimeEditorCurveItem*> curves;
    for (QGraphicsItem* const item : selectedContent()) {
        if (TimeEditorCurveItem* const curve = curveOf(item)) {
            curves.insert(curve);
        }
    }
    return curves;
}

// Scaling

void TimeEditorView::setupKeyScaling(QPoint origin, bool flag)
{
    m_scalingOrigin = origin;
    m_scalingFlag = flag;
    m_scalingKeys.clear();
    m_scalingCurveKeys.clear();
    *m_edit = {};
    std::set<TimeEditorCurveItem*> curves;
    for (TimeEditorKeyframeItem* const key : selectedKeyframes()) {
        m_scalingKeys.emplace_back(ui::frameOf(key->scenePos().x()), key);
        if (key->curve()) {
            curves.insert(key->curve());
        } else {
            m_edit->add(key);
        }
    }
    for (const TimeEditorCurveItem* const curve : curves) {
        for (TimeEditorKeyframeItem* const key : curve->keyframes()) {
            m_scalingCurveKeys.emplace_back(ui::frameOf(key->scenePos().x()), key);
            m_edit->add(key);
        }
    }
}

void TimeEditorView::scaleKeys(QPoint current)
{
    if (m_utils && m_scene) {
        m_scene->update(); // once for all keys
        m_utils->scaleKeys(
            m_scalingOrigin.x(),
            current.x(),
            ui::living(m_scalingKeys),
            ui::living(m_scalingCurveKeys),
            m_scalingFlag);
        Q_EMIT keysMoving();
    }
}

void TimeEditorView::endKeyScaling()
{
    m_scalingKeys.clear();
    m_scalingCurveKeys.clear();
    m_doneRippleEdit = false;
}

double TimeEditorView::moveSelectedKeys(double distance)
{
    const double frames = std::round(distance);
    if (frames == 0.0 || !m_scene) {
        return 0.0;
    }
    const std::set<TimeEditorKeyframeItem*> keys = selectedKeyframes();
    m_scene->update(); // once for all keys
    if (m_edit->isEmpty()) {
        std::for_each(keys.begin(), keys.end(), [this](auto* key) { m_edit->add(key); });
    }
    for (TimeEditorKeyframeItem* const key : keys) {
        key->setPos(key->x() + frames, key->y());
    }
    Q_EMIT keysMoving();
    return frames;
}

void TimeEditorView::restoreEdit()
{
    m_edit->restore();
    *m_edit = {};
    endKeyScaling();
    Q_EMIT keysMoving();
}

void TimeEditorView::finishEdit()
{
    const KeyMoves moves = std::exchange(*m_edit, {}).moves();
    if (!moves.empty()) {
        Q_EMIT keysMoved(moves);
    }
}

// Connections

void TimeEditorView::onConnectionEnter(ConnectionInstance* connection)
{
    if (connection) {
        connection->setDrawStyle(ConnectionStyle::Line);
    }
}

void TimeEditorView::onConnectionMove(ConnectionInstance* connection)
{
    if (!connection) {
        return;
    }
    const QPointer<TimeEditorView> alive(this);
    const QPointer<TimeEditorBaseItem> item =
        itemUnder(viewport()->mapFromGlobal(connection->endPosition()));
    if (item == m_connectionTarget) {
        if (item) {
            item->onConnectionMove(connection);
        }
        return;
    }
    const QPointer<TimeEditorBaseItem> former = std::exchange(m_connectionTarget, item);
    if (former) {
        former->onConnectionLeave(connection);
    }
    if (alive && item && m_connectionTarget == item) {
        item->onConnectionEnter(connection);
    }
}

void TimeEditorView::onConnectionLeave(ConnectionInstance* connection)
{
    if (const auto target = std::exchange(m_connectionTarget, nullptr)) {
        target->onConnectionLeave(connection);
    }
}

void TimeEditorView::onConnectionDrop(ConnectionInstance* connection)
{
    if (!connection) {
        return;
    }
    if (const auto target = std::exchange(m_connectionTarget, nullptr)) {
        target->onConnectionLeave(connection);
        if (target) {
            target->onConnectionDrop(connection);
        }
    }
}
