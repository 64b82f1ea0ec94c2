#include "MorrantUI/controls/gestures/MouseWrapDragFilter.h"

#include "MorrantUI/controls/gestures/PlainDragFilter.h"
#include "MorrantUI/controls/gestures/RawDragFilter.h"
#include "MorrantUI/controls/gestures/WarpDragFilter.h"
#include "MorrantUI/controls/gestures/gesturedoors.h"
#include "MorrantUI/platform/PointerSystem.h"
#include <MorrantUI/controls/gestures/pointermath.h>

#include <QApplication>
#include <QMouseEvent>

#include <cmath>

namespace {

/// The filter whose drag began last: there is one pointer, and one drag.
QPointer<MouseWrapDragFilter> gLatest;

bool isFromMouse(const QMouseEvent& event)
{
    switch (event.deviceType()) {
    case QInputDevice::DeviceType::TouchScreen:
    case QInputDevice::DeviceType::Stylus:
    case QInputDevice::DeviceType::Airbrush:
    case QInputDevice::DeviceType::Puck: return false;
    default: break;
    }
    // Windows makes mouse events of pens and fingers, and names the mouse as their device.
    return event.source() != Qt::MouseEventSynthesizedBySystem
           && event.source() != Qt::MouseEventSynthesizedByQt;
}

QPointF wholePixels(const QMouseEvent& event)
{
    return QPointF(event.globalPosition().toPoint());
}

} // namespace

/// Sees what goes on in the rest of the application during a drag.
class MouseWrapDragFilter::Doors : public QObject
{
public:
    explicit Doors(MouseWrapDragFilter& filter)
        : m_filter(filter)
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (!isDoor(*watched, *event)) {
            return false;
        }
        const QPointer<QObject> receiver(watched);
        m_filter.forceEndDrag(); // deletes this
        return receiver.isNull();
    }

private:
    bool isDoor(const QObject& watched, const QEvent& event) const
    {
        switch (event.type()) {
        case QEvent::ApplicationDeactivate: return true;
        case QEvent::Show: // a popup takes the mouse
            return watched.isWidgetType()
                   && static_cast<const QWidget&>(watched).windowType() == Qt::Popup;
        case QEvent::MouseButtonRelease: // somebody else has taken it
            return watched.isWidgetType() && &watched != m_filter.m_target
                   && static_cast<const QMouseEvent&>(event).button() == Qt::LeftButton;
        default: return false;
        }
    }

    MouseWrapDragFilter& m_filter;
};

MouseWrapDragFilter* MouseWrapDragFilter::Make(QWidget* target)
{
    using Drive = morrant::native::PointerSystem::Drive;
    if (!target) {
        return nullptr;
    }
    switch (morrant::native::PointerSystem::instance().drive()) {
    case Drive::RawInput: return new RawDragFilter(target);
    case Drive::Warps: return new WarpDragFilter(target);
    case Drive::Moves: break;
    }
    return MakeDummy(target);
}

MouseWrapDragFilter* MouseWrapDragFilter::MakeDummy(QWidget* target)
{
    return target ? new PlainDragFilter(target) : nullptr;
}

MouseWrapDragFilter::MouseWrapDragFilter(QWidget* target)
    : QObject(target)
    , m_target(target)
{
    target->installEventFilter(this);
    // Without a signal: those who listen may be the target's own class, which is gone already.
    connect(target, &QObject::destroyed, this, &MouseWrapDragFilter::abandonDrag);
}

MouseWrapDragFilter::~MouseWrapDragFilter() = default;

bool MouseWrapDragFilter::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_target) {
        return QObject::eventFilter(watched, event);
    }
    // A slot may delete the filter, or the target, to which nothing can be delivered then.
    const QPointer<QWidget> target = m_target;
    handle(*event);
    return target.isNull();
}

void MouseWrapDragFilter::handle(QEvent& event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress: {
        const auto& press = static_cast<const QMouseEvent&>(event);
        if (press.button() == Qt::LeftButton && m_enabled && m_target->isEnabled()) {
            beginDrag(press);
        }
        break;
    }
    case QEvent::MouseMove:
        if (m_dragging) {
            pointerMoved(wholePixels(static_cast<const QMouseEvent&>(event)));
        }
        break;
    case QEvent::MouseButtonRelease: forceEndDrag(); break;
    default:
        if (ui::endsGesture(*m_target, event)) {
            forceEndDrag();
        }
        break;
    }
}

void MouseWrapDragFilter::beginDrag(const QMouseEvent& press)
{
    if (!endFormerDrag()) {
        return;
    }
    gLatest = this;
    m_dragging = true;
    m_thresholdPassed = false;
    m_thresholdOffset = {};
    m_mouseDrag = isFromMouse(press);
    m_pointerGoesBack = true;
    m_startPosition = wholePixels(press);
    m_doors = std::make_unique<Doors>(*this);
    dragBegins(m_startPosition);
    Q_EMIT started();
}

bool MouseWrapDragFilter::endFormerDrag()
{
    const QPointer<MouseWrapDragFilter> self(this);
    if (gLatest) { // of this filter or another: its release got lost
        gLatest->m_pointerGoesBack = false;
        gLatest->forceEndDrag();
    }
    const bool isFree = !gLatest || !gLatest->m_dragging; // a slot may have begun one
    return self && isFree && m_enabled && m_target && m_target->isEnabled();
}

void MouseWrapDragFilter::abandonDrag()
{
    if (!m_dragging) {
        return;
    }
    m_dragging = false;
    m_thresholdPassed = false;
    m_thresholdOffset = {};
    m_doors.reset();
    dragEnds();
}

void MouseWrapDragFilter::forceEndDrag()
{
    if (m_dragging) {
        abandonDrag();
        Q_EMIT ended();
    }
}

bool MouseWrapDragFilter::passesThreshold(const QPointF& movement)
{
    if (!m_thresholdPassed && ui::reachesDragDistance(movement, QApplication::startDragDistance()))
    {
        m_thresholdPassed = true;
        m_thresholdOffset = movement;
    }
    return m_thresholdPassed;
}

void MouseWrapDragFilter::commitDrag(const QPointF& a, const QPointF& movement)
{
    const bool isFinite = std::isfinite(movement.x()) && std::isfinite(movement.y());
    if (isFinite && passesThreshold(movement)) {
        Q_EMIT dragged(a, movement - m_thresholdOffset);
    }
}
