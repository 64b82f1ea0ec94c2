// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/gestures/WarpDragFilter.h"

#include "MorrantUI/platform/PointerSystem.h"
#include <MorrantUI/controls/gestures/nativemouse.h>
#include <MorrantUI/theme/screens.h>

#include <QScreen>

using morrant::native::PointerSystem;

WarpDragFilter::WarpDragFilter(QWidget* target)
    : MouseWrapDragFilter(target)
{}

WarpDragFilter::~WarpDragFilter()
{
    forceEndDrag();
}

void WarpDragFilter::dragBegins(const QPointF& position)
{
    m_path = ui::WarpedPath(position);
    m_rect = {};
    const QScreen* screen = getClosestScreenAt(position.toPoint());
    if (!isMouseDrag() || !screen) {
        return; // a pen's next position knows nothing of a warp
    }
    m_rect = ui::wrappingRect(screen->geometry());
    hideNativeMouse();
}

void WarpDragFilter::pointerMoved(const QPointF& position)
{
    const auto& system = PointerSystem::instance();
    const QPointF present = m_path.isWarping() ? system.logicalPosition() : QPoint();
    m_current = m_path.moveTo(position, present);
    if (passesThreshold(m_path.movement())) { // a click has to end where it began
        warpFromEdges(position);
    }
    commitDrag(m_current, m_path.movement());
}

void WarpDragFilter::warpFromEdges(QPointF position)
{
    if (m_path.isAbsolute() && !m_rect.isEmpty()) {
        m_rect = {}; // for the rest of the drag the pointer is the user's
        showNativeMouse();
    }
    if (m_path.isWarping() || m_rect.isEmpty()) {
        return;
    }
    QPointF offset;
    wrapPoint(position, m_rect, &offset);
    if (!offset.isNull()) {
        m_path.warp(PointerSystem::instance().moveBy(offset, target()->devicePixelRatioF()));
    }
}

void WarpDragFilter::dragEnds()
{
    if (m_rect.isEmpty()) {
        return;
    }
    if (pointerGoesBack()) {
        PointerSystem::instance().setLogicalPosition(startPosition().toPoint());
    }
    showNativeMouse();
}
