// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/GraphBezierHandleItem.h"

#include "MorrantUI/graph/GraphDrag.h"
#include "MorrantUI/graph/graphmoves.h"
#include "MorrantUI/scene/glyphs.h"
#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/graph/GeneralGraphUtils.h>
#include <MorrantUI/graph/GeneralGraphView.h>
#include <MorrantUI/graph/GraphCurveWidget.h>
#include <MorrantUI/graph/GraphPointWidget.h>
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/screens.h>

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double kLeastScale = 0.001; ///< pixels a unit
constexpr double kLineWidth = 2.0;    ///< pixels
constexpr double kStemGap = 12.0;     ///< pixels that the stem keeps from its point
constexpr int kHoverLight = 130;      ///< percent

using ui::Graph::Interpolation;
using ui::Graph::Side;

/// The points of least and greatest x among an item's children.
std::pair<const GraphPointWidget*, const GraphPointWidget*> endPoints(const QGraphicsItem* parent)
{
    if (const auto* const curve = dynamic_cast<const GraphCurveWidget*>(parent)) {
        return {curve->firstPoint(), curve->lastPoint()};
    }
    std::pair<const GraphPointWidget*, const GraphPointWidget*> ends{nullptr, nullptr};
    for (const QGraphicsItem* const child : parent ? parent->childItems() : QList<QGraphicsItem*>())
    {
        if (const auto* const point = dynamic_cast<const GraphPointWidget*>(child)) {
            ends.first = !ends.first || point->x() < ends.first->x() ? point : ends.first;
            ends.second = !ends.second || point->x() >= ends.second->x() ? point : ends.second;
        }
    }
    return ends;
}

} // namespace

GraphBezierHandleItem::GraphBezierHandleItem(
    Side side, GraphPointWidget* point, QGraphicsItem* parent)
    : TimeEditorBaseItem(BareItem())
    , m_side(side)
    , m_parentPoint(point)
{
    setFlags(ItemIsMovable | ItemIsSelectable | ItemStacksBehindParent | ItemSendsGeometryChanges);
    setPen(Qt::NoPen);
    setColor(ui::colorQt(QStringLiteral("Light")));
    updateRect();
    setParentItem(parent);
}

GraphBezierHandleItem::~GraphBezierHandleItem() = default;

GraphPointWidget* GraphBezierHandleItem::getParentPoint() const
{
    return m_parentPoint;
}

GraphBezierHandleItem* GraphBezierHandleItem::opposite() const
{
    if (!m_parentPoint) {
        return nullptr;
    }
    GraphBezierHandleItem* const other =
        m_side == Side::Left ? m_parentPoint->getRightBezier() : m_parentPoint->getLeftBezier();
    return other == this ? nullptr : other;
}

GeneralGraphView* GraphBezierHandleItem::view() const
{
    return m_parentPoint ? m_parentPoint->parentView() : nullptr;
}

// Places

QPointF GraphBezierHandleItem::dataPosition() const
{
    return {m_viewScale * x(), m_viewScale * -y()};
}

void GraphBezierHandleItem::setInitialPosition(QPointF data)
{
    setPos(data.x() / m_viewScale, -(data.y() / m_viewScale));
}

void GraphBezierHandleItem::handleViewScaleChange()
{
    const bool blocked = std::exchange(m_blockUpdates, true);
    const QPointF data = dataPosition();
    m_viewScale = 1.0;
    setInitialPosition(data);
    m_blockUpdates = blocked;
}

void GraphBezierHandleItem::placeSilently(QPointF offset)
{
    const bool blocked = std::exchange(m_blockUpdates, true);
    setPos(offset);
    m_blockUpdates = blocked;
}

void GraphBezierHandleItem::showHandle(bool show)
{
    m_asked = show;
    showAsAsked();
}

void GraphBezierHandleItem::showAsAsked()
{
    const GraphPointWidget* const point = m_parentPoint;
    const bool idle = !point || point->getInterpolation() != Interpolation::Bezier || pos().isNull()
                      || (m_side == Side::Right && point->isHolding());
    if (idle) {
        setVisible(false);
        return;
    }
    const auto [first, last] = endPoints(point->parentItem());
    if (m_side == Side::Right && point == last) {
        setVisible(false);
    } else if (m_side == Side::Right || point != first) {
        setVisible(m_asked);
    }
}

