// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/connections/ConnectionInstance.h"

#include "MorrantUI/controls/connections/ConnectionLine.h"
#include "MorrantUI/controls/connections/ConnectionTarget.h"
#include "MorrantUI/controls/gestures/contextmenus.h"
#include <MorrantUI/controls/connections/ConnectionReceiver.h>
#include <MorrantUI/theme/OverrideCursor.h>
#include <MorrantUI/theme/events.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>
#include <utility>

namespace {

ConnectionInstance* gCurrent = nullptr;

/// The visible part of a widget, global.
QRect visibleArea(const QWidget& widget)
{
    const QRect part = widget.visibleRegion().boundingRect();
    return {widget.mapToGlobal(part.topLeft()), part.size()};
}

QCursor cursorFor(const ConnectionPicture& picture)
{
    if (picture.isRefused()) {
        return Qt::ForbiddenCursor;
    }
    return picture.accepted ? Qt::DragLinkCursor : Qt::CrossCursor;
}

bool isEscape(const QEvent& event)
{
    const bool isKey = event.type() == QEvent::KeyPress || event.type() == QEvent::ShortcutOverride;
    return isKey && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
}

} // namespace

ConnectionInstance* ConnectionInstance::start(
    QWidget* from, QPoint start, QObject* source, const QVariant& userData)
{
    const QPointer<QWidget> guardedFrom = from;
    const QPointer<QObject> guardedSource = source ? source : from;
    if (gCurrent) {
        gCurrent->cancel(); // whose slots may do anything, such as starting one of their own
    }
    if (gCurrent || !guardedFrom || !guardedSource || !guardedFrom->isVisible()
        || !guardedFrom->isEnabled())
    {
        return nullptr;
    }
    return new ConnectionInstance(from, start, guardedSource, userData);
}

ConnectionInstance* ConnectionInstance::current()
{
    return gCurrent;
}

ConnectionInstance::ConnectionInstance(
    QWidget* from, QPoint start, QObject* source, const QVariant& userData)
    : QObject(QCoreApplication::instance()) // should the application end in the middle of it
    , m_from(from)
    , m_source(source)
    , m_userData(userData)
    , m_startInFrom(start)
    , m_lastStart(from->mapToGlobal(start))
    , m_end(m_lastStart)
    , m_phase(QGuiApplication::mouseButtons() != Qt::NoButton ? Phase::Held : Phase::Free)
    , m_target(std::make_unique<ConnectionTarget>())
    , m_line(new ConnectionLine(m_lastStart, this))
    , m_cursor(std::make_unique<ui::OverrideCursor>(Qt::CrossCursor))
{
    gCurrent = this;
    connect(source, &QObject::destroyed, this, &ConnectionInstance::cancel);
    connect(qApp, &QCoreApplication::aboutToQuit, this, &ConnectionInstance::cancel);
    qApp->installEventFilter(this);
    // Of the mouse it knows more than the doors, since it has all of it.
    const auto leave = [this](GestureDoors::Door) { cancel(); };
    m_doors.watch(from, leave, {.button = Qt::NoButton});
}

ConnectionInstance::~ConnectionInstance()
{
    cancel();
    if (m_phase == Phase::Ending && QCoreApplication::instance()) {
        leave(); // still owed when a drop deletes us
        tellEnd();
    }
}

QPoint ConnectionInstance::startPosition() const
{
    return m_from ? m_from->mapToGlobal(m_startInFrom) : m_lastStart;
}

ConnectionReceiver* ConnectionInstance::receiver() const
{
    return m_target->receiver();
}

QWidget* ConnectionInstance::receiverWidget() const
{
    return m_target->widget();
}

void ConnectionInstance::setDrawStyle(ConnectionStyle style)
{
    m_target->style = style;
    show();
}

ConnectionStyle ConnectionInstance::drawStyle() const
{
    return m_target->style;
}

void ConnectionInstance::setAccepted(bool accepted)
{
    m_target->accepts = accepted;
    show();
}

bool ConnectionInstance::isAccepted() const
{
    return m_target->isAccepting();
}

void ConnectionInstance::moveTo(QPoint position)
{
    if (!isRunning() || (position == m_end && m_target->is(ConnectionReceiver::widgetAt(m_end)))) {
        return;
    }
    m_end = position;
    if (route()) {
        show();
        Q_EMIT moved(m_end);
    }
}

void ConnectionInstance::drop()
{
    // What is below a resting pointer may have scrolled: the receiver hears of the place again.
    if (isRunning() && route()) {
        end(isAccepted() ? State::Dropped : State::Missed);
    }
}

void ConnectionInstance::cancel()
{
    end(State::Cancelled);
}

bool ConnectionInstance::eventFilter(QObject* watched, QEvent* event)
{
    const QPointer<QObject> target = watched;
    const bool isKept = isRunning() && handle(watched, event);
    return isKept || !target; // a receiver may have deleted it
}

/// @return whether the event is kept from its object
bool ConnectionInstance::handle(QObject* watched, QEvent* event)
{
    if (isEscape(*event)) {
        event->accept(); // an overridden shortcut comes back as a key press
        if (event->type() == QEvent::KeyPress) {
            cancel();
        }
        return true;
    }
    fallBehind(lagFrom(watched, *event));
    const bool isMouse = watched->isWidgetType() && event->isPointerEvent();
    return isMouse && handleMouse(dynamic_cast<QMouseEvent*>(event));
}

