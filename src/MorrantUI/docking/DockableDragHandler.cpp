// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/DockableDragHandler.h"

#include "MorrantUI/docking/DragOrigin.h"
#include "MorrantUI/docking/WindowOverlays.h"
#include "MorrantUI/docking/afloat.h"
#include "MorrantUI/docking/docktree.h"
#include "MorrantUI/docking/panelfocus.h"
#include "MorrantUI/docking/panelkeys.h"
#include "MorrantUI/docking/placing.h"
#include "MorrantUI/platform/windowsystem.h"
#include <MorrantUI/docking/DockableGroup.h>
#include <MorrantUI/docking/arrangement.h>
#include <MorrantUI/theme/events.h>
#include <MorrantUI/theme/screens.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QCursor>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace {

constexpr double kDragOpacity = 0.5;

} // namespace

DockableDragHandler::DockableDragHandler(DockableWindow* window)
    : m_window(window)
{}

DockableDragHandler::~DockableDragHandler()
{
    m_window.clear(); // half destroyed by now
    finish(Ending::Leave);
}

DockableWindow* DockableDragHandler::hoverWindow() const
{
    return qobject_cast<DockableWindow*>(m_hoverWindow.data());
}

void DockableDragHandler::setEnabled(bool enabled)
{
    if (enabled == isEnabled()) {
        return;
    }
    if (enabled) {
        m_state = State::Idle;
    } else {
        finish(Ending::Leave, State::Locked);
    }
}

bool DockableDragHandler::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ContextMenu:
        if (!isDragging()) {
            contextMenuEvent(static_cast<QContextMenuEvent*>(event));
        }
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: // a press soon after a click
        if (static_cast<QMouseEvent*>(event)->buttons() == Qt::LeftButton) {
            pressed(*static_cast<QMouseEvent*>(event));
        }
        return false;
    default: return QObject::eventFilter(watched, event);
    }
}

void DockableDragHandler::contextMenuEvent(QContextMenuEvent* event)
{
    if (!m_window) {
        return;
    }
    // The window may die while its menu is open, and the menu with it.
    const QPointer<DockableWindow> window = m_window;
    const QPointer<QMenu> menu = new QMenu(window);
    QAction* undock = menu->addAction(tr("Undock"));
    const QAction* show = menu->addAction(tr("Show"));
    QAction* close = menu->addAction(tr("Close"));
    undock->setDisabled(ui::isLayoutLocked());
    close->setDisabled(ui::isLayoutLocked());
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QAction* chosen =
        menu->exec(byKey ? ui::docking::menuPlace(*window) : event->globalPos());
    if (menu) {
        menu->deleteLater();
    }
    if (!window || !chosen) {
        return;
    }
    if (chosen == undock) {
        window->undock(true);
        if (window && window->isFloating()) {
            ui::docking::keepOnScreen(*window, window->geometry().center());
        }
    } else if (chosen == show) {
        window->show();
        if (window) { // what is in it may do anything when it is shown
            ui::docking::bringToFront(*window->window());
        }
        if (window) {
            window->m_overlays->callAttention();
        }
    } else if (chosen == close) {
        window->undockAndClose();
    }
}

void DockableDragHandler::pressed(const QMouseEvent& event)
{
    if (m_window) { // later, when a tab has brought its page forward
        const auto enter = [window = m_window.data()] { ui::docking::enterByClick(*window); };
        QMetaObject::invokeMethod(m_window, enter, Qt::QueuedConnection);
    }
    if (isEnabled() && !ui::isLayoutLocked()) {
        m_pressedAgain = event.type() == QEvent::MouseButtonDblClick;
        m_replayed = !event.spontaneous();
        startGesture();
    }
}

void DockableDragHandler::startGesture()
{
    const QPointer<DockableDragHandler> self(this);
    finish(Ending::Leave); // of one whose release never came
    if (!self || !isEnabled()) {
        return;
    }
    saveStartPosition();
    m_state = State::Pressed;
    m_gesture = ui::installEventFilter(
        qApp,
        [this](QObject* watched, QEvent* event) { return applicationEvent(watched, event); },
        this);
}

/// Every event of a physical mouse passes twice, with the native window as its receiver and then
/// with the widget. The first is acted on, since widgets get none any more once the pressed one has
/// moved to another window; the second only if it comes alone.
bool DockableDragHandler::applicationEvent(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseMove: return m_gesture && mouseMoved(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonRelease:
        return mouseReleased(watched, *static_cast<QMouseEvent*>(event));
    case QEvent::WindowBlocked: // by a dialog
        if (m_gesture && m_window && watched == m_window->window()->windowHandle()) {
            finish(Ending::Leave);
        }
        return false;
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        if (isDragging() && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
            finish(Ending::TakeBack);
        }
        return false;
    default: return false;
    }
}