void GraphBezierHandleItem::soloPointCheck()
{
    const GraphCurveWidget* const curve = m_parentPoint ? m_parentPoint->curve() : nullptr;
    bool several = curve && curve->pointCount() >= 2; // the rest of the scene need not be asked
    if (!several && scene()) {
        const QList<QGraphicsItem*> items = scene()->items();
        several = std::count_if(
                      items.begin(),
                      items.end(),
                      [](const QGraphicsItem* item) {
                          return dynamic_cast<const GraphPointWidget*>(item) != nullptr;
                      })
                  >= 2;
    }
    showHandle(several);
}

// Looks

void GraphBezierHandleItem::updateRect()
{
    const double scale = view() ? view()->transform().m11() : 1.0;
    const double side = 1.0 / std::max(scale, kLeastScale);
    setRect(-side / 2.0, -side / 2.0, side, side);
}

void GraphBezierHandleItem::sizeFor(const QTransform& zoom)
{
    const QPointF scale(zoom.m11(), zoom.m22());
    if (scale.x() == 0.0 || scale.y() == 0.0) {
        return;
    }
    if (scale != m_sizedFor) {
        m_sizedFor = scale;
        m_knobPath = QTransform::fromScale(1.0 / scale.x(), 1.0 / scale.y())
                         .map(ui::glyphOutline(ui::GlyphShape::GraphKnob));
    }
    const double length = ui::Graph::lengthOf(pos());
    const double shown = std::max(length - kStemGap / scale.x(), 0.0);
    m_stem = length > 0.0 ? QLineF(QPointF(), -pos() * (shown / length)) : QLineF();
    const QRectF stem = QRectF(m_stem.p1(), m_stem.p2()).normalized();
    setRect(m_knobPath.boundingRect() | stem);
}

QPainterPath GraphBezierHandleItem::shape() const
{
    return m_knobPath.isEmpty() ? TimeEditorBaseItem::shape() : m_knobPath;
}

void GraphBezierHandleItem::paint(
    QPainter* painter, const QStyleOptionGraphicsItem* /*option*/, QWidget* /*widget*/)
{
    sizeFor(painter->worldTransform());
    const QColor own = m_parentPoint ? m_parentPoint->getColor() : getColor();
    const double width = kLineWidth * ui::getMonitorDPI(view());
    const ui::style::PainterState state(*painter);
    QPen pen(ui::colorQt(QStringLiteral("Light")), width);
    pen.setCosmetic(true);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(pen);
    painter->drawLine(QLineF(QPointF(), -pos()));

    ui::Glyph knob;
    knob.shape = ui::GlyphShape::GraphKnob;
    knob.fill = own;
    knob.outline = pen.color();
    knob.penWidth = kLineWidth;
    if (isSelected()) {
        knob.fill = ui::colorQt(QStringLiteral("Accent1"));
        knob.outline = isHovering() ? own.lighter(kHoverLight) : own;
        pen.setColor(own);
        painter->setPen(pen);
    }
    ui::drawGlyph(*painter, QPointF(), knob);
    painter->drawLine(m_stem);
}

// Moves

bool GraphBezierHandleItem::isQuiet() const
{
    return m_blockUpdates || isForceMoving() || !enableUpdates()
           || (m_parentPoint && !m_parentPoint->enableUpdates());
}

QVariant GraphBezierHandleItem::itemChange(GraphicsItemChange change, const QVariant& value)
{
    switch (change) {
    case ItemPositionChange: return acceptedPosition(value.toPointF());
    case ItemPositionHasChanged:
        if (m_parentPoint) {
            m_parentPoint->handlesChanged();
        }
        if (scene() && !isQuiet()) {
            reportChange();
        }
        return value;
    default: break;
    }
    return TimeEditorBaseItem::itemChange(change, value);
}

