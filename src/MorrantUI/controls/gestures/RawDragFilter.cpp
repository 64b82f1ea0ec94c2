#include "MorrantUI/controls/gestures/RawDragFilter.h"

#include "MorrantUI/platform/PointerConfinement.h"
#include "MorrantUI/platform/PointerSystem.h"
#include <MorrantUI/controls/gestures/nativemouse.h>
#include <MorrantUI/controls/gestures/pointermath.h>

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
    confine();
    m_byMoves = !m_tracker.startTracking();
    hideNativeMouse();
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
        m_current = position;
        commitDrag(m_current, m_current - startPosition());
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
    const auto position = PointerSystem::instance().position();
    if (!position || m_rect.isEmpty()) {
        return;
    }
    QPointF offset;
    const QPointF wrapped = wrapPoint(*position + delta, m_rect, &offset);
    if (!offset.isNull()) {
        PointerSystem::instance().setPosition({int(wrapped.x()), int(wrapped.y())});
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
        PointerSystem::instance().setPosition(*m_home);
    }
    showNativeMouse();
}
