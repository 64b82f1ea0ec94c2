// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/TimeEditorScene.h"

#include "MorrantUI/scene/viewfit.h"
#include "MorrantUI/timeeditor/RowHover.h"
#include "MorrantUI/timeeditor/SelectionTold.h"
#include "MorrantUI/timeeditor/beatgrid.h"
#include "MorrantUI/timeeditor/keywalk.h"
#include "MorrantUI/timeeditor/rowpass.h"
#include <MorrantUI/scene/framemath.h>
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/timeeditor/TimeEditorBaseItem.h>
#include <MorrantUI/timeeditor/TimeEditorClipItem.h>
#include <MorrantUI/timeeditor/TimeEditorCurveItem.h>
#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>
#include <MorrantUI/timeeditor/TimeEditorLayoutContainer.h>
#include <MorrantUI/timeeditor/TimeEditorView.h>
#include <MorrantUI/timeeditor/TranslateScaleTool.h>
#include <MorrantUI/timeline/TimeHandle.h>

#include <QGraphicsItem>
#include <QGraphicsSceneMouseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace {

constexpr double kZebraWidth = 75.0; ///< frames; from this width on there are no stripes
constexpr double kZebraFade = 0.2;   ///< percent of brightness for each pixel a frame

/// Everything behind the rows reaches past the bottom of what is painted (deliberate).
double backgroundHeight(const QRectF& exposed)
{
    return exposed.top() + exposed.height();
}

QPen gridPen(const QString& color, Qt::PenStyle style)
{
    QPen pen(ui::colorQt(color), 1.0, style, Qt::SquareCap, Qt::BevelJoin);
    pen.setCosmetic(true);
    return pen;
}

/// Removing an item with this flag searches all that have it from the oldest on. Taken off in that
/// order it is found at once.
void forgetScenePositions(QGraphicsItem& item)
{
    for (QGraphicsItem* const child : item.childItems()) {
        forgetScenePositions(*child);
        child->setFlag(QGraphicsItem::ItemSendsScenePositionChanges, false);
    }
}

/// Deletes an item after its children, those in front first.
void deleteFromFront(QGraphicsItem* item)
{
    const QList<QGraphicsItem*> children = item->childItems();
    for (auto child = children.crbegin(); child != children.crend(); ++child) {
        deleteFromFront(*child);
    }
    delete item;
}

} // namespace

TimeEditorScene::TimeEditorScene(TimeEditorView* view, const QRect& rect, bool useTimeHandle)
    : QGraphicsScene(QRectF(rect))
    , m_view(view)
    , m_useTimeHandle(useTimeHandle)
    , m_hover(std::make_unique<ui::RowHover>())
{
    // Rows find their keys by order, and every key changes with every step of the zoom: an index
    // would cost more than it saves.
    setItemIndexMethod(NoIndex);
    makeLayoutContainer();
    if (m_useTimeHandle) {
        m_timeHandle = new TimeHandle(this, nullptr);
        addItem(m_timeHandle);
    }
}

TimeEditorScene::~TimeEditorScene()
{
    // While the scene is whole: items ask it where they are.
    blockSignals(true);
    clearScene();
    clear(); // what had survived
}

TimeEditorView* TimeEditorScene::view() const
{
    return m_view;
}

TimeEditorLayoutContainer* TimeEditorScene::layoutContainer() const
{
    return m_layoutContainer;
}

void TimeEditorScene::makeLayoutContainer()
{
    m_layoutContainer = new TimeEditorLayoutContainer;
    addItem(m_layoutContainer);
}

void TimeEditorScene::addLayoutItem(TimeEditorBaseItem* item)
{
    if (!m_layoutContainer) {
        makeLayoutContainer(); // a row that dies in clearScene() adds another
    }
    m_layoutContainer->addRow(item);
}

bool TimeEditorScene::survivesClearing(const QGraphicsItem* item) const
{
    return item == m_timeHandle || dynamic_cast<const TranslateScaleTool*>(item) != nullptr;
}

void TimeEditorScene::clearScene()
{
    update(); // once for all
    clearSelection();
    for (QGraphicsItem* const item : topLevelItems()) {
        forgetScenePositions(*item);
        deleteFromFront(item);
    }
    if (!m_layoutContainer) {
        makeLayoutContainer();
    }
}

