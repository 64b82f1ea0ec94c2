// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/scene/GraphicsView.h"

#include "MorrantUI/scene/AccessibleView.h"
#include "MorrantUI/scene/EdgeScroller.h"
#include "MorrantUI/scene/wheel.h"
#include <MorrantUI/scene/framemath.h>
#include <MorrantUI/theme/OverrideCursor.h>

#include <QEvent>
#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <QWheelEvent>

#include <cstdlib>
#include <utility>

GraphicsView::GraphicsView(QWidget* parent)
    : QGraphicsView(parent)
{
    // Frames and values go from left to right wherever one reads the other way: scroll bars stand
    // where those of a ruler above do, and a minus before its number.
    setLayoutDirection(Qt::LeftToRight);
    setFrameShape(QFrame::NoFrame);
    setFrameShadow(QFrame::Plain);
    ui::installAccessible<GraphicsView, ui::AccessibleView>();
}

GraphicsView::~GraphicsView() = default;

QRectF GraphicsView::getVisibleRect() const
{
    return mapToScene(QRect(QPoint(0, 0), viewport()->size())).boundingRect();
}

void GraphicsView::scrollAcross(int pixels)
{
    QScrollBar& bar = *horizontalScrollBar();
    bar.setValue(
        ui::movedFrame(bar.value(), isRightToLeft() ? -1.0 * pixels : pixels)); // saturates
}

bool GraphicsView::isBesideDrag(const QMouseEvent& event)
{
    return event.button() != Qt::LeftButton && event.buttons().testFlag(Qt::LeftButton);
}

void GraphicsView::changeMouse(const QCursor& cursor)
{
    watchDoors();
    if (m_cursor) {
        if (m_cursor->cursor() != cursor) {
            m_cursor->change(cursor);
        }
    } else {
        m_cursor = std::make_unique<ui::OverrideCursor>(cursor);
    }
}

void GraphicsView::restoreMouse()
{
    m_cursor.reset();
}

void GraphicsView::startHandPan()
{
    if (!m_beforePan) {
        m_beforePan = BeforePan{dragMode(), isInteractive()};
    }
    setDragMode(ScrollHandDrag);
    // An interactive view would hand the press to the item below the pointer.
    setInteractive(false);
}

void GraphicsView::endHandPan()
{
    if (const auto before = std::exchange(m_beforePan, std::nullopt)) {
        setInteractive(before->isInteractive);
    }
    if (dragMode() == ScrollHandDrag) {
        setDragMode(NoDrag); // which alone makes Qt forget a pan whose release it has not seen
    }
    setDragMode(RubberBandDrag);
}

bool GraphicsView::endRubberBand()
{
    const QRect band = rubberBandRect();
    if (band.isNull()) {
        return false;
    }
    // Qt gives a band up when it sees, at some distance, that the button is not down any more.
    const QPointF place = band.bottomRight() + QPoint(viewport()->width(), viewport()->height());
    QMouseEvent lift(
        QEvent::MouseMove,
        place,
        viewport()->mapToGlobal(place),
        Qt::NoButton,
        Qt::NoButton,
        Qt::NoModifier);
    QGraphicsView::mouseMoveEvent(&lift);
    return true;
}

void GraphicsView::scrollAtEdge(const QMouseEvent& event, Qt::Orientations directions)
{
    if (!m_edgeScroller) {
        m_edgeScroller = new EdgeScroller(this);
    }
    m_edgeScroller->follow(event.position(), event.buttons(), directions);
}

void GraphicsView::stopEdgeScroll()
{
    if (m_edgeScroller) {
        m_edgeScroller->stop();
    }
}

void GraphicsView::scrollByShare(const QWheelEvent& event, double share)
{
    // The longer side is what scrolls, which rounding may not change.
    const auto along = [](QPoint delta) {
        const bool isWide = std::abs(delta.x()) > std::abs(delta.y());
        return isWide ? QPoint(delta.x(), 0) : QPoint(0, delta.y());
    };
    QWheelEvent scaled(
        event.position(),
        event.globalPosition(),
        ui::wheelSteps(along(event.pixelDelta()), share, m_pixelRest),
        ui::wheelSteps(along(event.angleDelta()), share, m_angleRest),
        event.buttons(),
        event.modifiers(),
        event.phase(),
        event.inverted());
    QGraphicsView::wheelEvent(&scaled);
}

void GraphicsView::abandonGesture()
{
    const QPointer<GraphicsView> alive(this);
    m_doors.stop();
    stopEdgeScroll();
    restoreMouse();
    const DragMode mode = m_beforePan ? m_beforePan->mode : dragMode();
    endHandPan();
    setDragMode(mode);
    endRubberBand();
    if (alive && scene() && scene()->mouseGrabberItem()) {
        scene()->mouseGrabberItem()->ungrabMouse();
    }
}

bool GraphicsView::viewportEvent(QEvent* event)
{
    const QPointer<GraphicsView> alive(this);
    const bool taken = QGraphicsView::viewportEvent(event);
    if (!alive) {
        event->accept();
    }
    return taken || !alive;
}

bool GraphicsView::event(QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        watchDoors(); // keys are held, too
    }
    return QGraphicsView::event(event);
}

/// Until one of them opens: a key may be held, or a button, wherever the pointer goes.
void GraphicsView::watchDoors()
{
    if (!m_doors.isWatching()) {
        const GestureHold hold{.button = Qt::NoButton, .focus = true};
        m_doors.watch(
            this,
            [this](GestureDoors::Door door) {
                if (door != GestureDoors::Door::Destroyed) {
                    abandonGesture();
                }
            },
            hold);
    }
}
