// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/TimeHandle.h"

#include <MorrantUI/timeeditor/TimeEditorScene.h>

#include <QCursor>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>
#include <QPen>

#include <cmath>

namespace {

constexpr double kHandleZ = 40.0;
constexpr double kHandleOpacity = 0.8;
constexpr QRectF kHandleRect(0.0, 0.0, 2.0, 50.0);
constexpr double kLineInset = 0.5; ///< at both ends

} // namespace

TimeHandle::TimeHandle(TimeEditorScene* scene, QGraphicsItem* parent)
    : QGraphicsRectItem(parent)
    , m_scene(scene)
{
    setZValue(kHandleZ);
    setBrush(Qt::red);
    setPen(QPen(Qt::green));
    setRect(kHandleRect);
    setFlags(ItemIsMovable | ItemSendsGeometryChanges | ItemSendsScenePositionChanges);
    setCursor(Qt::SizeHorCursor);
}

void TimeHandle::setHeight(int height)
{
    QRectF changed = rect();
    changed.setHeight(height);
    setRect(changed);
}

bool TimeHandle::cancelDrag()
{
    if (!m_dragging) {
        return false;
    }
    m_dragging = false;
    if (x() != m_xAtPress && m_scene) {
        setX(m_xAtPress);
        m_scene->commitFrameChange(); // may delete the handle with its scene
    }
    return true;
}

void TimeHandle::paint(
    QPainter* painter, const QStyleOptionGraphicsItem* /*option*/, QWidget* /*widget*/)
{
    painter->save();
    painter->setOpacity(kHandleOpacity);
    QPen line = pen();
    line.setCosmetic(true);
    painter->setPen(line);
    const double x = rect().center().x() - 1.0;
    painter->drawLine(QLineF(x, kLineInset, x, rect().height() - kLineInset));
    painter->restore();
}

QVariant TimeHandle::itemChange(GraphicsItemChange change, const QVariant& value)
{
    if (change == ItemPositionChange && scene()) {
        const double x = value.toPointF().x();
        return QPointF(std::isfinite(x) ? std::round(x) : pos().x(), pos().y());
    }
    if (change == ItemPositionHasChanged && scene() && m_dragging && m_scene) {
        m_scene->commitFrameChange();
    }
    return QGraphicsRectItem::itemChange(change, value);
}

void TimeHandle::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        m_dragging = true;
        m_xAtPress = x();
    }
    QGraphicsRectItem::mousePressEvent(event);
}

void TimeHandle::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    if (m_dragging) { // Qt would take the selected keys along
        const QPointF press = event->buttonDownScenePos(Qt::LeftButton);
        setX(m_xAtPress + event->scenePos().x() - press.x());
    }
}

void TimeHandle::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    m_dragging = false;
    QGraphicsRectItem::mouseReleaseEvent(event);
}

bool TimeHandle::sceneEvent(QEvent* event)
{
    if (event->type() == QEvent::UngrabMouse) {
        m_dragging = false;
    }
    return QGraphicsRectItem::sceneEvent(event);
}