QList<QGraphicsItem*> TimeEditorScene::topLevelItems() const
{
    const auto goes = [this](const QGraphicsItem* item) {
        return item->parentItem() == nullptr && !survivesClearing(item);
    };
    QList<QGraphicsItem*> found;
    constexpr double kFar = 1e12;
    const QRectF everywhere(-kFar, -kFar, 2.0 * kFar, 2.0 * kFar);
    const auto inOrder = items(everywhere, Qt::IntersectsItemBoundingRect, Qt::DescendingOrder);
    std::copy_if(inOrder.begin(), inOrder.end(), std::back_inserter(found), goes);
    for (QGraphicsItem* const item : items()) { // hidden ones, and those that are nowhere
        if (goes(item) && !found.contains(item)) {
            found << item;
        }
    }
    return found;
}

void TimeEditorScene::setCurrentFrame(int frame)
{
    m_currentFrame = frame;
    if (m_timeHandle) {
        m_timeHandle->setPos(frame, m_timeHandle->y());
    }
}

void TimeEditorScene::commitFrameChange()
{
    if (m_timeHandle) {
        m_currentFrame = ui::frameOf(m_timeHandle->x());
        update();
    }
    if (m_view) {
        m_view->frameChangeCommitted();
    }
}

void TimeEditorScene::setBackgroundRegion(int first, int last)
{
    m_region = {first, last};
}

void TimeEditorScene::setBackgroundRegionColor(QColor color)
{
    m_regionColor = color;
}

template <typename Value>
void TimeEditorScene::change(Value& stored, Value value)
{
    stored = value;
    update();
}

void TimeEditorScene::setEnableBeatMarkers(bool enable)
{
    change(m_beatMarkers, enable);
}

void TimeEditorScene::setBPM(float bpm)
{
    change(m_bpm, bpm);
}

void TimeEditorScene::setFps(float framesPerSecond)
{
    change(m_fps, ui::meantRate(framesPerSecond));
}

void TimeEditorScene::setBeatBars(int beatsPerBar)
{
    change(m_beatBars, beatsPerBar);
}

void TimeEditorScene::setBeatOffset(float frame)
{
    change(m_beatOffset, frame);
}

void TimeEditorScene::enlist(TimeEditorBaseItem* item)
{
    if (auto* const curve = dynamic_cast<TimeEditorCurveItem*>(item)) {
        m_curves.insert(curve);
    } else if (auto* const clip = dynamic_cast<TimeEditorClipItem*>(item)) {
        m_clips.insert(clip);
    } else {
        m_others.insert(item);
    }
}

void TimeEditorScene::strike(TimeEditorBaseItem* item)
{
    // By address alone: the item may be in its destructor.
    const auto isIt = [item](TimeEditorBaseItem* other) { return other == item; };
    std::erase_if(m_curves, isIt);
    std::erase_if(m_clips, isIt);
    m_others.erase(item);
}

std::vector<TimeEditorBaseItem*> TimeEditorScene::keyRows() const
{
    std::vector<TimeEditorBaseItem*> rows(m_curves.begin(), m_curves.end());
    const auto hasKeys = [](const TimeEditorBaseItem* row) { return !ui::keysIn(*row).empty(); };
    std::copy_if(m_clips.begin(), m_clips.end(), std::back_inserter(rows), hasKeys);
    std::copy_if(m_others.begin(), m_others.end(), std::back_inserter(rows), hasKeys);
    return rows;
}

void TimeEditorScene::takeOut(TimeEditorBaseItem& dying)
{
    const QList<QGraphicsItem*> children = dying.childItems();
    const bool changed =
        dying.isSelected() || std::any_of(children.begin(), children.end(), [](const auto* child) {
            return child->isSelected();
        });
    const bool told = signalsBlocked();
    {
        const QSignalBlocker quiet(this);
        removeItem(&dying);
    }
    if (changed && !told && !std::exchange(m_selectionUntold, true)) {
        QMetaObject::invokeMethod(
            this,
            [this] {
                m_selectionUntold = false;
                Q_EMIT selectionChanged();
            },
            Qt::QueuedConnection);
    }
}

QRectF TimeEditorScene::pixelAt(QPointF position) const
{
    const double scale = m_view ? m_view->transform().m11() : 1.0;
    return {position, QSizeF(1.0 / scale, 1.0)};
}

TimeEditorKeyframeItem* TimeEditorScene::keyUnder(const QRectF& place) const
{
    if (!m_layoutContainer) {
        return nullptr;
    }
    const TimeEditorLayoutContainer::Under under = m_layoutContainer->under(place);
    return under.key && !isCovered(place, !under.others) ? under.key : nullptr;
}

