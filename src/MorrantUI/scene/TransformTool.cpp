// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/scene/TransformTool.h"

#include "MorrantUI/scene/transformzones.h"
#include <MorrantUI/scene/framemath.h>
#include <MorrantUI/theme/colors.h>

#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>
#include <QPointer>

#include <cmath>
#include <utility>

namespace {

constexpr float kBodyAlpha = 0.08F;
constexpr int kHoverLight = 120; ///< percent

QPoint rounded(QPointF scene)
{
    return {ui::nearestFrame(scene.x()), ui::nearestFrame(scene.y())};
}

} // namespace

TransformTool::TransformTool(QObject* parent)
    : QObject(parent)
{
    setAcceptHoverEvents(true);
    setFlags(ItemIsSelectable | ItemSendsGeometryChanges);
    setPen(Qt::NoPen);
    setBrush(Qt::NoBrush);
}

void TransformTool::setRect(const QRectF& selection)
{
    QGraphicsRectItem::setRect(ui::transformRect(selection));
}

void TransformTool::setRect(double x, double y, double width, double height)
{
    setRect(QRectF(x, y, width, height));
}

void TransformTool::cancelDrag()
{
    if (!m_dragging) {
        return;
    }
    const QPointer<TransformTool> alive(this);
    m_dragging = false;
    if (std::exchange(m_scaling, false)) {
        cancelScaling();
    } else {
        moveSelection(-m_moved);
    }
    if (alive) {
        setRect(selectionRect());
    }
}

void TransformTool::paint(
    QPainter* painter, const QStyleOptionGraphicsItem* /*option*/, QWidget* /*widget*/)
{
    const QTransform& zoom = painter->worldTransform();
    const QSizeF edge(ui::kTransformEdge / zoom.m11(), ui::kTransformEdge / zoom.m22());
    if (!std::isfinite(edge.width()) || !std::isfinite(edge.height())) {
        return;
    }
    const QColor blue = ui::colorQt(QStringLiteral("Blue"));
    const auto paintBar = [&](ui::TransformZone side) {
        const bool hovered = m_hoverZone == static_cast<int>(side);
        painter->setBrush(hovered ? blue.lighter(kHoverLight) : blue);
        painter->drawPath(ui::transformBar(rect(), edge, side));
    };
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor::fromRgbF(1.0F, 1.0F, 1.0F, kBodyAlpha));
    painter->drawRect(rect());
    paintBar(ui::TransformZone::LeftEdge);
    paintBar(ui::TransformZone::RightEdge);
}

void TransformTool::hoverEnterEvent(QGraphicsSceneHoverEvent* event)
{
    QGraphicsRectItem::hoverEnterEvent(event);
}

void TransformTool::hoverMoveEvent(QGraphicsSceneHoverEvent* event)
{
    setHoverZone(static_cast<int>(ui::transformZone(event->pos().x(), rect(), horizontalScale())));
}

void TransformTool::hoverLeaveEvent(QGraphicsSceneHoverEvent* /*event*/)
{
    setHoverZone(0);
}

void TransformTool::setHoverZone(int zone)
{
    if (std::exchange(m_hoverZone, zone) == zone) {
        return;
    }
    const bool edge = zone == static_cast<int>(ui::TransformZone::LeftEdge)
                      || zone == static_cast<int>(ui::TransformZone::RightEdge);
    setCursor(edge ? Qt::SizeHorCursor : Qt::ArrowCursor);
    update();
}

void TransformTool::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        QGraphicsRectItem::mousePressEvent(event);
        return;
    }
    m_dragging = true;
    m_lastPosition = event->scenePos();
    m_remainder = 0.0;
    m_moved = 0.0;
    // A finger presses without having hovered.
    const auto zone = ui::transformZone(event->pos().x(), rect(), horizontalScale());
    setHoverZone(static_cast<int>(zone));
    if (zone != ui::TransformZone::Body) {
        m_scaling = true;
        startScaling(rounded(event->scenePos()), zone == ui::TransformZone::RightEdge);
    }
    event->accept();
}

void TransformTool::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    const QPointer<TransformTool> alive(this);
    if (m_scaling) {
        scaleTo(rounded(event->scenePos()));
    } else if (m_dragging) {
        moveBody(event->scenePos());
    }
    if (!alive) {
        return;
    }
    if (m_dragging) {
        setRect(selectionRect());
    }
    QGraphicsRectItem::mouseMoveEvent(event);
}

void TransformTool::moveBody(QPointF to)
{
    const double distance = to.x() - m_lastPosition.x() + m_remainder;
    m_lastPosition = to;
    if (!std::isfinite(distance)) {
        m_remainder = 0.0;
        return;
    }
    const QPointer<TransformTool> alive(this);
    const double moved = moveSelection(distance);
    if (alive) {
        m_remainder = distance - moved;
        m_moved += moved;
    }
}

void TransformTool::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    const bool wasDragging = std::exchange(m_dragging, false);
    m_scaling = false;
    // The base would take a release where it was pressed for a click that selects the tool itself.
    if (!wasDragging || event->scenePos() != event->buttonDownScenePos(Qt::LeftButton)) {
        QGraphicsRectItem::mouseReleaseEvent(event);
    }
}

void TransformTool::mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event)
{
    QGraphicsRectItem::mouseDoubleClickEvent(event);
}

QVariant TransformTool::itemChange(GraphicsItemChange change, const QVariant& value)
{
    if (change == ItemVisibleHasChanged) {
        setHoverZone(0); // Qt tells what is hidden of no leaving
    }
    return QGraphicsRectItem::itemChange(change, value);
}

bool TransformTool::sceneEvent(QEvent* event)
{
    if (event->type() == QEvent::UngrabMouse) {
        m_dragging = false;
        m_scaling = false;
    }
    return QGraphicsRectItem::sceneEvent(event);
}