QPointF GraphBezierHandleItem::acceptedPosition(QPointF wanted)
{
    if (!ui::Graph::isFinite(wanted)) {
        return pos();
    }
    if (!scene() || isQuiet()) {
        return wanted;
    }
    const Qt::KeyboardModifiers held = GeneralGraphView::heldModifiers(view());
    const bool shift = held.testFlag(Qt::ShiftModifier);
    const bool alt = held.testFlag(Qt::AltModifier);
    m_horizontalOnly = isSelected() && shift && !alt;
    m_slideAlongDirection = shift && alt;
    GraphBezierHandleItem* const other = opposite();
    const bool dragged = view() && view()->m_drag; // and what was found at the press counts
    const ui::Graph::HandleMove move = ui::Graph::handleMove(
        {.proposed = wanted,
         .current = pos(),
         .opposite = other ? other->pos() : QPointF(),
         .side = m_side,
         .locked = m_parentPoint && m_parentPoint->hasLockedBeziers(),
         .flat = m_horizontalOnly,
         .slide = m_slideAlongDirection,
         .direction = dragged ? m_direction : QPointF(),
         .ratio = dragged ? m_ratio : 1.0});
    if (!ui::Graph::isFinite(move.position)) {
        return pos();
    }
    if (move.opposite && other && *move.opposite != other->pos()) {
        other->placeSilently(*move.opposite);
        if (move.position == pos()) {
            reportChange(); // nothing else would tell of it
        }
    }
    return move.position;
}

void GraphBezierHandleItem::reportChange()
{
    GeneralGraphView* const owner = view();
    if (owner && owner->isBatching()) {
        if (!std::exchange(m_changeReported, true)) {
            owner->queueChange(this);
        }
        return;
    }
    m_changeReported = false;
    Q_EMIT bezierDataChange();
}

void GraphBezierHandleItem::rememberPress(QPointF scenePosition)
{
    m_pressPosition = scenePosition;
    m_direction = pos();
    const GraphBezierHandleItem* const other = opposite();
    const double own = ui::Graph::lengthOf(pos());
    const double ratio = own > 0.0 && other ? ui::Graph::lengthOf(other->pos()) / own : 0.0;
    m_ratio = ratio > 0.0 && std::isfinite(ratio) ? ratio : 1.0;
}

void GraphBezierHandleItem::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    rememberPress(event->scenePos());
    GeneralGraphView* const owner = view();
    const bool retracting = owner && owner->isZHeld();
    if (retracting) {
        retract();
    }
    if (event->buttons() == Qt::LeftButton && event->modifiers() == Qt::AltModifier && owner) {
        toggleLock();
    }
    TimeEditorBaseItem::mousePressEvent(event);
    if (retracting) {
        m_parentPoint->setSelected(true); // which the base has just changed
    } else if (owner && event->isAccepted() && event->button() == Qt::LeftButton) {
        owner->startDrag(this, event->scenePos());
    }
}

/// As a point's.
void GraphBezierHandleItem::mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event)
{
    mousePressEvent(event);
}

void GraphBezierHandleItem::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    m_horizontalOnly = event->modifiers().testFlag(Qt::ShiftModifier);
    if (GeneralGraphView* const owner = view()) {
        owner->dragTo(event->scenePos());
    } else {
        TimeEditorBaseItem::mouseMoveEvent(event);
    }
}

/// Takes the handle away, and with the last one the curvature.
void GraphBezierHandleItem::retract()
{
    view()->beginEdit(true);
    m_parentPoint->setLockedBeziers(false, false);
    placeSilently(QPointF());
    setVisible(false);
    m_parentPoint->setSelected(true);
    const GraphBezierHandleItem* const other = opposite();
    if (!other || !other->isVisible()) {
        m_parentPoint->setInterpolation(Interpolation::Linear, true);
    }
    reportChange();
}

void GraphBezierHandleItem::toggleLock()
{
    view()->beginEdit(true);
    m_parentPoint->setLockedBeziers(!m_parentPoint->hasLockedBeziers(), false);
    GraphBezierHandleItem* const other = opposite();
    if (m_parentPoint->hasLockedBeziers() && other) {
        other->placeSilently(-pos());
    }
    reportChange();
}
