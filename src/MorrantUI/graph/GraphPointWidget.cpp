// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/GraphPointWidget.h"

#include "MorrantUI/graph/graphmoves.h"
#include "MorrantUI/scene/glyphs.h"
#include <MorrantUI/graph/GeneralGraphUtils.h>
#include <MorrantUI/graph/GeneralGraphView.h>
#include <MorrantUI/graph/GraphBezierHandleItem.h>
#include <MorrantUI/graph/GraphCurveWidget.h>
#include <MorrantUI/theme/colors.h>

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsWidget>
#include <QPainter>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

constexpr double kLeastScale = 0.001;    ///< pixels a unit
constexpr double kSelectedOutline = 2.5; ///< pixels

using ui::Graph::Interpolation;
using ui::Graph::Side;

} // namespace

GraphPointWidget::GraphPointWidget(GeneralGraphView* view, QGraphicsWidget* parent)
    : TimeEditorBaseItem(BareItem())
    , m_view(view)
{
    setFlags(ItemIsMovable | ItemIsSelectable | ItemStacksBehindParent | ItemSendsGeometryChanges);
    setPen(Qt::NoPen);
    setColor(ui::colorQt(QStringLiteral("Light")));
    updateRect();
    setParentItem(parent);
}

GraphPointWidget::~GraphPointWidget() = default;

GeneralGraphView* GraphPointWidget::parentView() const
{
    return m_view;
}

// Handles

const std::array<GraphBezierHandleItem*, 2>& GraphPointWidget::handles()
{
    if (m_handlesStale) {
        m_handlesStale = false;
        m_handles = {};
        const QList<QGraphicsItem*> children = childItems();
        if (children.size() == 2) {
            auto* const first = dynamic_cast<GraphBezierHandleItem*>(children.at(0));
            auto* const second = dynamic_cast<GraphBezierHandleItem*>(children.at(1));
            if (first && second) {
                m_handles = {
                    first->side() == Side::Left ? first : second,
                    first->side() == Side::Right ? first : second};
            }
        }
    }
    return m_handles;
}

GraphBezierHandleItem* GraphPointWidget::getLeftBezier()
{
    return handles().at(0);
}

GraphBezierHandleItem* GraphPointWidget::getRightBezier()
{
    return handles().at(1);
}

void GraphPointWidget::setLockedBeziers(bool locked, bool silent)
{
    m_lockedBeziers = locked;
    GraphBezierHandleItem* const left = getLeftBezier();
    GraphBezierHandleItem* const right = getRightBezier();
    if (!locked || silent || !left || !right || (left->pos().isNull() && right->pos().isNull())) {
        return;
    }
    if (left->pos().isNull()) {
        left->placeSilently(-right->pos());
    } else if (right->pos().isNull()) {
        right->placeSilently(-left->pos());
    }
    left->showHandle(true);
    right->showHandle(true);
}

void GraphPointWidget::setInterpolation(Interpolation interpolation, bool silent)
{
    m_interpolation = interpolation;
    GraphBezierHandleItem* const left = getLeftBezier();
    GraphBezierHandleItem* const right = getRightBezier();
    if (left && right) {
        const bool curved = interpolation == Interpolation::Bezier;
        if (curved && !silent) {
            placeHandles();
        }
        left->showHandle(curved);
        right->showHandle(curved);
    }
    handlesChanged();
    if (!silent && enableUpdates()) {
        reportNotice();
    }
}

/// Gives handles that lie on the point a place of their own.
void GraphPointWidget::placeHandles()
{
    for (GraphBezierHandleItem* const handle : {getLeftBezier(), getRightBezier()}) {
        if (handle->pos().isNull() && m_view) {
            handle->placeSilently(m_view->getDefaultBezierPosition(handle->side()));
            setLockedBeziers(true, false);
        }
    }
}

void GraphPointWidget::setHolding(bool holding)
{
    m_holding = holding;
    refreshHandles();
    handlesChanged();
}

void GraphPointWidget::handlesChanged()
{
    if (m_curve) {
        m_curve->pointReshaped(this);
    }
}

void GraphPointWidget::refreshHandles()
{
    for (GraphBezierHandleItem* const handle : handles()) {
        if (handle) {
            handle->showAsAsked();
        }
    }
}

// Looks

QColor GraphPointWidget::getColor() const
{
    return isHovering() ? getHighlightColor() : getBaseColor();
}

void GraphPointWidget::updateRect()
{
    const double scale = m_view ? m_view->transform().m11() : 1.0;
    const double side = 1.0 / std::max(scale, kLeastScale);
    setRect(-side / 2.0, -side / 2.0, side, side);
}

