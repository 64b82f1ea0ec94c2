// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/TimeEditorBaseItem.h"

#include "MorrantUI/timeeditor/RowBlock.h"
#include <MorrantUI/timeeditor/TimeEditorScene.h>

#include <QEasingCurve>
#include <QGraphicsSceneHoverEvent>

#include <cmath>
#include <utility>

namespace {

constexpr int kColorAnimationTime = 800; ///< milliseconds
constexpr int kHighlightLight = 120;     ///< percent

} // namespace

TimeEditorBaseItem::TimeEditorBaseItem(QGraphicsItem* parent)
    : TimeEditorBaseItem(BareItem())
{
    setFlags(
        ItemIsMovable | ItemIsSelectable | ItemClipsToShape | ItemSendsGeometryChanges
        | ItemSendsScenePositionChanges);
    setParentItem(parent);
}

TimeEditorBaseItem::TimeEditorBaseItem(BareItem /*bare*/)
{
    setAcceptHoverEvents(true);
    setGraphicsItem(this);
}

TimeEditorBaseItem::~TimeEditorBaseItem()
{
    if (auto* const timeScene = qobject_cast<TimeEditorScene*>(scene())) {
        timeScene->takeOut(*this);
    }
    strike();
}

void TimeEditorBaseItem::setColor(QColor color)
{
    m_baseColor = color;
    m_highlightColor = QColor();
    onColorChange();
    update();
}

const QColor& TimeEditorBaseItem::getHighlightColor() const
{
    if (!m_highlightColor.isValid() && m_baseColor.isValid()) {
        m_highlightColor = m_baseColor.lighter(kHighlightLight);
    }
    return m_highlightColor;
}

QColor TimeEditorBaseItem::getColor() const
{
    return getBaseColor();
}

void TimeEditorBaseItem::forceMove(QPointF position)
{
    if (!std::isfinite(position.x()) || !std::isfinite(position.y())) {
        return;
    }
    m_forceMoving = true;
    m_enableUpdates = false;
    setPos(position);
    m_enableUpdates = true;
    m_forceMoving = false;
}

QPropertyAnimation& TimeEditorBaseItem::colorAnimation()
{
    if (!m_colorAnimation) {
        m_colorAnimation = new QPropertyAnimation(this, "animatingColor", this);
        m_colorAnimation->setDuration(kColorAnimationTime);
    }
    return *m_colorAnimation;
}

void TimeEditorBaseItem::animate(QColor end, const QEasingCurve& easing)
{
    QPropertyAnimation& animation = colorAnimation();
    animation.setStartValue(getBaseColor());
    animation.setEndValue(end);
    animation.setEasingCurve(easing);
}

void TimeEditorBaseItem::animateToColor(QColor target)
{
    QPropertyAnimation& animation = colorAnimation();
    animation.stop();
    m_flashing = false;
    animation.setKeyValues({});
    animate(target, QEasingCurve::OutCubic);
    animation.start();
}

void TimeEditorBaseItem::animateFeedbackColor(QColor flash)
{
    const bool restarted = m_flashing && isAnimating();
    const QColor resting = restarted ? m_restingColor : getBaseColor();
    QPropertyAnimation& animation = colorAnimation();
    animation.stop();
    m_flashing = true;
    m_restingColor = resting;
    animation.setKeyValues({});
    animate(resting, QEasingCurve::InOutQuart);
    animation.setKeyValueAt(0.5, flash);
    animation.start();
}

void TimeEditorBaseItem::setAnimatingColor(QColor color)
{
    m_animatingColor = color;
    setColor(color);
}

bool TimeEditorBaseItem::isAnimating() const
{
    return m_colorAnimation != nullptr && m_colorAnimation->state() == QAbstractAnimation::Running;
}

void TimeEditorBaseItem::onConnectionEnter(ConnectionInstance* /*connection*/)
{}

void TimeEditorBaseItem::onConnectionMove(ConnectionInstance* /*connection*/)
{}

void TimeEditorBaseItem::onConnectionLeave(ConnectionInstance* /*connection*/)
{}

void TimeEditorBaseItem::onConnectionDrop(ConnectionInstance* /*connection*/)
{}

void TimeEditorBaseItem::setGeometry(const QRectF& rect)
{
    prepareGeometryChange();
    QGraphicsLayoutItem::setGeometry(rect);
    setPos(rect.topLeft());
    if (auto* const block = dynamic_cast<ui::RowBlock*>(parentItem())) {
        block->invalidate();
    }
}

QSizeF TimeEditorBaseItem::sizeHint(Qt::SizeHint /*which*/, const QSizeF& /*constraint*/) const
{
    return rect().size();
}

QVariant TimeEditorBaseItem::itemChange(GraphicsItemChange change, const QVariant& value)
{
    if (change == ItemSceneChange) {
        strike();
    } else if (change == ItemSceneHasChanged) {
        enlist();
    }
    return QGraphicsRectItem::itemChange(change, value);
}

void TimeEditorBaseItem::enlist()
{
    auto* const timeScene = qobject_cast<TimeEditorScene*>(scene());
    if (timeScene) {
        timeScene->enlist(this);
        m_enlisted = true;
    }
}

void TimeEditorBaseItem::strike()
{
    if (std::exchange(m_enlisted, false)) {
        if (auto* const timeScene = qobject_cast<TimeEditorScene*>(scene())) {
            timeScene->strike(this);
        }
    }
}

void TimeEditorBaseItem::hoverEnterEvent(QGraphicsSceneHoverEvent* event)
{
    m_hovering = boundingRect().contains(event->pos());
    update();
}

void TimeEditorBaseItem::hoverMoveEvent(QGraphicsSceneHoverEvent* event)
{
    if (!m_hovering && boundingRect().contains(event->pos())) {
        m_hovering = true;
        update();
    }
}

void TimeEditorBaseItem::hoverLeaveEvent(QGraphicsSceneHoverEvent* /*event*/)
{
    m_hovering = false;
    update();
}
