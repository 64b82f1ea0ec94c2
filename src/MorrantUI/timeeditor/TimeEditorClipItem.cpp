// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/TimeEditorClipItem.h"

#include "MorrantUI/scene/dragreadout.h"
#include "MorrantUI/timeeditor/ClipGesture.h"
#include "MorrantUI/timeeditor/ItemEdit.h"
#include "MorrantUI/timeeditor/clipdrag.h"
#include "MorrantUI/timeeditor/clipselection.h"
#include "MorrantUI/timeeditor/keysnapping.h"
#include <MorrantUI/scene/framemath.h>
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/timeeditor/TimeEditorScene.h>
#include <MorrantUI/timeeditor/TimeEditorView.h>

#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double kAreaTop = 2.0;       ///< scene units, above and below an area
constexpr double kCorner = 3.0;        ///< pixels
constexpr double kGripWidth = 3.0;     ///< pixels, of the bar that marks an end
constexpr double kTextInset = 8.0;     ///< pixels
constexpr double kLeastForText = 28.0; ///< pixels
constexpr double kOffScreen = 1e6;     ///< pixels; farther ends are drawn there
constexpr int kRestingDark = 150;      ///< percent
constexpr int kGripLight = 165;        ///< percent
constexpr int kLightGround = 140;      ///< of 255; above it a text is dark

double heldOnScreen(double x)
{
    return std::clamp(x, -kOffScreen, kOffScreen);
}

} // namespace

TimeEditorClipItem::TimeEditorClipItem(TimeEditorView* view, QGraphicsItem* parent)
    : TimeEditorBaseItem(BareItem())
    , m_view(view)
{
    setFlags(ItemIsSelectable | ItemSendsGeometryChanges);
    setRect(0.0, 0.0, 1.0, m_view ? m_view->trackHeight() : ui::kTrackHeight);
    setColor(ui::colorQt(QStringLiteral("Accent2")));
    setParentItem(parent);
}

TimeEditorClipItem::~TimeEditorClipItem()
{
    if (m_drag) {
        m_drag->restore(); // nobody would tell of what went along
    }
}

VisClip* TimeEditorClipItem::addClipArea(int start, int end)
{
    m_areas.push_back(std::make_shared<VisClip>(start, end));
    refresh();
    return m_areas.back().get();
}

void TimeEditorClipItem::removeClipArea(int index)
{
    if (index < 0 || index >= static_cast<int>(m_areas.size())) {
        return;
    }
    setHover(-1, EndPointHover::None);
    setDragClipIndex(-1, EndPointHover::None);
    m_areas.erase(m_areas.begin() + index);
    refresh();
}

std::vector<VisClip*> TimeEditorClipItem::getClipAreas() const
{
    std::vector<VisClip*> areas;
    for (const auto& area : m_areas) {
        areas.push_back(area.get());
    }
    return areas;
}

void TimeEditorClipItem::refresh()
{
    prepareGeometryChange();
    update();
}

void TimeEditorClipItem::setText(const QString& text)
{
    m_text = text;
    update();
}

void TimeEditorClipItem::selectItemAndClips()
{
    setSelected(true);
    for (const auto& area : m_areas) {
        area->setSelected(true);
    }
    update();
}

void TimeEditorClipItem::clearSelectedClipAreas()
{
    for (const auto& area : m_areas) {
        area->setSelected(false);
    }
    update();
}

void TimeEditorClipItem::setDragClipIndex(int index, EndPointHover part)
{
    m_dragIndex = index;
    m_dragPart = part;
    update();
}

void TimeEditorClipItem::updateEndPointFeedforward(EndPointHover part)
{
    m_hover = part;
    if (m_view) {
        const bool trims = part == EndPointHover::Start || part == EndPointHover::End;
        const bool slips = part == EndPointHover::Body && m_altHeld;
        const Qt::CursorShape shape = trims   ? Qt::SizeHorCursor
                                      : slips ? Qt::SplitHCursor
                                              : Qt::ArrowCursor;
        setCursor(shape);
        m_view->showHoverCursor(shape);
    }
    update();
}

