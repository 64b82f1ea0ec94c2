#include "MorrantUI/timeeditor/TimeEditorClipItem.h"

#include "MorrantUI/scene/framemath.h"
#include "MorrantUI/timeeditor/clipdrag.h"
#include "MorrantUI/timeeditor/keysnapping.h"
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

double heldOnScreen(double x)
{
    return std::clamp(x, -kOffScreen, kOffScreen);
}

} // namespace

/// From the press on an area to whatever ends it.
struct TimeEditorClipItem::Drag
{
    int index = 0;
    EndPointHover part = EndPointHover::None;
    bool slips = false;
    double pressX = 0.0; ///< scene
    ui::ClipSpan atPress;
    ui::ClipLimits limits;
};

TimeEditorClipItem::TimeEditorClipItem(TimeEditorView* view, QGraphicsItem* parent)
    : TimeEditorBaseItem(BareItem())
    , m_view(view)
{
    setFlags(ItemIsSelectable | ItemSendsGeometryChanges);
    setRect(0.0, 0.0, 1.0, m_view ? m_view->trackHeight() : ui::kTrackHeight);
    setColor(ui::colorQt(QStringLiteral("Accent2")));
    setParentItem(parent);
}

TimeEditorClipItem::~TimeEditorClipItem() = default;

VisClip* TimeEditorClipItem::addClipArea(int start, int end)
{
    m_areas.push_back(std::make_unique<VisClip>(start, end));
    refresh();
    return m_areas.back().get();
}

void TimeEditorClipItem::removeClipArea(int index)
{
    if (index < 0 || index >= static_cast<int>(m_areas.size())) {
        return;
    }
    m_drag.reset();
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
        m_view->showHoverCursor(
            trims   ? Qt::SizeHorCursor
            : slips ? Qt::SplitHCursor
                    : Qt::ArrowCursor);
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

std::vector<ui::ClipSpan> TimeEditorClipItem::spans() const
{
    std::vector<ui::ClipSpan> spans;
    for (const auto& area : m_areas) {
        spans.push_back({area->getStart(), area->getEnd(), area->slip()});
    }
    return spans;
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
    painter.setBrush(selected ? color : color.darker(kRestingDark));
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
        painter.setPen(ui::colorQt(QStringLiteral("Text")));
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
    const EndPointHover part =
        index < 0
            ? EndPointHover::None
            : ui::clipPart(
                spans().at(static_cast<std::size_t>(index)), event->pos().x(), pixelsPerFrame());
    setHover(index, part);
}

void TimeEditorClipItem::hoverLeaveEvent(QGraphicsSceneHoverEvent* event)
{
    TimeEditorBaseItem::hoverLeaveEvent(event);
    setHover(-1, EndPointHover::None);
}

void TimeEditorClipItem::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    TimeEditorBaseItem::mousePressEvent(event);
    const int index = areaAt(event->pos());
    if (event->button() != Qt::LeftButton || index < 0) {
        return;
    }
    const std::vector<ui::ClipSpan> areas = spans();
    const auto at = static_cast<std::size_t>(index);
    VisClip& area = *m_areas.at(at);
    area.setSelected(!event->modifiers().testFlag(Qt::ControlModifier) || !area.isSelected());
    const EndPointHover part = ui::clipPart(areas.at(at), event->pos().x(), pixelsPerFrame());
    const bool slips = m_altHeld || event->modifiers().testFlag(Qt::AltModifier);
    m_drag = std::make_unique<Drag>(
        Drag{index, part, slips, event->scenePos().x(), areas.at(at), ui::clipLimits(areas, at)});
    setDragClipIndex(index, part);
    if (m_view) {
        m_view->setEndPointSnapping(true);
    }
}

double TimeEditorClipItem::snapped(double frames) const
{
    const auto* const timeScene = qobject_cast<TimeEditorScene*>(scene());
    if (!timeScene || !m_view || !m_view->getSnapping() || m_drag->slips) {
        return frames;
    }
    std::vector<int> candidates = {
        timeScene->currentFrame(),
        timeScene->getBackgroundRegion().first,
        timeScene->getBackgroundRegion().second};
    for (const TimeEditorClipItem* const clip : timeScene->clips()) {
        for (std::size_t i = 0; i < clip->m_areas.size(); ++i) {
            if (clip != this || static_cast<int>(i) != m_drag->index) {
                candidates.push_back(clip->m_areas.at(i)->getStart());
                candidates.push_back(clip->m_areas.at(i)->getEnd());
            }
        }
    }
    const int edge =
        m_drag->part == EndPointHover::End ? m_drag->atPress.end : m_drag->atPress.start;
    const std::optional<int> frame = ui::nearestSnapFrame(edge + frames, candidates);
    return frame ? ui::frameSpan({edge, *frame}) : frames;
}

void TimeEditorClipItem::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    if (!m_drag) {
        TimeEditorBaseItem::mouseMoveEvent(event);
        return;
    }
    const double frames = snapped(event->scenePos().x() - m_drag->pressX);
    apply(
        m_drag->index,
        ui::draggedClip(m_drag->atPress, m_drag->part, m_drag->slips, frames, m_drag->limits));
}

void TimeEditorClipItem::apply(int index, const ui::ClipSpan& span)
{
    const auto at = static_cast<std::size_t>(index);
    if (at >= m_areas.size() || spans().at(at) == span) {
        return;
    }
    m_areas.at(at)->setRange(span.start, span.end);
    m_areas.at(at)->setSlip(span.slip);
    refresh();
    Q_EMIT clipChanging(index);
}

void TimeEditorClipItem::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    const QPointer<TimeEditorClipItem> alive(this);
    finishDrag();
    // The base would take a click on one of several for a choice of that one alone.
    if (alive && !event->modifiers().testFlag(Qt::ShiftModifier)) {
        TimeEditorBaseItem::mouseReleaseEvent(event);
    }
}

void TimeEditorClipItem::finishDrag()
{
    const std::unique_ptr<Drag> drag = std::move(m_drag);
    if (!drag) {
        return;
    }
    setDragClipIndex(-1, EndPointHover::None);
    const ui::ClipSpan now = spans().at(static_cast<std::size_t>(drag->index));
    const ui::ClipSpan& before = drag->atPress;
    if (now != before) {
        Q_EMIT clipChanged(
            {drag->index, before.start, now.start, before.end, now.end, before.slip, now.slip});
    }
}

bool TimeEditorClipItem::cancelDrag()
{
    const std::unique_ptr<Drag> drag = std::move(m_drag);
    if (!drag) {
        return false;
    }
    setDragClipIndex(-1, EndPointHover::None);
    apply(drag->index, drag->atPress);
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
