// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/connections/ConnectionStyle.h>
#include <MorrantUI/controls/gestures/GestureDoors.h>
#include <MorrantUI/morrantui_export.h>

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QVariant>
#include <QWidget>

#include <memory>

class ConnectionLine;
class ConnectionReceiver;
class ConnectionTarget;
class QMouseEvent;

namespace ui {
class OverrideCursor;
}

/// A connection being dragged from something to whatever can be connected with it: one gesture,
/// from its start to its end, drawn as a line to the pointer over all windows of the application.
///
/// While it runs the mouse belongs to it, wherever it was started: it follows the pointer, tells
/// the receiver below it (see ConnectionReceiver) and ends with the release of the mouse button.
/// Escape, the press of another button, the death of its source and every door of where it started
/// (see GestureDoors) cancel it, as does a start of the next: only one runs at a time, and the end
/// of the application. It deletes itself when its line has gone after the end; keep it in a
/// QPointer.
class MORRANT_UI_EXPORT ConnectionInstance : public QObject
{
    Q_OBJECT

public:
    enum class State
    {
        Running,
        Dropped,   ///< on a receiver that accepted it
        Missed,    ///< let go over nothing that accepted it
        Cancelled, ///< by anything else
    };
    Q_ENUM(State)

    /// Starts a connection, usually with the mouse button held down, and cancels a running one.
    /// @param from where the line begins; it must be visible and enabled and live on
    /// @param start where in `from`, in its coordinates; the line follows when `from` moves, also
    ///     with what it lies in
    /// @param source what is to be connected, for the receivers; null stands for `from`
    /// @param userData says more about the source, such as the name of the attribute
    /// @return the connection, which belongs to itself;
    ///     null for a `from` that cannot start one
    static ConnectionInstance* start(
        QWidget* from, QPoint start, QObject* source = nullptr, const QVariant& userData = {});

    /// The connection being dragged, or null.
    static ConnectionInstance* current();

    /// A running connection is cancelled.
    ~ConnectionInstance() override;

    State state() const { return m_state; }
    bool isRunning() const { return m_state == State::Running; }

    /// What is to be connected. Its death cancels the connection and leaves null.
    QObject* source() const { return m_source; }
    QVariant userData() const { return m_userData; }
    /// Where the drag started; null after its death.
    QWidget* sourceWidget() const { return m_from; }

    /// Both ends of the line, in global logical pixels. The end is the pointer.
    QPoint startPosition() const;
    QPoint endPosition() const { return m_end; }

    /// The receiver below the pointer and the widget that it is registered for; null without one.
    ConnectionReceiver* receiver() const;
    QWidget* receiverWidget() const;

    /// How the line looks from now on. Entering a receiver sets ConnectionStyle::Framed, leaving
    /// one ConnectionStyle::Line.
    void setDrawStyle(ConnectionStyle style);
    ConnectionStyle drawStyle() const;

    /// Whether a release here would connect. True on every enter; a receiver that wants nothing of
    /// this source says false in its onConnectionEnter() or onConnectionMove(), and is then left
    /// without a drop. False without a receiver.
    void setAccepted(bool accepted);
    bool isAccepted() const;

    /// Moves the end, as the pointer does. For hosts that drive a connection by other means.
    /// @param position global, logical pixels
    void moveTo(QPoint position);

    /// Ends the connection at the present end position, as the release does.
    void drop();

    /// Ends the connection without a drop; the receiver is left.
    void cancel();

Q_SIGNALS:
    /// The end has moved; the receiver has been told.
    void moved(QPoint endPosition);
    /// The drag is over, and everything of it has been told to the receiver. Comes exactly once, in
    /// the destructor at the latest; a connection that outlives the application does not tell it.
    void finished(ConnectionInstance::State state);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// How far it has come; state() tells how it ended.
    enum class Phase
    {
        Free,     ///< runs; no button was seen yet, as when a host drives it
        Held,     ///< runs; a button was seen held, so that a movement without one ends it
        Ending,   ///< is over, and the receiver is being told
        Reported, ///< finished() was emitted, and its slots may be at work
        Settled,  ///< everybody knows; only the line may still be seen
    };

    /// What has come between the picture and the windows below it.
    enum class Lag
    {
        None,
        Moved,    ///< something has changed its place; catchUp() is on its way
        Scrolled, ///< by the wheel: the receiver has to hear of the same place again
    };

    ConnectionInstance(QWidget* from, QPoint start, QObject* source, const QVariant& userData);

    bool handle(QObject* watched, QEvent* event);
    bool handleMouse(QMouseEvent* event);
    Lag lagFrom(const QObject* watched, const QEvent& event) const;
    void fallBehind(Lag lag);
    void catchUp();
    bool route();
    void enter(QWidget* widget);
    void leave();
    void end(State state);
    void tellEnd();
    void retireLine();
    void disposeWhenDone();
    void show();

    QPointer<QWidget> m_from;
    QPointer<QObject> m_source;
    QVariant m_userData;
    QPoint m_startInFrom;
    QPoint m_lastStart; ///< global, for a line that outlives where it started
    QPoint m_end;
    State m_state = State::Running;
    Phase m_phase = Phase::Free;
    Lag m_lag = Lag::None;
    std::unique_ptr<ConnectionTarget> m_target;   ///< never null
    ConnectionLine* m_line;                       ///< a child; null once the line has gone
    std::unique_ptr<ui::OverrideCursor> m_cursor; ///< while it runs
    GestureDoors m_doors;                         ///< of m_from, while it runs
};