void TimeEditorClipItem::setAltHeld(bool held)
{
    m_altHeld = held;
    if (m_hover == EndPointHover::Body) {
        updateEndPointFeedforward(m_hover);
    }
}

double TimeEditorClipItem::pixelsPerFrame() const
{
    return m_view ? m_view->transform().m11() : 1.0;
}

QRectF TimeEditorClipItem::areaRect(const VisClip& area) const
{
    return {
        static_cast<double>(area.getStart()),
        kAreaTop,
        ui::frameSpan({area.getStart(), area.getEnd()}),
        rect().height() - 2.0 * kAreaTop};
}

int TimeEditorClipItem::areaAt(QPointF position) const
{
    // The last one is drawn above the others.
    for (int i = static_cast<int>(m_areas.size()) - 1; i >= 0; --i) {
        if (areaRect(*m_areas.at(static_cast<std::size_t>(i))).contains(position)) {
            return i;
        }
    }
    return -1;
}

int TimeEditorClipItem::indexOf(const VisClip* area) const
{
    const auto found = std::find_if(
        m_areas.begin(), m_areas.end(), [area](const auto& own) { return own.get() == area; });
    return found == m_areas.end() ? -1 : static_cast<int>(found - m_areas.begin());
}

QColor TimeEditorClipItem::getColor() const
{
    return isHovering() ? getHighlightColor() : getBaseColor();
}

QRectF TimeEditorClipItem::boundingRect() const
{
    QRectF bounds = rect();
    for (const auto& area : m_areas) {
        bounds |= areaRect(*area);
    }
    return bounds;
}

QPainterPath TimeEditorClipItem::shape() const
{
    QPainterPath path;
    for (const auto& area : m_areas) {
        path.addRect(areaRect(*area));
    }
    return path;
}

void TimeEditorClipItem::paint(
    QPainter* painter, const QStyleOptionGraphicsItem* /*option*/, QWidget* /*widget*/)
{
    // Corners, grips and text are told in pixels.
    const QTransform world = painter->worldTransform();
    painter->save();
    painter->setWorldTransform(QTransform());
    for (std::size_t i = 0; i < m_areas.size(); ++i) {
        paintArea(*painter, world, static_cast<int>(i));
    }
    painter->restore();
}