bool ConnectionInstance::handleMouse(QMouseEvent* event)
{
    if (!event) {
        return false;
    }
    const QPoint position = event->globalPosition().toPoint();
    switch (event->type()) {
    case QEvent::MouseMove:
        if (event->buttons() != Qt::NoButton) {
            m_phase = Phase::Held;
        } else if (m_phase == Phase::Held) {
            cancel(); // the release went to somebody else
            return false;
        }
        moveTo(position);
        return true;
    case QEvent::MouseButtonRelease: {
        // The widget that was pressed has to hear of its release, if it still exists.
        const QPointer<ConnectionInstance> self(this);
        moveTo(position);
        if (self) {
            drop();
        }
        return false;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (event->button() == Qt::RightButton) {
            ui::swallowContextMenu();
        }
        cancel();
        return true;
    default: return false;
    }
}

/// Whether an event moves what the line begins at, or what is below its end, without the pointer.
ConnectionInstance::Lag ConnectionInstance::lagFrom(
    const QObject* watched, const QEvent& event) const
{
    if (event.type() == QEvent::Wheel) {
        return Lag::Scrolled;
    }
    const bool isMove = event.type() == QEvent::Move || event.type() == QEvent::Resize;
    if (!isMove || !watched->isWidgetType()) {
        return Lag::None;
    }
    const auto* const moved = static_cast<const QWidget*>(watched);
    const auto carries = [moved](const QWidget* widget) {
        return widget && (moved == widget || moved->isAncestorOf(widget));
    };
    return carries(m_from) || carries(receiverWidget()) ? Lag::Moved : Lag::None;
}

void ConnectionInstance::fallBehind(Lag lag)
{
    if (std::exchange(m_lag, std::max(m_lag, lag)) == Lag::None && lag != Lag::None) {
        QMetaObject::invokeMethod(this, &ConnectionInstance::catchUp, Qt::QueuedConnection);
    }
}

/// Shows the line where everything has come to by now. A receiver that moves by itself is not told
/// of the same place again, or one that scrolls when it is told would never stop.
void ConnectionInstance::catchUp()
{
    const Lag lag = std::exchange(m_lag, Lag::None);
    if (!isRunning()) {
        return;
    }
    const bool isTold = lag == Lag::Scrolled || !m_target->is(ConnectionReceiver::widgetAt(m_end));
    if (!isTold || route()) {
        show();
    }
}

/// Tells the receivers where the connection is.
/// @return whether it still runs; one of them may have ended or even deleted it
bool ConnectionInstance::route()
{
    const QPointer<ConnectionInstance> self(this);
    const QPointer<QWidget> widget = ConnectionReceiver::widgetAt(m_end);
    if (!m_target->is(widget)) {
        leave();
        if (self && isRunning() && !receiver()) {
            enter(widget);
        }
    }
    if (self && isRunning() && receiver()) {
        receiver()->onConnectionMove(this);
    }
    return self && isRunning();
}

void ConnectionInstance::enter(QWidget* widget)
{
    *m_target = ConnectionTarget(widget);
    if (ConnectionReceiver* const entered = receiver()) {
        entered->onConnectionEnter(this);
    }
}

void ConnectionInstance::leave()
{
    ConnectionReceiver* const left = receiver();
    *m_target = ConnectionTarget();
    if (left) {
        left->onConnectionLeave(this);
    }
}

void ConnectionInstance::end(State state)
{
    if (!isRunning()) {
        return;
    }
    m_state = state;
    m_phase = Phase::Ending;
    gCurrent = nullptr;
    if (!QCoreApplication::instance()) {
        return; // the application deletes us as the last of all, when there is nobody to tell
    }
    qApp->removeEventFilter(this);
    m_doors.stop();
    m_cursor.reset();
    retireLine();

    const QPointer<ConnectionInstance> self(this);
    if (state == State::Dropped) {
        receiver()->onConnectionDrop(this);
    }
    if (self) {
        leave();
    }
    if (self) {
        tellEnd();
    }
    if (self) {
        m_phase = Phase::Settled;
        disposeWhenDone();
    }
}

void ConnectionInstance::tellEnd()
{
    m_phase = Phase::Reported;
    Q_EMIT finished(m_state);
}

void ConnectionInstance::retireLine()
{
    connect(m_line, &ConnectionLine::gone, this, [this] {
        std::exchange(m_line, nullptr)->deleteLater();
        disposeWhenDone();
    });
    if (m_state == State::Dropped) {
        m_line->fade();
    } else {
        m_line->drawBack([this] { return startPosition(); });
    }
}

/// A receiver may keep us in a dialog of its own for longer than the line takes to go.
void ConnectionInstance::disposeWhenDone()
{
    if (m_phase == Phase::Settled && !m_line) {
        deleteLater();
    }
}

void ConnectionInstance::show()
{
    if (!isRunning()) {
        return;
    }
    m_lastStart = startPosition();
    ConnectionPicture picture;
    picture.start = m_lastStart;
    picture.end = m_end;
    picture.style = m_target->style;
    picture.accepted = isAccepted();
    const QWidget* const target = receiverWidget();
    if (target && picture.style != ConnectionStyle::Line) {
        picture.target = visibleArea(*target);
    }
    m_cursor->change(cursorFor(picture));
    m_line->show(picture);
}