/// Whether anything is in front of the rows' own at a place.
bool TimeEditorScene::isCovered(const QRectF& place, bool hidesStack) const
{
    const ui::KeyMask mask(hidesStack);
    const QList<QGraphicsItem*> others = items(place, Qt::IntersectsItemShape);
    if (others.isEmpty() || others.first() == m_layoutContainer
        || m_layoutContainer->isAncestorOf(others.first()))
    {
        return false;
    }
    // Of equals the stack, which is older, is behind.
    return !hidesStack || others.first()->topLevelItem()->zValue() >= m_layoutContainer->zValue();
}

TimeEditorBaseItem* TimeEditorScene::itemUnder(const QRectF& place) const
{
    if (TimeEditorKeyframeItem* const key = keyUnder(place)) {
        return key;
    }
    const QList<QGraphicsItem*> found = items(place, Qt::IntersectsItemShape);
    return found.isEmpty() ? nullptr : dynamic_cast<TimeEditorBaseItem*>(found.first());
}

void TimeEditorScene::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    const ui::SelectionTold told(*this);
    const QPointer<TimeEditorScene> alive(this);
    const bool grabbed = mouseGrabberItem() != nullptr;
    TimeEditorKeyframeItem* const key = grabbed ? nullptr : keyUnder(pixelAt(event->scenePos()));
    if (!key || !key->isEnabled() || !(key->acceptedMouseButtons() & event->button())) {
        QGraphicsScene::mousePressEvent(event);
        if (alive && !grabbed) {
            m_qtHovers = true; // it looks who is below the pointer
            m_pressGrabber = mouseGrabberItem();
        }
        return;
    }
    m_pressGrabber = key;
    m_pressedKey = key;
    key->grabMouse();
    const QPointF position = key->mapFromScene(event->scenePos());
    event->setPos(position);
    event->setLastPos(key->mapFromScene(event->lastScenePos()));
    event->setButtonDownPos(event->button(), position);
    event->accept();
    sendEvent(key, event);
    if (alive && !event->isAccepted() && m_pressedKey && mouseGrabberItem() == m_pressedKey) {
        m_pressedKey->ungrabMouse();
    }
}

void TimeEditorScene::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    const QPointer<TimeEditorScene> alive(this);
    const bool released = event->buttons() == Qt::NoButton;
    const auto isLost = [this] {
        return mouseGrabberItem() && mouseGrabberItem() == m_pressGrabber;
    };
    if (released && isLost() && m_view) {
        m_view->finishDrags();
    }
    if (released && alive && isLost()) {
        mouseGrabberItem()->ungrabMouse();
    }
    if (!alive) {
        return;
    }
    if (released && !mouseGrabberItem()) {
        hover(*event);
    } else {
        QGraphicsScene::mouseMoveEvent(event);
    }
}

void TimeEditorScene::hover(QGraphicsSceneMouseEvent& event)
{
    const QPointer<TimeEditorScene> alive(this);
    const QRectF place = pixelAt(event.scenePos());
    const TimeEditorLayoutContainer::Under under =
        m_layoutContainer ? m_layoutContainer->under(place) : TimeEditorLayoutContainer::Under();
    TimeEditorBaseItem* front = under.key;
    if (!front) {
        front = under.row;
    }
    if (front && isCovered(place, !under.others)) {
        front = nullptr;
    }
    if (front && std::exchange(m_qtHovers, false)) {
        const QPointer<TimeEditorBaseItem> kept(front);
        QGraphicsSceneEvent left(QEvent::GraphicsSceneLeave);
        left.setWidget(event.widget());
        QGraphicsScene::event(&left);
        if (!alive) {
            return;
        }
        front = kept;
    }
    m_hover->moveTo(front, event);
    if (alive && !front) {
        const ui::KeyMask mask(!under.others);
        QGraphicsScene::mouseMoveEvent(&event);
        if (alive) {
            m_qtHovers = event.isAccepted();
        }
    }
}

const TimeEditorBaseItem* TimeEditorScene::hoveredCursorOwner() const
{
    return m_hover->cursorOwner();
}

bool TimeEditorScene::event(QEvent* event)
{
    if (event->type() == QEvent::GraphicsSceneLeave) {
        const QPointer<TimeEditorScene> alive(this);
        m_hover->leave();
        if (!alive) {
            return true;
        }
    }
    return QGraphicsScene::event(event);
}

void TimeEditorScene::keyPressEvent(QKeyEvent* event)
{
    if (focusItem() || !m_view || !m_view->walkKeys(*event)) {
        QGraphicsScene::keyPressEvent(event);
    } else {
        event->accept();
    }
}

