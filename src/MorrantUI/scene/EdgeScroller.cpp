// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/scene/EdgeScroller.h"

#include "MorrantUI/scene/edgescroll.h"
#include <MorrantUI/controls/gestures/modifiers.h>

#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int kLongestStep = 100; ///< milliseconds; after a pause nothing leaps

/// Scrolls by the whole pixels of a distance and keeps the rest.
/// @return whether there is anything left to scroll that way
bool scrollBar(QScrollBar& bar, double speed, double& distance)
{
    const int whole = static_cast<int>(distance);
    distance -= whole;
    bar.setValue(bar.value() + whole);
    return speed < 0.0 ? bar.value() > bar.minimum() : speed > 0.0 && bar.value() < bar.maximum();
}

} // namespace

EdgeScroller::EdgeScroller(QAbstractScrollArea* area)
    : QAbstractAnimation(area)
    , m_area(area)
{}

void EdgeScroller::follow(QPointF pointer, Qt::MouseButtons buttons, Qt::Orientations directions)
{
    m_pointer = pointer;
    m_buttons = buttons;
    m_directions = directions;
    if (speed().isNull()) {
        stop();
    } else if (state() != Running) {
        start();
    }
}

void EdgeScroller::updateState(State /*now*/, State /*before*/)
{
    m_rest = QPointF();
    m_last = 0;
}

QPointF EdgeScroller::speed() const
{
    const QSize viewport = m_area->viewport()->size();
    const bool across = m_directions.testFlag(Qt::Horizontal);
    const bool down = m_directions.testFlag(Qt::Vertical);
    const double x = across ? ui::edgeScrollSpeed(m_pointer.x(), viewport.width()) : 0.0;
    return {
        m_area->isRightToLeft() ? -x : x,
        down ? ui::edgeScrollSpeed(m_pointer.y(), viewport.height()) : 0.0};
}

void EdgeScroller::updateCurrentTime(int milliseconds)
{
    const int passed =
        std::clamp(milliseconds - std::exchange(m_last, milliseconds), 0, kLongestStep);
    if (passed == 0) {
        return;
    }
    const QPointF before(
        m_area->horizontalScrollBar()->value(), m_area->verticalScrollBar()->value());
    if (!scrollBy(speed() * passed / 1000.0)) {
        stop();
    }
    const QPointF after(
        m_area->horizontalScrollBar()->value(), m_area->verticalScrollBar()->value());
    if (before != after) {
        QMouseEvent move(
            QEvent::MouseMove,
            m_pointer,
            m_area->viewport()->mapToGlobal(m_pointer),
            Qt::NoButton,
            m_buttons,
            ui::queryKeyboardModifiers());
        QCoreApplication::sendEvent(m_area->viewport(), &move); // may delete the area
    }
}

bool EdgeScroller::scrollBy(QPointF distance)
{
    m_rest += distance;
    const QPointF now = speed();
    const bool across = scrollBar(*m_area->horizontalScrollBar(), now.x(), m_rest.rx());
    const bool down = scrollBar(*m_area->verticalScrollBar(), now.y(), m_rest.ry());
    return across || down;
}
