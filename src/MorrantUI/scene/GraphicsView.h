// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/gestures/GestureDoors.h>
#include <MorrantUI/morrantui_export.h>

#include <QCursor>
#include <QGraphicsView>
#include <QObjectList>
#include <QPointF>

#include <memory>
#include <optional>

namespace ui {
class OverrideCursor;
}
class EdgeScroller;

/// The base of the animation editors' views: no frame, an application-wide cursor while something
/// is dragged, panning by hand from any place, and one door through which every gesture ends that
/// lost the mouse.
///
/// The override cursor and the state of a gesture never outlive the pointer's leaving, the view's
/// being hidden or disabled, the loss of the focus or its window's, or the view itself.
class MORRANT_UI_EXPORT GraphicsView : public QGraphicsView
{
    Q_OBJECT

public:
    explicit GraphicsView(QWidget* parent = nullptr);
    ~GraphicsView() override;

    /// What of the scene the viewport covers, in scene units.
    QRectF getVisibleRect() const;

    /// Positive distances, in logical pixels, show what is farther right, under any layout
    /// direction: scroll bars run the other way from right to left.
    void scrollAcross(int pixels);

    /// What assistive tools find in the scene, in the order in which it is read: rows of keys,
    /// curves of points.
    virtual QObjectList listsForReaders() const { return {}; }

protected:
    /// Installs the application's override cursor, or changes the one that is installed.
    void changeMouse(const QCursor& cursor);
    /// Takes the override cursor away.
    void restoreMouse();
    bool hasOverrideCursor() const { return m_cursor != nullptr; }

    /// Lets the coming press pan the view, even when it is on an item that would take it.
    void startHandPan();
    /// Back to the rubber band, and to what the view gave its items before. Without a pan it only
    /// sets the mode.
    void endHandPan();

    /// Ends a rubber band where it is; what it has caught stays selected. @return whether there was
    /// one
    bool endRubberBand();

    /// Whether another button comes or goes while the left one holds a gesture, which it does not
    /// concern.
    static bool isBesideDrag(const QMouseEvent& event);

    /// Scrolls by itself while something is dragged at the viewport's edge or beyond it: the
    /// farther the faster, up to the scene's rectangle. A mouse movement is sent after each step,
    /// so that the drag follows. To be called with every movement of a drag; abandonGesture() ends
    /// it, too.
    /// @param event whose buttons are those of the drag
    void scrollAtEdge(const QMouseEvent& event, Qt::Orientations directions);
    void stopEdgeScroll(); ///< does nothing when none runs

    /// Hands a wheel event to QGraphicsView with a share of its distance, 0..1. What is less than
    /// Qt's least distance adds up.
    void scrollByShare(const QWheelEvent& event, double share);

    /// The mouse or the keyboard is lost in mid-gesture: everything held ends here. An override
    /// calls this one, which gives back cursor, pan and grab. The drag mode is that of before.
    virtual void abandonGesture();

    bool event(QEvent* event) override;
    /// Takes an event whose slots have deleted the view, so that Qt does not go on to its parents.
    bool viewportEvent(QEvent* event) override;

private:
    struct BeforePan
    {
        DragMode mode;
        bool isInteractive;
    };

    void watchDoors();

    std::unique_ptr<ui::OverrideCursor> m_cursor;
    GestureDoors m_doors;
    std::optional<BeforePan> m_beforePan; ///< while a pan has its own mode
    QPointF m_pixelRest;                  ///< of the wheel's distances, not scrolled yet
    QPointF m_angleRest;
    EdgeScroller* m_edgeScroller = nullptr; ///< a child, made when first needed
};