void TimeEditorScene::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    const ui::SelectionTold told(*this);
    const QPointer<TimeEditorScene> alive(this);
    const QPointer<TimeEditorKeyframeItem> key = m_pressedKey;
    if (!key || mouseGrabberItem() != key || event->buttons() != Qt::NoButton) {
        QGraphicsScene::mouseReleaseEvent(event);
        if (alive && event->buttons() == Qt::NoButton) {
            m_qtHovers = true; // whatever it has found below the pointer
            hoverAgain(*event);
        }
        return;
    }
    const QPointF position = key->mapFromScene(event->scenePos());
    event->setPos(position);
    event->setLastPos(key->mapFromScene(event->lastScenePos()));
    event->setButtonDownPos(
        event->button(), key->mapFromScene(event->buttonDownScenePos(event->button())));
    event->accept();
    sendEvent(key, event);
    if (alive && key && mouseGrabberItem() == key) {
        key->ungrabMouse();
    }
    if (!alive) {
        return;
    }
    m_pressedKey = nullptr;
    hoverAgain(*event);
}

/// Who is below the pointer may have changed while the mouse was somebody's.
void TimeEditorScene::hoverAgain(const QGraphicsSceneMouseEvent& event)
{
    QGraphicsSceneMouseEvent moved(QEvent::GraphicsSceneMouseMove);
    moved.setWidget(event.widget());
    moved.setScenePos(event.scenePos());
    moved.setLastScenePos(event.scenePos());
    moved.setScreenPos(event.screenPos());
    moved.setLastScreenPos(event.screenPos());
    moved.setModifiers(event.modifiers());
    mouseMoveEvent(&moved);
}

void TimeEditorScene::drawBackground(QPainter* painter, const QRectF& exposed)
{
    painter->setPen(Qt::NoPen);
    painter->fillRect(exposed, ui::colorQt(QStringLiteral("WindowBase")));
    if (m_drawRegion) {
        paintRegion(*painter, exposed);
        paintZebra(*painter, exposed);
        paintBeatGrid(*painter, exposed);
    }
}

void TimeEditorScene::paintRegion(QPainter& painter, const QRectF& exposed) const
{
    // No farther than what is painted: a painter counts in 32 bits of pixels.
    const double left = std::max<double>(m_region.first, exposed.left());
    const double right = std::min<double>(m_region.second, exposed.right());
    if (left < right) {
        painter.fillRect(
            QRectF(left, exposed.top(), right - left, backgroundHeight(exposed)), m_regionColor);
    }
}

/// Frames in sight of what is painted, which the view has widened to begin with an even one:
/// stripes must not come and go with the scrolling.
double TimeEditorScene::framesInSight(const QRectF& exposed) const
{
    const QRectF seen = m_view ? m_view->getVisibleRect() : exposed;
    return exposed == ui::evenBackground(seen) ? seen.width() : exposed.width();
}

void TimeEditorScene::paintZebra(QPainter& painter, const QRectF& exposed) const
{
    if (!(framesInSight(exposed) < kZebraWidth)) {
        return;
    }
    const double brightness = 100.0 - kZebraFade * painter.worldTransform().m11();
    const QColor inside = ui::changeValue(m_regionColor, brightness);
    const QColor outside = ui::changeValue(ui::colorQt(QStringLiteral("WindowBase")), brightness);
    const double left = std::floor(exposed.left());
    const double regionEnd = m_region.first + ui::frameSpan(m_region);
    for (int i = 0; i < exposed.width(); i += 2) {
        const double x = left + i;
        const bool isInside = x >= m_region.first && x < regionEnd;
        painter.fillRect(
            QRectF(x, exposed.top(), 1.0, backgroundHeight(exposed)), isInside ? inside : outside);
    }
}

void TimeEditorScene::paintBeatGrid(QPainter& painter, const QRectF& exposed)
{
    if (!m_beatMarkers || !m_view) {
        return;
    }
    const ui::BeatGrid grid{m_fps, m_bpm, m_beatBars, m_beatOffset};
    const double scale = painter.worldTransform().m11();
    ui::beatGridLines(grid, m_view->getFrameRange(), exposed, scale, m_beatLines, m_barLines);
    painter.setPen(gridPen(QStringLiteral("Grey"), Qt::DashLine));
    painter.drawLines(m_beatLines.data(), static_cast<int>(m_beatLines.size()));
    painter.setPen(gridPen(QStringLiteral("Blue"), Qt::DashLine));
    painter.drawLines(m_barLines.data(), static_cast<int>(m_barLines.size()));
}

void TimeEditorScene::drawForeground(QPainter* painter, const QRectF& exposed)
{
    painter->setPen(gridPen(QStringLiteral("Accent5"), Qt::SolidLine));
    painter->drawLine(QLineF(m_currentFrame, exposed.top(), m_currentFrame, exposed.bottom()));
}
