// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/gestures/PointerLock.h"

#include "MorrantUI/platform/PointerConfinement.h"
#include "MorrantUI/platform/PointerSystem.h"
#include <MorrantUI/controls/gestures/pointermath.h>

using morrant::native::PointerConfinement;
using morrant::native::PointerSystem;

PointerLock::PointerLock(QWidget* widget, QObject* parent)
    : QObject(parent)
    , m_widget(widget)
{}

PointerLock::~PointerLock() = default;

void PointerLock::lock()
{
    unlock();
    if (!m_widget || !GestureDoors::mayBegin(*m_widget)) {
        return;
    }
    const auto frame = PointerSystem::instance().windowFrame(*m_widget);
    const QRect rect = frame ? ui::confiningRect(*frame, m_widget->devicePixelRatioF()) : QRect();
    if (!rect.isEmpty()) {
        m_rect = rect;
        m_confinement = std::make_unique<PointerConfinement>(rect);
        const auto leave = [this](GestureDoors::Door) { unlock(); };
        m_doors.watch(m_widget, leave, {.button = Qt::NoButton, .popups = false});
    }
}

void PointerLock::unlock()
{
    m_doors.stop();
    m_confinement.reset();
}

bool PointerLock::locked() const
{
    return m_confinement && m_confinement->isInForce();
}
