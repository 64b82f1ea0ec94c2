#include "WindowWishes.h"

#include <MorrantUI/platform/windowsystem.h>

#include <QEvent>
#include <QWidget>
#include <QWindow>

namespace morrant::native {

/// The widget's own native window; null while it has none or is part of another window.
static QWindow* nativeWindow(const QWidget& widget)
{
    QWindow* window = widget.isWindow() ? widget.windowHandle() : nullptr;
    return window && window->handle() ? window : nullptr;
}

WindowWishes& WindowWishes::of(QWidget& widget)
{
    auto* wishes = widget.findChild<WindowWishes*>(QString(), Qt::FindDirectChildrenOnly);
    return wishes ? *wishes : *new WindowWishes(widget);
}

WindowWishes::WindowWishes(QWidget& widget)
    : QObject(&widget)
    , m_widget(widget)
{
    widget.installEventFilter(this);
}

void WindowWishes::setDarkTitleBar()
{
    m_darkTitleBar = true;
    applyDarkTitleBar();
}

void WindowWishes::setFloating(bool floating)
{
    m_stacking = floating ? Stacking::Floating : Stacking::Ordinary;
    applyStacking();
}

bool WindowWishes::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Show: applyAll(); break;
    case QEvent::WindowBlocked:
        m_blocked = true;
        applyStacking();
        break;
    case QEvent::WindowUnblocked:
        m_blocked = false;
        applyStacking();
        break;
    default: break;
    }
    return QObject::eventFilter(watched, event);
}

/// Runs when the native window exists and is not on screen yet.
void WindowWishes::applyAll()
{
    if (m_darkTitleBar) {
        applyDarkTitleBar();
    }
    applyStacking();
    if (m_stacking == Stacking::Floating) {
        // Again once it is: on X11 Qt drops the owner while it shows a window that is no dialog.
        QMetaObject::invokeMethod(this, &WindowWishes::applyOwner, Qt::QueuedConnection);
    }
}

void WindowWishes::applyDarkTitleBar()
{
    if (QWindow* window = nativeWindow(m_widget)) {
        system::setDarkTitleBar(*window);
    }
}

void WindowWishes::applyStacking()
{
    QWindow* window = nativeWindow(m_widget);
    if (!window || m_stacking == Stacking::AsItIs) {
        return;
    }
    const bool floats = m_stacking == Stacking::Floating;
    if (floats) {
        applyOwner();
    }
    system::setAlwaysOnTop(*window, floats && !m_blocked);
}

void WindowWishes::applyOwner()
{
    QWindow* window = nativeWindow(m_widget);
    const QWidget* parent = m_widget.parentWidget();
    QWindow* owner = parent ? nativeWindow(*parent->window()) : nullptr;
    if (window && owner) {
        window->setTransientParent(owner);
        system::setOwner(*window, *owner);
    }
}

} // namespace morrant::native
