// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <optional>

class QMouseEvent;

/// What a gesture hangs on, beside its widget.
struct GestureHold
{
    Qt::MouseButton button = Qt::LeftButton; ///< held down all the time; NoButton for none
    /// Ends at a mouse move that says that the button is up. Qt delivers those only to widgets with
    /// setMouseTracking(true).
    bool moves = true;
    /// A host replays moves, which need not tell of buttons: only the system's count.
    bool replays = false;
    bool focus = false; ///< ends with the keyboard focus, as of a held key
    bool popups = true; ///< ends when a menu or the like opens
};

/// Watches, for one widget, every way in which a gesture can end without the release of its button,
/// and calls back once, whichever it is. A gesture that forgets one of them leaves a pointer
/// hidden, a cursor overridden or an edit without an end.
///
/// Make it a member of what has the gesture, begin to watch with the press, and let the callback
/// and the release end the gesture in the same function:
///
///     void Knob::mousePressEvent(QMouseEvent* event)
///     {
///         if (event->button() == Qt::LeftButton) {
///             m_before = m_angle;
///             m_doors.watch(this, [this](GestureDoors::Door) { endTurn(); });
///         }
///     }
///
///     void Knob::mouseMoveEvent(QMouseEvent* event)
///     {
///         if (m_doors.isWatching()) {
///             turnTo(event->position());
///         }
///     }
///
///     void Knob::mouseReleaseEvent(QMouseEvent*) { endTurn(); }
///
///     void Knob::endTurn()
///     {
///         m_doors.stop();
///         if (m_angle != std::exchange(m_before, m_angle)) {
///             Q_EMIT turned(m_angle);
///         }
///     }
///
/// Graphics views and other scroll areas watch their viewport(), which is what has the mouse.
///
/// No event is consumed. Everything runs on the GUI thread; nothing is watched without a
/// QApplication.
class MORRANT_UI_EXPORT GestureDoors : public QObject
{
    Q_OBJECT

public:
    enum class Door
    {
        Hidden,              ///< as by another parent, or another page in front
        Disabled,            ///< the widget, or what it lies in
        WindowInactive,      ///< its window has lost the focus
        WindowBlocked,       ///< by a modal dialog
        MouseLost,           ///< the button came up elsewhere, or is up already
        FocusLost,           ///< where GestureHold::focus asks for it
        PopupOpened,         ///< where GestureHold::popups asks for it; a popup takes the mouse
        ApplicationInactive, ///< another program is in front
        Destroyed,           ///< the widget is a mere QObject by now: ask it nothing
    };
    Q_ENUM(Door)

    using Callback = std::function<void(Door)>;

    explicit GestureDoors(QObject* parent = nullptr);
    /// Stops without calling back: a widget whose member this is has nobody left to tell.
    ~GestureDoors() override;

    /// Watches a widget until one of its doors opens, which stops it and then calls back, once; or
    /// until stop(). Replaces what was watched before, without a call. Ignored without a widget.
    ///
    /// The callback may delete this object, the widget, or anything else, and may watch again. It
    /// comes before the event reaches whom it is meant for.
    void watch(QWidget* widget, Callback leave, GestureHold hold = {});

    /// Stops watching without a call; nothing when it does not.
    void stop();
    bool isWatching() const { return m_leave != nullptr; }

    /// Whether a gesture may begin: the widget is visible and enabled, no modal dialog blocks it,
    /// and the application is the active one. For those that begin without a press, where a door
    /// may be open from the start, and no event would tell of it.
    static bool mayBegin(const QWidget& widget);

    /// Whether a modal dialog keeps mouse and keys from a widget. Not from what was opened from the
    /// dialog, by parent or transient parent.
    static bool isBlockedByDialog(const QWidget& widget);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::optional<Door> doorOf(const QObject& receiver, const QEvent& event) const;
    bool concernsWindow(const QObject& receiver) const;
    bool losesButton(const QObject& receiver, const QMouseEvent& event) const;
    void leaveBy(Door door);

    QPointer<QWidget> m_widget;
    Callback m_leave; ///< null while nothing is watched
    GestureHold m_hold;
};