bool DockableDragHandler::mouseMoved(const QMouseEvent& event)
{
    if (event.buttons() == Qt::NoButton) {
        if (event.spontaneous() != m_replayed) {
            finish(Ending::Leave); // the release went elsewhere
        }
        return false;
    }
    if (event.buttons() != Qt::LeftButton || !beginDragging()) {
        return false;
    }
    const QPointer<DockableDragHandler> self(this);
    updateHoverWindow();
    if (self) {
        moveIfFloating();
    }
    return true;
}

namespace {

/// To the native window that the pressed widget is in now: else Qt takes it for pressed until the
/// next press, and nothing else is hovered.
void forwardRelease(const QMouseEvent& event, const DockableWindow& window)
{
    if (QWindow* native = window.window()->windowHandle()) {
        const QPointF global = event.globalPosition();
        const QPointF local = native->mapFromGlobal(global);
        QMouseEvent release(
            event.type(), local, local, global, event.button(), event.buttons(), event.modifiers());
        QCoreApplication::sendEvent(native, &release);
    }
}

} // namespace

bool DockableDragHandler::mouseReleased(QObject* watched, const QMouseEvent& event)
{
    if (m_state == State::Released && watched->isWidgetType()) {
        m_state = State::Idle;
        return true;
    }
    if (!m_gesture) {
        return false;
    }
    const bool byWindow = watched->isWindowType();
    if (m_state == State::Pressed && m_pressedAgain && m_window) {
        QMetaObject::invokeMethod(m_window, &DockableWindow::toggleFloating, Qt::QueuedConnection);
    }
    const QPointer<QObject> receiver(watched);
    const QPointer<DockableDragHandler> self(this);
    finish(Ending::Drop); // where a slot may wait for other clicks, in a dialog
    // Qt must see the release of a native window, or hovering would stick to the pressed widget;
    // the widget's copy follows. One that the docking has destroyed must not be gone on with.
    if (self && m_state == State::Idle && byWindow && receiver) {
        m_state = State::Released;
    } else if (self && byWindow && !receiver && m_window) {
        forwardRelease(event, *m_window);
    }
    return !byWindow || !receiver;
}

/// Every way out of a gesture. What hears of the docking may delete this.
void DockableDragHandler::finish(Ending ending, State rest)
{
    if (m_gesture) {
        m_gesture->deleteLater(); // it stays for the release that the widget is still to get
        m_gesture.clear();
    }
    const bool engaged = isDragging() || m_hoverWindow;
    const auto origin = ending == Ending::TakeBack ? nullptr : std::move(m_origin);
    const QPointer<DockableDragHandler> self(this);
    endDragging();
    m_state = isEnabled() ? rest : m_state;
    switch (ending) {
    case Ending::Drop:
        dockInHoverWindow();
        if (self && m_window && origin && !m_window->isFloating()) {
            m_window->m_floatPlace = origin->floatPlace();
        }
        break;
    case Ending::Leave:
        if (DockableWindow* hover = leaveHoverWindow(); m_window && engaged) {
            m_window->cleanupOldParent(hover);
        }
        break;
    case Ending::TakeBack:
        leaveHoverWindow();
        // Not now, when Qt is dealing with a key of the window whose native one is to go.
        QMetaObject::invokeMethod(this, &DockableDragHandler::takeBack, Qt::QueuedConnection);
        return;
    }
    if (self && m_window && origin && !origin->floats() && m_window->isFloating()) {
        ui::docking::keepOnScreen(*m_window, QCursor::pos());
    }
}

DockableWindow* DockableDragHandler::leaveHoverWindow()
{
    DockableWindow* hover = hoverWindow();
    m_hoverWindow.clear();
    if (hover) {
        hover->hideIndicators();
    }
    return hover;
}

void DockableDragHandler::takeBack()
{
    const QPointer<DockableWindow> window = m_window;
    if (window && !isDragging()) {
        const auto origin = std::move(m_origin);
        if (origin) {
            origin->restore(*window);
        }
        if (window) {
            if (window->oldParent() == ui::docking::groupOf(*window)) {
                window->m_oldParent.clear(); // back, or never out: nothing to tidy
            }
            window->cleanupOldParent(nullptr);
        }
    }
}

void DockableDragHandler::saveStartPosition()
{
    const QPoint cursor = QCursor::pos();
    m_startPosition = m_window ? m_window->mapFromGlobal(cursor) : cursor;
}

bool DockableDragHandler::beginDragging()
{
    if (isDragging()) {
        return true;
    }
    if (!m_window || !isEnabled()) {
        return false;
    }
    const QPoint way = m_window->mapFromGlobal(QCursor::pos()) - m_startPosition;
    if (way.manhattanLength() < QApplication::startDragDistance()) {
        return false;
    }
    const QPointer<DockableDragHandler> self(this);
    ui::restorePanels(); // which runs slots
    if (!self || !m_window || !isEnabled()) {
        return false;
    }
    m_hoverWindow.clear();
    m_state = State::Dragging;
    m_origin = std::make_unique<ui::docking::DragOrigin>(*m_window);
    updateWindowOpacity();
    return true;
}

