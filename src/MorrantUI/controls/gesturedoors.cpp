#include "gesturedoors.h"

#include <QEvent>
#include <QWidget>

namespace ui {

bool endsGesture(const QWidget& widget, const QEvent& event)
{
    switch (event.type()) {
    case QEvent::Hide:
    case QEvent::WindowDeactivate:
    case QEvent::WindowBlocked: return true;
    case QEvent::EnabledChange: return !widget.isEnabled();
    default: return false;
    }
}

} // namespace ui
