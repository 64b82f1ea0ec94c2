// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/gestures/NativeMouseTracker.h"

#include "MorrantUI/log.h"
#include "MorrantUI/platform/PointerSystem.h"
#include "MorrantUI/platform/RawInputShare.h"

#include <QCoreApplication>

#include <utility>

using morrant::native::PointerSystem;
using morrant::native::RawInputShare;

NativeMouseTracker::NativeMouseTracker(QWidget* widget, QObject* parent)
    : QObject(parent)
    , m_widget(widget)
{}

NativeMouseTracker::~NativeMouseTracker()
{
    stopTracking();
}

bool NativeMouseTracker::startTracking()
{
    stopTracking();
    m_track = {};
    // Of the window: asking a child for its native window would make it have one.
    const WId window = m_widget ? m_widget->window()->internalWinId() : 0;
    if (window == 0 || !RawInputShare::instance().add(this, window)) {
        ui::log::debug("RegisterRawInputDevices() failed");
        return false;
    }
    m_tracking = true;
    QCoreApplication::instance()->installNativeEventFilter(this);
    return true;
}

void NativeMouseTracker::stopTracking()
{
    if (!std::exchange(m_tracking, false)) {
        return;
    }
    RawInputShare::instance().remove(this);
    if (auto* application = QCoreApplication::instance()) {
        application->removeNativeEventFilter(this);
    }
}

QPointF NativeMouseTracker::currentPosition()
{
    return morrant::native::pointerPosition().value_or(QPoint());
}

bool NativeMouseTracker::nativeEventFilter(
    const QByteArray& type, void* message, qintptr* /*result: null for input messages*/)
{
    PointerSystem::instance().readRawInput(
        type, message, [this](const ui::RawMouseRecord& record) { handle(record); });
    return false;
}

void NativeMouseTracker::handle(const ui::RawMouseRecord& record)
{
    const auto motion = ui::decodeRawMotion(record, m_track);
    if (!motion) {
        return;
    }
    if (motion->absolute) {
        const auto& system = PointerSystem::instance();
        m_absoluteScale =
            ui::absoluteUnit(record.flags, system.primaryScreenSize(), system.virtualDesktopSize());
    }
    Q_EMIT mouseMoved(motion->delta, motion->absolute); // a slot may delete the tracker
}
