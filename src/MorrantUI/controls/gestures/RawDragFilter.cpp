// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/gestures/RawDragFilter.h"

#include "MorrantUI/platform/PointerConfinement.h"
#include "MorrantUI/platform/PointerSystem.h"
#include <MorrantUI/controls/gestures/nativemouse.h>
#include <MorrantUI/controls/gestures/pointermath.h>

#include <utility>

using morrant::native::PointerConfinement;
using morrant::native::PointerSystem;

RawDragFilter::RawDragFilter(QWidget* target)
    : MouseWrapDragFilter(target)
    , m_tracker(target)
{
    connect(&m_tracker, &NativeMouseTracker::mouseMoved, this, &RawDragFilter::addMotion);
}

RawDragFilter::~RawDragFilter()
{
    forceEndDrag();
}

void RawDragFilter::dragBegins(const QPointF& /*position*/)
{
    m_current = {};
    m_pixels = {};
    m_ratio = target()->devicePixelRatioF();
    m_holdsPointer = isMouseDrag() && !PointerSystem::instance().isRemote();
    m_byMoves = !m_holdsPointer;
    if (!m_holdsPointer) {
        return;
    }
    m_home = morrant::native::pointerPosition();
    m_hasFailed = !m_home.has_value();
    confine();
    if (m_tracker.startTracking()) {
        hideNativeMouse();
        return;
    }
    m_byMoves = true; // and the pointer, which nothing wraps then, stays the user's
    m_holdsPointer = false;
    m_confinement.reset();
}

void RawDragFilter::confine()
{
    const auto frame = PointerSystem::instance().windowFrame(*target());
    m_rect = frame ? ui::confiningRect(*frame, m_ratio) : QRect();
    if (!m_rect.isEmpty()) {
        m_confinement = std::make_unique<PointerConfinement>(m_rect);
    }
}

void RawDragFilter::pointerMoved(const QPointF& position)
{
    if (m_byMoves) {
        MouseWrapDragFilter::pointerMoved(position);
    }
}

void RawDragFilter::addMotion(QPointF delta, bool absolute)
{
    m_current += delta;
    if (absolute) {
        const QPointF scale = m_tracker.absoluteScale();
        m_pixels += QPointF(delta.x() * scale.x(), delta.y() * scale.y());
    } else {
        m_pixels += delta;
        wrap(delta);
    }
    commitDrag(m_current, m_pixels / m_ratio);
}

void RawDragFilter::wrap(QPointF delta)
{
    if (m_rect.isEmpty()) {
        return;
    }
    auto& system = PointerSystem::instance();
    const auto position = system.position();
    QPointF offset;
    const QPointF wrapped = wrapPoint(position.value_or(QPoint()) + delta, m_rect, &offset);
    const bool isDone =
        position && (offset.isNull() || system.setPosition({int(wrapped.x()), int(wrapped.y())}));
    if (!isDone && !std::exchange(m_hasFailed, true)) {
        morrant::native::logFailure(false); // the next motions will hardly tell another story
    }
}

void RawDragFilter::dragEnds()
{
    if (!m_holdsPointer) {
        return;
    }
    m_holdsPointer = false;
    m_confinement.reset();
    m_tracker.stopTracking();
    if (m_home && pointerGoesBack()) {
        // Deliberately where the user pressed, however far the drag went.
        morrant::native::logFailure(PointerSystem::instance().setPosition(*m_home));
    }
    showNativeMouse();
}
