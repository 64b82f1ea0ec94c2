#include "MorrantUI/controls/gestures/PointerLock.h"

#include "MorrantUI/controls/gestures/gesturedoors.h"
#include "MorrantUI/platform/PointerConfinement.h"
#include "MorrantUI/platform/PointerSystem.h"
#include <MorrantUI/controls/gestures/pointermath.h>

using morrant::native::PointerConfinement;
using morrant::native::PointerSystem;

PointerLock::PointerLock(QWidget* widget, QObject* parent)
    : QObject(parent)
    , m_widget(widget)
{
    if (widget) {
        widget->installEventFilter(this);
        connect(widget, &QObject::destroyed, this, &PointerLock::unlock);
    }
}

PointerLock::~PointerLock() = default;

void PointerLock::lock()
{
    unlock();
    if (!m_widget || !ui::mayTakeMouse(*m_widget)) {
        return;
    }
    const auto frame = PointerSystem::instance().windowFrame(*m_widget);
    const QRect rect = frame ? ui::confiningRect(*frame, m_widget->devicePixelRatioF()) : QRect();
    if (!rect.isEmpty()) {
        m_rect = rect;
        m_confinement = std::make_unique<PointerConfinement>(rect);
    }
}

void PointerLock::unlock()
{
    m_confinement.reset();
}

bool PointerLock::locked() const
{
    return m_confinement && m_confinement->isInForce();
}

bool PointerLock::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_widget && ui::endsGesture(*m_widget, *event)) {
        unlock();
    }
    return QObject::eventFilter(watched, event);
}