void DockableDragHandler::endDragging()
{
    if (isEnabled()) {
        m_state = m_gesture ? State::Pressed : State::Idle;
    }
    updateWindowOpacity();
}

void DockableDragHandler::updateWindowOpacity()
{
    if (m_window) {
        m_window->setWindowOpacity(isDragging() ? kDragOpacity : 1.0);
    }
}

namespace {

/// The widget at a point in the topmost window there but for one.
QWidget* widgetBelow(const QWidget& above, const QPoint& point)
{
    const auto widgets = QApplication::topLevelWidgets();
    const auto windows = morrant::native::system::windowsFromTop();
    for (const QWindow* window : windows) {
        for (QWidget* widget : widgets) {
            const bool here = widget != &above && widget->windowHandle() == window
                              && widget->isVisible() && !widget->isMinimized()
                              && widget->frameGeometry().contains(point);
            if (here) {
                QWidget* child = widget->childAt(widget->mapFromGlobal(point));
                return child ? child : widget;
            }
        }
    }
    return nullptr;
}

} // namespace

DockableWindow* DockableDragHandler::windowUnderMouse()
{
    if (!m_window) {
        return nullptr;
    }
    // For one that floats the system is not asked: it looks through a window, but not through the
    // frame that a window manager has put around it.
    const QPoint cursor = QCursor::pos();
    m_window->setAttribute(Qt::WA_TransparentForMouseEvents, true);
    QWidget* widget =
        m_window->isWindow() ? widgetBelow(*m_window, cursor) : qtutils::findWidgetAt(cursor);
    m_window->setAttribute(Qt::WA_TransparentForMouseEvents, false);

    DockableWindow* window = DockableWindow::findDockableParent(widget);
    while (window && window->isBorderHidden()) {
        window = window->findDockableParent();
    }
    DockableWindow* parent = window ? window->findDockableParent() : nullptr;
    const bool isTab = parent && parent->windowMode() == DockableWindow::WindowMode::TabGroup;
    return isTab ? parent : window;
}

void DockableDragHandler::updateHoverWindow()
{
    DockableWindow* window = windowUnderMouse();
    if (DockableWindow* before = hoverWindow(); before && before != window) {
        before->hideIndicators();
    }
    m_hoverWindow = window;
    if (window) {
        const bool refused = !window->canTake(m_window);
        window->updateIndicators(
            refused || m_window->sideDockingDisabled, refused || m_window->verticalDockingDisabled);
    }
}

void DockableDragHandler::moveIfFloating()
{
    DockableWindow* hover = hoverWindow();
    if (!m_window || (hover && hover->findDockableRoot() == m_window->findDockableRoot())) {
        return;
    }
    const QPointer<DockableWindow> window = m_window;
    if (window->findDockableParent()) {
        tearOut();
    }
    if (window && window->isWindow() && isDragging())
    { // unless a slot of the tearing has dropped it
        const QSize filling = window->size();
        if (ui::docking::shrinkToUsualSize(*window)) {
            m_startPosition = ui::docking::gripAfter(m_startPosition, filling, window->size());
        }
        const QPoint origin = window->mapToGlobal(QPoint());
        window->move(QCursor::pos() + window->pos() - (m_startPosition + origin));
        window->show();
        window->raise();
    }
}

/// What hears of it may delete the window, and this with it.
void DockableDragHandler::tearOut()
{
    const QPointer<DockableWindow> window = m_window;
    m_origin = std::make_unique<ui::docking::DragOrigin>(*window); // of this very moment
    window->mouseUndock();
    if (!window) {
        return;
    }
    if (!isDragging()) { // what hears of it, or the system, has ended the drag
        window->cleanupOldParent(nullptr);
        return;
    }
    updateWindowOpacity(); // that of a docked window had no effect
    // A tab lies outside its window, which is to come out with its header under the pointer.
    const QRect inside = window->rect();
    m_startPosition = {
        std::clamp(m_startPosition.x(), inside.left(), inside.right()),
        std::clamp(m_startPosition.y(), inside.top(), inside.bottom())};
}

void DockableDragHandler::dockInHoverWindow()
{
    const QPointer<DockableWindow> hover = leaveHoverWindow();
    const QPointer<DockableWindow> window = m_window;
    if (hover && window && hover->dropArea() != DockableArea::None) {
        // Docking takes it out of its group unseen, as mouseUndock() would not.
        if (DockableGroup* group = ui::docking::groupOf(*window)) {
            window->m_oldParent = group;
        }
        hover->dockInArea(window, hover->dropArea());
    }
    if (window) {
        window->cleanupOldParent(hover);
    }
}
