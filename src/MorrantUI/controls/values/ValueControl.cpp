// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/ValueControl.h"

#include "MorrantUI/controls/accessibility.h"

#include <QKeyEvent>
#include <QMouseEvent>

#include <cmath>

namespace {

/// Alt and Meta make other commands of the keys that step.
bool isPlain(Qt::KeyboardModifiers modifiers)
{
    return !(modifiers & (Qt::AltModifier | Qt::MetaModifier));
}

} // namespace

ValueControl::ValueControl(QWidget* parent)
    : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover); // one repaint when the pointer comes and one when it goes
    setMouseTracking(true);     // a move without the button tells of a release that went elsewhere
}

ValueControl::~ValueControl() = default;

void ValueControl::endDrag()
{
    if (m_gesture) {
        letGo();
        finish(springsBack() ? limited(resetValue()) : m_value);
    }
}

void ValueControl::cancelDrag()
{
    if (m_gesture) {
        finish(m_gesture->start);
    }
}

void ValueControl::assign(const Value& value)
{
    if (std::isnan(value.x) || std::isnan(value.y)) {
        return;
    }
    const Value before = m_value;
    m_value = limited(value);
    if (m_value != before) {
        update();
        valueAssigned(before);
        Q_EMIT changed();
    }
}

void ValueControl::valueAssigned(const Value& /*before*/)
{
    ui::notifyAccessibleValue(this, m_value.x);
}

void ValueControl::dragValue(const Value& value)
{
    if (!m_gesture || limited(value) == m_value) {
        return;
    }
    const QPointer<ValueControl> self(this);
    if (!m_reported) {
        m_reported = true;
        Q_EMIT dragStateChanged(true);
        if (!self || !m_gesture) {
            return;
        }
    }
    assign(value);
    if (self && m_gesture) {
        Q_EMIT valueChanged(false);
    }
}

void ValueControl::commitValue(const Value& value)
{
    const Value before = m_value;
    const QPointer<ValueControl> self(this);
    assign(value);
    if (self && m_value != before) {
        Q_EMIT valueChanged(true);
    }
}

void ValueControl::begin(std::optional<int> heldKey, const QPointF& point)
{
    m_gesture = Gesture{m_value, point, heldKey};
    // A key's release goes elsewhere with the focus, a button's does not.
    const GestureHold key{.button = Qt::NoButton, .focus = true};
    m_doors.watch(
        this, [this](GestureDoors::Door) { endDrag(); }, heldKey ? key : GestureHold());
    update();
}

void ValueControl::finish(const Value& value)
{
    const Value start = m_gesture->start;
    const QPointer<ValueControl> self(this);
    if (value != m_value) {
        dragValue(value);
        if (!self || !m_gesture) {
            return; // ended by a slot
        }
    }
    m_gesture.reset();
    m_doors.stop();
    update();
    if (m_value != start) {
        Q_EMIT valueChanged(true);
    }
    if (self && m_reported) {
        m_reported = false;
        Q_EMIT dragStateChanged(false);
    }
}

bool ValueControl::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && wantsKey(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void ValueControl::mousePressEvent(QMouseEvent* event)
{
    if (isDragging() && !m_gesture->heldKey) {
        return; // another button
    }
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const QPointer<ValueControl> self(this);
    endDrag();
    if (self && !m_reported) { // still true inside a slot of the drag before
        begin(std::nullopt, event->position());
        pressAt(event->position(), event->modifiers());
    }
}

void ValueControl::mouseMoveEvent(QMouseEvent* event)
{
    if (!isDragging() || m_gesture->heldKey) {
        event->ignore();
        return;
    }
    m_gesture->point = event->position();
    dragTo(event->position(), event->modifiers());
}

void ValueControl::mouseReleaseEvent(QMouseEvent* event)
{
    if (isDragging() && !m_gesture->heldKey && event->button() == Qt::LeftButton) {
        endDrag();
    }
}

void ValueControl::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
    } else if (!isDragging()) {
        commitValue(resetValue());
    }
}

void ValueControl::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Shift || event->key() == Qt::Key_Control) {
        followModifiers(event, true);
    } else if (!wantsKey(*event)) {
        event->ignore();
    } else if (event->key() == Qt::Key_Escape) {
        cancelDrag();
    } else if (isDragging() && !m_gesture->heldKey) {
        return; // the pointer has the value
    } else if (event->key() == Qt::Key_Backspace) {
        commitValue(resetValue());
    } else {
        stepByKey(event->key(), *keyTarget(event->key(), event->modifiers()));
    }
}

void ValueControl::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Shift || event->key() == Qt::Key_Control) {
        followModifiers(event, false);
    } else if (m_gesture && m_gesture->heldKey == event->key() && !event->isAutoRepeat()) {
        endDrag(); // another key that was tapped meanwhile ends nothing
    } else {
        event->ignore();
    }
}

void ValueControl::followModifiers(QKeyEvent* event, bool pressed)
{
    event->ignore();
    if (!m_gesture || m_gesture->heldKey) {
        return;
    }
    Qt::KeyboardModifiers modifiers = event->modifiers();
    modifiers.setFlag(
        event->key() == Qt::Key_Shift ? Qt::ShiftModifier : Qt::ControlModifier, pressed);
    dragTo(m_gesture->point, modifiers);
}

void ValueControl::stepByKey(int key, const Value& target)
{
    if (!springsBack()) {
        commitValue(target);
        return;
    }
    if (!m_gesture) {
        begin(key, {});
    }
    dragValue(target);
}

bool ValueControl::wantsKey(const QKeyEvent& event) const
{
    if (event.key() == Qt::Key_Escape) {
        return isDragging();
    }
    return isPlain(event.modifiers())
           && (event.key() == Qt::Key_Backspace
               || keyTarget(event.key(), event.modifiers()).has_value());
}