void TimeEditorClipItem::paintArea(QPainter& painter, const QTransform& world, int index)
{
    const VisClip& area = *m_areas.at(static_cast<std::size_t>(index));
    const QRectF mapped = world.mapRect(areaRect(area));
    const QRectF bar(
        QPointF(heldOnScreen(mapped.left()), mapped.top()),
        QPointF(heldOnScreen(mapped.right()), mapped.bottom()));
    if (bar.width() <= 0.0) {
        return;
    }
    const bool selected = area.isSelected();
    const QColor color = getColor();
    painter.setPen(selected ? QPen(ui::colorQt(QStringLiteral("Accent1")), 1.0) : QPen(Qt::NoPen));
    const QColor fill = selected ? color : color.darker(kRestingDark);
    painter.setBrush(fill);
    painter.drawRoundedRect(bar.adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
    const auto paintGrip = [&](EndPointHover end, double left) {
        const bool held = (index == m_dragIndex && end == m_dragPart)
                          || (index == m_hoverIndex && end == m_hover);
        if (held) {
            const QRectF grip(left, bar.top() + 3.0, kGripWidth, bar.height() - 6.0);
            painter.setPen(Qt::NoPen);
            painter.setBrush(color.lighter(kGripLight));
            painter.drawRoundedRect(grip, 1.0, 1.0);
        }
    };
    paintGrip(EndPointHover::Start, bar.left() + 2.0);
    paintGrip(EndPointHover::End, bar.right() - 2.0 - kGripWidth);
    if (!m_text.isEmpty() && bar.width() >= kLeastForText) {
        const QRectF room =
            bar.adjusted(kTextInset, 0.0, -kTextInset, 0.0)
                .intersected(QRectF(kTextInset, bar.top(), kOffScreen, bar.height()));
        const bool light = qGray(fill.rgb()) > kLightGround;
        painter.setPen(ui::colorQt(light ? QStringLiteral("WindowBase") : QStringLiteral("Text")));
        painter.drawText(
            room,
            Qt::AlignLeft | Qt::AlignVCenter,
            painter.fontMetrics().elidedText(
                m_text, Qt::ElideRight, static_cast<int>(room.width())));
    }
}

void TimeEditorClipItem::setHover(int index, EndPointHover part)
{
    if (index != m_hoverIndex || part != m_hover) {
        m_hoverIndex = index;
        updateEndPointFeedforward(part);
    }
}

void TimeEditorClipItem::hoverMoveEvent(QGraphicsSceneHoverEvent* event)
{
    TimeEditorBaseItem::hoverMoveEvent(event);
    const int index = areaAt(event->pos());
    const EndPointHover part = index < 0
                                   ? EndPointHover::None
                                   : ui::clipPart(
                                       ui::spanOf(*m_areas.at(static_cast<std::size_t>(index))),
                                       event->pos().x(),
                                       pixelsPerFrame());
    setHover(index, part);
}

void TimeEditorClipItem::hoverLeaveEvent(QGraphicsSceneHoverEvent* event)
{
    TimeEditorBaseItem::hoverLeaveEvent(event);
    setHover(-1, EndPointHover::None);
}

void TimeEditorClipItem::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    const QPointer<TimeEditorClipItem> alive(this);
    TimeEditorBaseItem::mousePressEvent(event);
    const int index = alive ? areaAt(event->pos()) : -1;
    if (event->button() != Qt::LeftButton || index < 0) {
        return;
    }
    VisClip& area = *m_areas.at(static_cast<std::size_t>(index));
    const bool adds = event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
    const auto* const timeScene = qobject_cast<TimeEditorScene*>(scene());
    if (timeScene && !adds && !area.isSelected()) {
        ui::deselectClipAreas(timeScene->clips(), nullptr, 0); // it does not go with the others
    }
    area.setSelected(!event->modifiers().testFlag(Qt::ControlModifier) || !area.isSelected());
    const EndPointHover part = ui::clipPart(ui::spanOf(area), event->pos().x(), pixelsPerFrame());
    const bool slips =
        part == EndPointHover::Body && (m_altHeld || event->modifiers().testFlag(Qt::AltModifier));
    m_drag = std::make_shared<ui::ClipGesture>(*this, index, part, slips, event->scenePos().x());
    m_snap.reset();
    setDragClipIndex(index, part);
    if (m_view) {
        m_view->setEndPointSnapping(true);
    }
}

double TimeEditorClipItem::snapped(double frames, Qt::KeyboardModifiers modifiers)
{
    m_snap.reset();
    const auto* const timeScene = qobject_cast<TimeEditorScene*>(scene());
    const bool snaps = modifiers.testFlag(Qt::ShiftModifier) || (m_view && m_view->getSnapping());
    if (!timeScene || !snaps || m_drag->slips()) {
        return frames;
    }
    std::vector<int> candidates = {
        timeScene->currentFrame(),
        timeScene->getBackgroundRegion().first,
        timeScene->getBackgroundRegion().second};
    for (const TimeEditorClipItem* const clip : timeScene->clips()) {
        for (const auto& area : clip->m_areas) {
            if (!m_drag->holds(*area)) {
                candidates.push_back(area->getStart());
                candidates.push_back(area->getEnd());
            }
        }
    }
    const auto snap = [&](int edge) {
        m_snap = ui::nearestSnapFrame(edge + frames, candidates);
        return m_snap ? std::optional(ui::frameSpan({edge, *m_snap})) : std::nullopt;
    };
    const ui::ClipSpan& area = m_drag->atPress();
    std::optional<double> moved;
    if (m_drag->part() != EndPointHover::End) {
        moved = snap(area.start);
    }
    if (!moved && m_drag->part() != EndPointHover::Start) {
        moved = snap(area.end);
    }
    return moved.value_or(frames);
}

