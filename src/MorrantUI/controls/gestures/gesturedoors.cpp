#include "MorrantUI/controls/gestures/gesturedoors.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace ui {

namespace {

/// Also from a dialog to the window it was opened for.
bool isWithin(const QWidget* inner, const QWidget* outer)
{
    while (inner && inner != outer) {
        inner = inner->parentWidget();
    }
    return inner != nullptr;
}

} // namespace

bool isBlockedByDialog(const QWidget& widget)
{
    const QWidget* const dialog = QApplication::activeModalWidget();
    if (!dialog || isWithin(&widget, dialog)) {
        return false;
    }
    return dialog->windowModality() == Qt::ApplicationModal || isWithin(dialog, widget.window());
}

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

bool mayTakeMouse(const QWidget& widget)
{
    return widget.isVisible() && widget.isEnabled() && !isBlockedByDialog(widget)
           && QGuiApplication::applicationState() == Qt::ApplicationActive;
}

} // namespace ui
