// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/gestures/MouseWrapDragFilter.h"

#include "MorrantUI/controls/gestures/RawDragFilter.h"
#include "MorrantUI/controls/gestures/WarpDragFilter.h"
#include "MorrantUI/platform/PointerSystem.h"
#include <MorrantUI/controls/gestures/pointermath.h>

#include <QApplication>
#include <QMouseEvent>

#include <cmath>

namespace {

/// The filter whose drag began last: there is one pointer, and one drag.
QPointer<MouseWrapDragFilter> gLatest;

bool isFromMouse(const QMouseEvent& event)
{
    switch (event.deviceType()) {
    case QInputDevice::DeviceType::TouchScreen:
    case QInputDevice::DeviceType::Stylus:
    case QInputDevice::DeviceType::Airbrush:
    case QInputDevice::DeviceType::Puck: return false;
    default: break;
    }
    // Windows makes mouse events of pens and fingers, and names the mouse as their device.
    return event.source() != Qt::MouseEventSynthesizedBySystem
           && event.source() != Qt::MouseEventSynthesizedByQt;
}

QPointF wholePixels(const QMouseEvent& event)
{
    return QPointF(event.globalPosition().toPoint());
}

} // namespace

MouseWrapDragFilter* MouseWrapDragFilter::Make(QWidget* target)
{
    using Drive = morrant::native::PointerSystem::Drive;
    if (!target) {
        return nullptr;
    }
    switch (morrant::native::PointerSystem::instance().drive()) {
    case Drive::RawInput: return new RawDragFilter(target);
    case Drive::Warps: return new WarpDragFilter(target);
    case Drive::Moves: break;
    }
    return MakeDummy(target);
}

MouseWrapDragFilter* MouseWrapDragFilter::MakeDummy(QWidget* target)
{
    return target ? new MouseWrapDragFilter(target) : nullptr;
}

MouseWrapDragFilter::MouseWrapDragFilter(QWidget* target)
    : QObject(target)
    , m_target(target)
{
    target->installEventFilter(this);
}

MouseWrapDragFilter::~MouseWrapDragFilter()
{
    forceEndDrag();
}

void MouseWrapDragFilter::dragBegins(const QPointF& position)
{
    m_current = position;
}

void MouseWrapDragFilter::pointerMoved(const QPointF& position)
{
    m_current = position;
    commitDrag(m_current, m_current - m_startPosition);
}

bool MouseWrapDragFilter::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_target) {
        return QObject::eventFilter(watched, event);
    }
    // A slot may delete the filter, or the target, to which nothing can be delivered then.
    const QPointer<QWidget> target = m_target;
    handle(*event);
    return target.isNull();
}

void MouseWrapDragFilter::handle(QEvent& event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress: {
        const auto& press = static_cast<const QMouseEvent&>(event);
        if (press.button() == Qt::LeftButton && m_enabled && m_target->isEnabled()) {
            beginDrag(press);
        }
        break;
    }
    case QEvent::MouseMove:
        if (m_dragging) {
            pointerMoved(wholePixels(static_cast<const QMouseEvent&>(event)));
        }
        break;
    case QEvent::MouseButtonRelease: forceEndDrag(); break;
    default: break;
    }
}

void MouseWrapDragFilter::beginDrag(const QMouseEvent& press)
{
    if (!endFormerDrag()) {
        return;
    }
    gLatest = this;
    m_dragging = true;
    m_thresholdPassed = false;
    m_thresholdOffset = {};
    m_mouseDrag = isFromMouse(press);
    m_pointerGoesBack = true;
    m_startPosition = wholePixels(press);
    m_class = m_target->metaObject();
    // A press that a host replays is no business of the system's moves.
    m_doors.watch(
        m_target,
        [this](GestureDoors::Door door) { leaveBy(door); },
        {.moves = press.spontaneous(), .replays = true});
    dragBegins(m_startPosition);
    Q_EMIT started();
}

bool MouseWrapDragFilter::endFormerDrag()
{
    const QPointer<MouseWrapDragFilter> self(this);
    if (gLatest) { // of this filter or another: its release got lost
        gLatest->m_pointerGoesBack = false;
        gLatest->forceEndDrag();
    }
    const bool isFree = !gLatest || !gLatest->m_dragging; // a slot may have begun one
    return self && isFree && m_enabled && m_target && m_target->isEnabled();
}

void MouseWrapDragFilter::abandonDrag()
{
    if (!m_dragging) {
        return;
    }
    m_dragging = false;
    m_thresholdPassed = false;
    m_thresholdOffset = {};
    m_doors.stop();
    dragEnds();
}

void MouseWrapDragFilter::leaveBy(GestureDoors::Door door)
{
    // A window is hidden by its base class's destructor, before it tells of its end. Those who
    // listen may be the target's own class, which is gone already.
    const bool isDying = !m_target || m_target->metaObject() != m_class;
    if (door == GestureDoors::Door::Destroyed || isDying) {
        abandonDrag();
    } else {
        forceEndDrag();
    }
}

void MouseWrapDragFilter::forceEndDrag()
{
    if (m_dragging) {
        abandonDrag();
        Q_EMIT ended();
    }
}

bool MouseWrapDragFilter::passesThreshold(const QPointF& movement)
{
    if (!m_thresholdPassed && ui::reachesDragDistance(movement, QApplication::startDragDistance()))
    {
        m_thresholdPassed = true;
        m_thresholdOffset = movement;
    }
    return m_thresholdPassed;
}

void MouseWrapDragFilter::commitDrag(const QPointF& a, const QPointF& movement)
{
    const bool isFinite = std::isfinite(movement.x()) && std::isfinite(movement.y());
    if (isFinite && passesThreshold(movement)) {
        Q_EMIT dragged(a, movement - m_thresholdOffset);
    }
}