void TimeEditorClipItem::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    if (const std::shared_ptr<ui::ClipGesture> drag = m_drag) {
        const double frames = event->scenePos().x() - drag->pressX();
        if (drag->begins(frames * pixelsPerFrame())) {
            drag->dragBy(snapped(frames, event->modifiers())); // may delete the clip
        }
    } else {
        TimeEditorBaseItem::mouseMoveEvent(event);
    }
}

std::optional<ui::DragProgress> TimeEditorClipItem::dragProgress() const
{
    if (!hasDragged()) {
        return std::nullopt;
    }
    const ui::ClipSpan now = m_drag->now();
    const ui::ClipSpan& before = m_drag->atPress();
    ui::DragProgress progress{
        ui::frameSpan({before.start, now.start}), static_cast<double>(now.start), {}};
    if (m_drag->slips()) {
        progress = {ui::frameSpan({before.slip, now.slip}), static_cast<double>(now.slip), {}};
    } else if (m_drag->part() == EndPointHover::End) {
        progress = {ui::frameSpan({before.end, now.end}), static_cast<double>(now.end), {}};
    }
    if (m_snap && (*m_snap == now.start || *m_snap == now.end)) {
        progress.guide = *m_snap; // and no neighbour was in the way
    }
    return progress;
}

bool TimeEditorClipItem::hasDragged() const
{
    return m_drag && m_drag->hasBegun();
}

void TimeEditorClipItem::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    const QPointer<TimeEditorClipItem> alive(this);
    if (m_drag && !hasDragged()) {
        ui::steadyClick(*event);
    }
    finishDrag();
    // The base would take a click on one of several for a choice of that one alone.
    if (alive && !event->modifiers().testFlag(Qt::ShiftModifier)) {
        TimeEditorBaseItem::mouseReleaseEvent(event);
    }
}

void TimeEditorClipItem::finishDrag()
{
    const std::shared_ptr<ui::ClipGesture> drag = std::exchange(m_drag, nullptr);
    if (!drag) {
        return;
    }
    setDragClipIndex(-1, EndPointHover::None);
    const QPointer<TimeEditorView> view = m_view;
    const ClipMoves moves = drag->moves();
    for (const ClipMove& move : moves) { // whoever is told may delete any of them
        if (move.clip) {
            Q_EMIT move.clip->clipChanged(move.edit);
        }
    }
    if (view && !moves.empty()) {
        Q_EMIT view->clipsChanged(moves);
    }
}

bool TimeEditorClipItem::cancelDrag()
{
    const std::shared_ptr<ui::ClipGesture> drag = std::exchange(m_drag, nullptr);
    if (!drag) {
        return false;
    }
    setDragClipIndex(-1, EndPointHover::None);
    drag->cancel();
    return true;
}

QVariant TimeEditorClipItem::itemChange(GraphicsItemChange change, const QVariant& value)
{
    if (change == ItemSelectedHasChanged) {
        update();
        if (!isSelected()) {
            clearSelectedClipAreas();
        }
    }
    return TimeEditorBaseItem::itemChange(change, value);
}

bool TimeEditorClipItem::sceneEvent(QEvent* event)
{
    if (event->type() == QEvent::UngrabMouse) {
        const QPointer<TimeEditorClipItem> alive(this);
        finishDrag();
        if (!alive) {
            return true;
        }
    }
    return TimeEditorBaseItem::sceneEvent(event);
}
