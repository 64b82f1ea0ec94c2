// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/WindowWishes.h"

#include "MorrantUI/platform/windowsystem.h"

#include <QEvent>
#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

namespace morrant::native {

namespace {

/// The widget's own native window; null while it has none or is part of another window.
QWindow* nativeWindow(const QWidget& widget)
{
    QWindow* window = widget.isWindow() ? widget.windowHandle() : nullptr;
    return window && window->handle() ? window : nullptr;
}

/// Whether the topmost modal window keeps input from a window, by Qt's own rule: what Qt tells a
/// window when that begins cannot be asked for later.
bool isBlockedByModal(const QWindow& window)
{
    const QWindow* modal = QGuiApplication::modalWindow();
    if (!modal || modal == &window || modal->isAncestorOf(&window)) {
        return false;
    }
    bool blocked = modal->modality() == Qt::ApplicationModal;
    for (const QWindow* next = &window; next && !blocked;) {
        blocked = next->isAncestorOf(modal);
        next = next->parent(QWindow::IncludeTransients);
    }
    return blocked;
}

} // namespace

WindowWishes& WindowWishes::of(QWidget& widget)
{
    auto* wishes = widget.findChild<WindowWishes*>(QString(), Qt::FindDirectChildrenOnly);
    return wishes ? *wishes : *new WindowWishes(widget);
}

WindowWishes::WindowWishes(QWidget& widget)
    : QObject(&widget)
    , m_widget(widget)
{
    const QWindow* window = nativeWindow(widget);
    m_blocked = window && isBlockedByModal(*window);
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
    case QEvent::ApplicationPaletteChange:
    case QEvent::WindowActivate:
        // On Windows Qt has set the bar to the user's choice for all programs by then: at once when
        // the palette changes, in the background when that choice does.
        applyDarkTitleBar();
        break;
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
    applyDarkTitleBar();
    applyStacking();
}

void WindowWishes::applyDarkTitleBar()
{
    QWindow* window = nativeWindow(m_widget);
    if (window && m_darkTitleBar) {
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
        // Again later: on X11 Qt drops the owner while it shows a window that is no dialog, and the
        // wish may come while that goes on.
        QMetaObject::invokeMethod(this, &WindowWishes::applyOwner, Qt::QueuedConnection);
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
