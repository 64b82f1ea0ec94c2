#include "MorrantUI/controls/connections/ConnectionInstance.h"

#include "MorrantUI/controls/connections/ConnectionLine.h"
#include "MorrantUI/controls/gestures/gesturedoors.h"
#include <MorrantUI/controls/connections/ConnectionReceiver.h>
#include <MorrantUI/theme/OverrideCursor.h>
#include <MorrantUI/theme/events.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QStyle>
#include <QVariantAnimation>
#include <QWindow>

#include <algorithm>
#include <memory>
#include <optional>
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

/// The press that cancels a connection must not open a menu, which comes with the press on some
/// systems and with the release on others.
void swallowNextContextMenu()
{
    auto filter = std::make_shared<QPointer<QObject>>();
    *filter = ui::installEventFilter(
        qApp,
        [filter](QObject* watched, QEvent* event) {
            const bool isMenu =
                event->type() == QEvent::ContextMenu
                && static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Mouse;
            const bool isNextGesture =
                watched->isWidgetType()
                && (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress);
            if ((isMenu || isNextGesture) && *filter != nullptr) {
                (*filter)->deleteLater();
                filter->clear();
                return isMenu;
            }
            return false;
        },
        qApp);
}

} // namespace

/// The receiver that a connection has entered and not left yet. Either half may die at any time.
class ConnectionInstance::ReceiverUnderPointer
{
public:
    void set(QWidget* widget)
    {
        m_widget = widget;
        m_receiver = ConnectionReceiver::of(widget);
        m_alive = m_receiver != nullptr ? m_receiver->m_alive : std::weak_ptr<bool>();
    }

    ConnectionReceiver* get() const { return m_alive.expired() ? nullptr : m_receiver; }
    QWidget* widget() const { return get() != nullptr ? m_widget.data() : nullptr; }
    bool is(const QWidget* other) const
    {
        return widget() == other && get() == ConnectionReceiver::of(other);
    }

private:
    QPointer<QWidget> m_widget;
    ConnectionReceiver* m_receiver = nullptr;
    std::weak_ptr<bool> m_alive;
};

struct ConnectionInstance::Drawing
{
    ConnectionLine line;
    std::optional<ui::OverrideCursor> cursor; ///< while the drag runs
};

ConnectionInstance* ConnectionInstance::start(
    QWidget* from, QPoint start, QObject* source, const QVariant& userData)
{
    const QPointer<QWidget> guardedFrom = from;
    const QPointer<QObject> guardedSource = source != nullptr ? source : from;
    if (gCurrent != nullptr) {
        gCurrent->cancel(); // whose slots may do anything, such as starting one of their own
    }
    if (gCurrent != nullptr || guardedFrom == nullptr || guardedSource == nullptr
        || !guardedFrom->isVisible() || !guardedFrom->isEnabled())
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
    , m_held(QGuiApplication::mouseButtons() != Qt::NoButton)
    , m_receiver(std::make_unique<ReceiverUnderPointer>())
    , m_drawing(std::make_unique<Drawing>())
{
    gCurrent = this;
    m_drawing->cursor.emplace(Qt::CrossCursor);
    connect(from, &QObject::destroyed, this, &ConnectionInstance::cancel);
    connect(source, &QObject::destroyed, this, &ConnectionInstance::cancel);
    connect(
        qApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState now) {
            if (now != Qt::ApplicationActive) {
                cancel();
            }
        });
    connect(qApp, &QCoreApplication::aboutToQuit, this, &ConnectionInstance::cancel);
    qApp->installEventFilter(this);
}

ConnectionInstance::~ConnectionInstance()
{
    cancel();
    if (QCoreApplication::instance() != nullptr) {
        leave(); // still owed when a drop deletes us
        tellEnd();
    }
}

QPoint ConnectionInstance::startPosition() const
{
    return m_from != nullptr ? m_from->mapToGlobal(m_startInFrom) : m_lastStart;
}

ConnectionReceiver* ConnectionInstance::receiver() const
{
    return m_receiver->get();
}

QWidget* ConnectionInstance::receiverWidget() const
{
    return m_receiver->widget();
}

void ConnectionInstance::setDrawStyle(ConnectionStyle style)
{
    m_drawStyle = style;
    show();
}

void ConnectionInstance::setAccepted(bool accepted)
{
    m_accepted = accepted;
    show();
}

bool ConnectionInstance::isAccepted() const
{
    return m_accepted && receiver() != nullptr;
}

