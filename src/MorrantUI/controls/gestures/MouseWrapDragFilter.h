// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/gestures/GestureDoors.h>
#include <MorrantUI/morrantui_export.h>

#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QWidget>

class QMouseEvent;

/// Turns the mouse events of one widget into a drag that never runs out of screen.
///
/// A press of the left button starts the drag, a release ends it, and so does everything that takes
/// the mouse from the widget (see GestureDoors), a move of the system's without the button, and the
/// beginning of another drag. No event is consumed: the widget sees all of them, after the filter.
///
/// The class itself counts mouse moves and leaves the pointer alone; derived ones hold the pointer.
class MORRANT_UI_EXPORT MouseWrapDragFilter : public QObject
{
    Q_OBJECT

public:
    /// A filter that hides the pointer during a drag and lets it move on without end; when the drag
    /// is over, the pointer is back where it was pressed. Raw mouse input drives it on Windows,
    /// warping on X11. Where neither is to be had (Wayland, remote sessions, drags with a pen or a
    /// finger) it does what MakeDummy's does.
    ///
    /// The filter belongs to the target and is installed on it; installing it again changes
    /// nothing. Null without a target.
    static MouseWrapDragFilter* Make(QWidget* target);

    /// A filter that does the same bookkeeping from ordinary mouse moves and leaves the pointer
    /// alone: the drag ends at the screen's edge.
    static MouseWrapDragFilter* MakeDummy(QWidget* target);

    /// Ends a drag that is in progress: the pointer is given back. ended() still follows, unless it
    /// is the target that goes.
    ~MouseWrapDragFilter() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

    /// A disabled filter starts no drag; one that is in progress goes on.
    void setEnabled(bool enabled) { m_enabled = enabled; }
    bool isEnabled() const { return m_enabled; }

    bool isDragging() const { return m_dragging; }

    /// Ends the drag as a release does; nothing when there is none.
    void forceEndDrag();

    /// Reports a movement once it has reached QApplication::startDragDistance() (|x| + |y|), and
    /// from then on all, measured from where it reached it. Ignored unless it is finite.
    ///
    /// @param a         handed on as it is
    /// @param movement  since the press, in logical pixels
    void commitDrag(const QPointF& a, const QPointF& movement);

Q_SIGNALS:
    void started(); ///< before the first dragged()
    void ended();   ///< once for each started()

    /// @param current     the global position that the pointer would have on an endless screen; of
    ///                    raw input, the sum of its motions in device units
    /// @param totalDelta  logical pixels since the drag distance was reached, not since the press
    void dragged(const QPointF& current, const QPointF& totalDelta);

protected:
    explicit MouseWrapDragFilter(QWidget* target);

    /// Called for a press, before started(); runs no code of others. @param position global, whole
    /// logical pixels
    virtual void dragBegins(const QPointF& position);
    /// Called for each mouse move of the drag; commits it.
    virtual void pointerMoved(const QPointF& position);
    /// Called at the end of a drag, before ended(); the target may be gone. A class that implements
    /// it calls forceEndDrag() in its destructor.
    virtual void dragEnds() {}

    /// Whether this drag has gone the drag distance, with this movement or before.
    bool passesThreshold(const QPointF& movement);

    QWidget* target() const { return m_target; }
    /// Whether a mouse or the like pressed, not a pen or a finger, whose positions are absolute.
    bool isMouseDrag() const { return m_mouseDrag; }
    /// Whether a drag that ends puts the pointer back. Not when a press elsewhere ends it: then the
    /// pointer is where the user means it to be.
    bool pointerGoesBack() const { return m_pointerGoesBack; }
    /// Of the press, global, whole logical pixels.
    QPointF startPosition() const { return m_startPosition; }

private:
    void handle(QEvent& event);
    void beginDrag(const QMouseEvent& press);
    /// Ends the drag that is in progress, if any, for a press on this target. Slots run.
    /// @return whether the press may still begin one
    bool endFormerDrag();
    void leaveBy(GestureDoors::Door door);
    /// Ends the drag without a signal.
    void abandonDrag();

    bool m_dragging = false;
    bool m_thresholdPassed = false;
    QPointF m_thresholdOffset;
    QPointer<QWidget> m_target;
    const QMetaObject* m_class = nullptr; ///< of the target, when the drag began
    bool m_enabled = true;
    QPointF m_startPosition;

protected:
    QPointF m_current;

private:
    bool m_mouseDrag = true;
    bool m_pointerGoesBack = true;
    GestureDoors m_doors; ///< watched while dragging
};