void GraphPointWidget::sizeFor(const QTransform& zoom)
{
    const QPointF scale(zoom.m11(), zoom.m22());
    if (scale != m_sizedFor && scale.x() != 0.0 && scale.y() != 0.0) {
        m_sizedFor = scale;
        m_path = QTransform::fromScale(1.0 / scale.x(), 1.0 / scale.y())
                     .map(ui::glyphOutline(ui::GlyphShape::GraphDiamond));
    }
    setRect(m_path.boundingRect()); // Qt passes over one that is the same
}

void GraphPointWidget::paint(
    QPainter* painter, const QStyleOptionGraphicsItem* /*option*/, QWidget* /*widget*/)
{
    sizeFor(painter->worldTransform());
    ui::Glyph glyph;
    glyph.shape = ui::GlyphShape::GraphDiamond;
    glyph.fill = getColor();
    if (isSelected()) {
        glyph.outline = glyph.fill;
        glyph.penWidth = kSelectedOutline;
        glyph.fill = ui::colorQt(QStringLiteral("Accent1"));
    }
    ui::drawGlyph(*painter, QPointF(), glyph);
}

bool GraphPointWidget::collidesWithPath(const QPainterPath& path, Qt::ItemSelectionMode mode) const
{
    const QRectF reached = path.controlPointRect();
    const bool contains = mode == Qt::ContainsItemShape || mode == Qt::ContainsItemBoundingRect;
    return contains ? reached.contains(rect()) : reached.intersects(rect());
}

// Moves

QVariant GraphPointWidget::itemChange(GraphicsItemChange change, const QVariant& value)
{
    switch (change) {
    case ItemPositionChange: return acceptedPosition(value.toPointF());
    case ItemPositionHasChanged:
        if (m_curve) {
            m_curve->pointMoved(this);
        }
        if (scene() && enableUpdates()) {
            reportChange();
        }
        return value;
    case ItemSelectedChange:
        if (scene()) {
            storePosition();
        }
        break;
    case ItemParentHasChanged: m_curve = dynamic_cast<GraphCurveWidget*>(parentItem()); break;
    case ItemChildAddedChange:
    case ItemChildRemovedChange:
        m_handlesStale = true;
        handlesChanged();
        break;
    default: break;
    }
    return TimeEditorBaseItem::itemChange(change, value);
}

void GraphPointWidget::reportChange()
{
    // Once for each batch; the batch asks again at its end.
    if (m_view && m_view->isBatching()) {
        if (!std::exchange(m_changeReported, true)) {
            m_view->queueChange(this);
        }
        return;
    }
    m_changeReported = false;
    Q_EMIT pointDataChange();
}

void GraphPointWidget::reportNotice()
{
    if (m_view && m_view->isBatching()) {
        if (!std::exchange(m_noticeReported, true)) {
            m_view->queueNotice(this);
        }
        return;
    }
    m_noticeReported = false;
    notifyPointChanged();
}

QPointF GraphPointWidget::acceptedPosition(QPointF wanted) const
{
    if (!ui::Graph::isFinite(wanted)) {
        return pos();
    }
    if (!scene() || isForceMoving() || !enableUpdates()) {
        return wanted;
    }
    ui::Graph::PointStep step{wanted, m_storedPosition};
    if (m_view) {
        step.axis = m_view->getAxisSnapping();
    }
    if (m_view && m_view->isGridSnapping()) {
        step.grid = m_view->getGridSnappingValue();
    }
    if (m_clipPosition) {
        step.limit = ui::Graph::kFixedScale;
    }
    const QPointF accepted = ui::Graph::acceptedPoint(step);
    return ui::Graph::isFinite(accepted) ? accepted : pos();
}

void GraphPointWidget::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    storePosition();
    if (event->buttons() == Qt::LeftButton && event->modifiers() == Qt::AltModifier && m_view) {
        toggleInterpolation();
    }
    TimeEditorBaseItem::mousePressEvent(event);
    if (m_view && event->isAccepted() && event->button() == Qt::LeftButton) {
        m_view->startDrag(this, event->scenePos());
    }
}

/// The second of two quick presses is one like any other, which a drag may follow.
void GraphPointWidget::mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event)
{
    mousePressEvent(event);
}

void GraphPointWidget::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    if (m_view) {
        m_view->dragTo(event->scenePos()); // Qt's own moving would be no edit
    } else {
        TimeEditorBaseItem::mouseMoveEvent(event);
    }
}

/// Of all selected points, to the other one of what this point is.
void GraphPointWidget::toggleInterpolation()
{
    const auto other =
        m_interpolation == Interpolation::Bezier ? Interpolation::Linear : Interpolation::Bezier;
    m_view->beginEdit(true);
    std::vector<GraphPointWidget*> points = m_view->utils()->pointItems(true);
    if (std::find(points.begin(), points.end(), this) == points.end()) {
        points.push_back(this);
    }
    for (GraphPointWidget* const point : points) {
        point->setInterpolation(other, false);
    }
}