void ConnectionInstance::moveTo(QPoint position)
{
    if (!isRunning() || (position == m_end && m_receiver->is(ConnectionReceiver::widgetAt(m_end))))
    {
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
    return isKept || target == nullptr; // a receiver may have deleted it
}

/// @return whether the event is kept from its object
bool ConnectionInstance::handle(QObject* watched, QEvent* event)
{
    if (endsWithSource(watched, *event)) {
        cancel();
        return false;
    }
    if (isEscape(*event)) {
        event->accept(); // an overridden shortcut comes back as a key press
        if (event->type() == QEvent::KeyPress) {
            cancel();
        }
        return true;
    }
    if (comesBetween(watched, *event) && !std::exchange(m_isBehind, true)) {
        QMetaObject::invokeMethod(this, &ConnectionInstance::catchUp, Qt::QueuedConnection);
    }
    const bool isMouse = watched->isWidgetType() && event->isPointerEvent();
    return isMouse && handleMouse(dynamic_cast<QMouseEvent*>(event));
}

bool ConnectionInstance::endsWithSource(const QObject* watched, const QEvent& event) const
{
    if (m_from == nullptr) {
        return false;
    }
    const QWidget* const window = m_from->window();
    const bool isConcerned =
        watched == m_from || watched == window || watched == window->windowHandle();
    return isConcerned && ui::endsGesture(*m_from, event);
}

bool ConnectionInstance::handleMouse(QMouseEvent* event)
{
    if (event == nullptr) {
        return false;
    }
    const QPoint position = event->globalPosition().toPoint();
    switch (event->type()) {
    case QEvent::MouseMove:
        if (m_held && event->buttons() == Qt::NoButton) {
            cancel(); // the release went to somebody else
            return false;
        }
        m_held = m_held || event->buttons() != Qt::NoButton;
        moveTo(position);
        return true;
    case QEvent::MouseButtonRelease: {
        // The widget that was pressed has to hear of its release, if it still exists.
        const QPointer<ConnectionInstance> self(this);
        moveTo(position);
        if (self != nullptr) {
            drop();
        }
        return false;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (event->button() == Qt::RightButton) {
            swallowNextContextMenu();
        }
        cancel();
        return true;
    default: return false;
    }
}

/// Whether an event moves what the line begins at, or what is below its end, without the pointer.
bool ConnectionInstance::comesBetween(const QObject* watched, const QEvent& event)
{
    if (event.type() == QEvent::Wheel) {
        m_scrolled = true;
        return true;
    }
    const bool isMove = event.type() == QEvent::Move || event.type() == QEvent::Resize;
    if (!isMove || !watched->isWidgetType()) {
        return false;
    }
    const auto* const moved = static_cast<const QWidget*>(watched);
    const auto carries = [moved](const QWidget* widget) {
        return widget != nullptr && (moved == widget || moved->isAncestorOf(widget));
    };
    return carries(m_from) || carries(receiverWidget());
}

/// Shows the line where everything has come to by now. A receiver that moves by itself is not told
/// of the same place again, or one that scrolls when it is told would never stop.
void ConnectionInstance::catchUp()
{
    m_isBehind = false;
    const bool scrolled = std::exchange(m_scrolled, false);
    if (!isRunning()) {
        return;
    }
    const bool isTold = scrolled || !m_receiver->is(ConnectionReceiver::widgetAt(m_end));
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
    if (!m_receiver->is(widget)) {
        leave();
        if (self != nullptr && isRunning() && receiver() == nullptr) {
            enter(widget);
        }
    }
    if (self != nullptr && isRunning() && receiver() != nullptr) {
        receiver()->onConnectionMove(this);
    }
    return self != nullptr && isRunning();
}

void ConnectionInstance::enter(QWidget* widget)
{
    m_receiver->set(widget);
    if (ConnectionReceiver* const entered = receiver()) {
        m_accepted = true;
        m_drawStyle = ConnectionStyle::Framed;
        entered->onConnectionEnter(this);
    }
}

void ConnectionInstance::leave()
{
    ConnectionReceiver* const left = receiver();
    m_receiver->set(nullptr);
    m_accepted = false;
    m_drawStyle = ConnectionStyle::Line;
    if (left != nullptr) {
        left->onConnectionLeave(this);
    }
}

void ConnectionInstance::end(State state)
{
    if (!isRunning()) {
        return;
    }
    m_state = state;
    gCurrent = nullptr;
    if (QCoreApplication::instance() == nullptr) {
        return; // the application deletes us as the last of all, when there is nobody to tell
    }
    qApp->removeEventFilter(this);
    m_drawing->cursor.reset();
    retract();

    const QPointer<ConnectionInstance> self(this);
    if (state == State::Dropped) {
        receiver()->onConnectionDrop(this);
    }
    if (self != nullptr) {
        leave();
    }
    if (self != nullptr) {
        tellEnd();
    }
    if (self != nullptr) {
        m_told = true;
        disposeWhenDone();
    }
}

void ConnectionInstance::tellEnd()
{
    if (!std::exchange(m_reported, true)) {
        Q_EMIT finished(m_state);
    }
}

/// Draws the line back to where it came from, or lets it fade where it connects.
void ConnectionInstance::retract()
{
    const int duration = qApp->style()->styleHint(QStyle::SH_Widget_Animation_Duration);
    auto* animation = new QVariantAnimation(this);
    animation->setDuration(std::max(0, duration));
    animation->setStartValue(0.0);
    animation->setEndValue(1.0);
    animation->setEasingCurve(QEasingCurve::OutCubic);
    connect(animation, &QVariantAnimation::valueChanged, this, [this](const QVariant& share) {
        m_shareGone = share.toDouble();
        show();
    });
    connect(animation, &QVariantAnimation::finished, this, [this] {
        m_retired = true;
        m_drawing.reset();
        disposeWhenDone();
    });
    animation->start();
}

/// A receiver may keep us in a dialog of its own for longer than the line takes to go.
void ConnectionInstance::disposeWhenDone()
{
    if (m_told && m_retired) {
        deleteLater();
    }
}

void ConnectionInstance::show()
{
    if (m_drawing == nullptr) {
        return;
    }
    m_lastStart = startPosition();
    if (m_state == State::Dropped) { // as it was, frame and all
        ConnectionPicture fading = m_drawing->line.picture();
        fading.strength = 1.0 - m_shareGone;
        m_drawing->line.show(fading);
        return;
    }
    ConnectionPicture picture;
    picture.start = m_lastStart;
    picture.end = m_end + (picture.start - m_end) * m_shareGone;
    picture.style = m_drawStyle;
    picture.accepted = isAccepted();
    const QWidget* const target = isRunning() ? receiverWidget() : nullptr;
    if (target != nullptr && m_drawStyle != ConnectionStyle::Line) {
        picture.target = visibleArea(*target);
    }
    if (m_drawing->cursor) {
        m_drawing->cursor->change(cursorFor(picture));
    }
    m_drawing->line.show(picture);
}
