// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QObject>
#include <QPoint>
#include <QPointer>

#include <memory>

class DockableWindow;
class QContextMenuEvent;
class QMouseEvent;

namespace ui::docking {
class DragOrigin;
}

/// Moves a dockable window by its header: the event filter of the widget that the user grabs.
///
/// A press starts a gesture, which follows the mouse through a filter on the application until any
/// button is released. Past the system's drag distance the window is half transparent, the window
/// under the pointer shows its drop zones, and a docked window is torn out as soon as the pointer
/// leaves the top-level window it is in. A click gives the window the focus, a double click makes
/// it float or docks it back. The release docks it in the highlighted zone; Escape puts it back
/// where it came from, with the sizes around it, and is passed on. A maximised window that is moved
/// takes its usual size under the pointer; one that was torn out ends up as a whole on the screen
/// that the pointer is on.
///
/// The operations below are the steps of that gesture. They read the global cursor position, and
/// do nothing once the window is gone.
class MORRANT_UI_EXPORT DockableDragHandler : public QObject
{
    Q_OBJECT

public:
    /// @param window the window to move, which owns the handler
    explicit DockableDragHandler(DockableWindow* window);
    ~DockableDragHandler() override;

    /// Consumes context-menu requests; never the press that starts a drag.
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Shows the menu with "Undock", "Show" and "Close" at the event's position and waits for it.
    void contextMenuEvent(QContextMenuEvent* event);

    /// Off, no drag begins; the context menu stays. Ends a drag in progress. On by default.
    void setEnabled(bool enabled);
    bool isEnabled() const { return m_state != State::Locked; }
    bool isDragging() const { return m_state == State::Dragging; }
    /// Whether Escape would still put the window back, or is about to.
    bool mayTakeBack() const { return m_origin != nullptr; }

    /// Remembers where in the window the pointer is.
    void saveStartPosition();
    /// Begins the drag once the pointer has moved the system's drag distance from the start.
    /// @return whether a drag is in progress now
    bool beginDragging();
    void endDragging(); ///< the window stays where it is
    /// Half while dragging, full otherwise.
    void updateWindowOpacity();

    /// The window at the pointer, below the dragged one, that would take it: never a nested group,
    /// and the tab group in place of a panel inside it. Null if there is none.
    DockableWindow* windowUnderMouse();
    /// Lets the window under the pointer show its drop zones, and only that one.
    void updateHoverWindow();
    /// Keeps the grabbed point under the pointer, unless the pointer is still over the top-level
    /// window that the dragged one is docked in.
    void moveIfFloating();
    /// Docks the window in the zone that is highlighted, if one is, and tidies the group that it
    /// came from.
    void dockInHoverWindow();

private:
    enum class State
    {
        Locked, ///< switched off
        Idle,
        Pressed,  ///< the pointer has not gone the drag distance yet
        Dragging, ///< the window is docked still, or follows the pointer
        Released, ///< over, but for the pressed widget's copy of the release
    };
    enum class Ending
    {
        Drop,
        Leave,    ///< as a release over no zone
        TakeBack, ///< as if it had never begun
    };

    bool applicationEvent(QObject* watched, QEvent* event);
    bool mouseMoved(const QMouseEvent& event);
    bool mouseReleased(QObject* watched, const QMouseEvent& event);
    void pressed(const QMouseEvent& event);
    void startGesture();
    void finish(Ending ending, State rest = State::Idle);
    void tearOut();
    void takeBack();
    DockableWindow* leaveHoverWindow();
    DockableWindow* hoverWindow() const;

    QPointer<DockableWindow> m_window;
    State m_state = State::Idle;
    bool m_pressedAgain = false; ///< a double click, so far
    bool m_replayed = false;     ///< the press, by a host; the system's moves know nothing of it
    QPoint m_startPosition;      ///< in the window
    std::unique_ptr<ui::docking::DragOrigin> m_origin; ///< of the last drag
    QPointer<QObject> m_hoverWindow; ///< a dockable window, unless it is being destroyed
    QPointer<QObject> m_gesture;     ///< the application filter, from press to release
};
