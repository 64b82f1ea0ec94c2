// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/DockableWindow.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/docking/AccessibleDocking.h"
#include "MorrantUI/docking/Answers.h"
#include "MorrantUI/docking/Departure.h"
#include "MorrantUI/docking/DockOperation.h"
#include "MorrantUI/docking/DragOrigin.h"
#include "MorrantUI/docking/LayoutChange.h"
#include "MorrantUI/docking/Rearranging.h"
#include "MorrantUI/docking/WindowLayout.h"
#include "MorrantUI/docking/WindowOverlays.h"
#include "MorrantUI/docking/afloat.h"
#include "MorrantUI/docking/applicationstate.h"
#include "MorrantUI/docking/carryover.h"
#include "MorrantUI/docking/docktree.h"
#include "MorrantUI/docking/panelfocus.h"
#include "MorrantUI/docking/panelkeys.h"
#include <MorrantUI/docking/DockableGroup.h>
#include <MorrantUI/docking/DockableTabHeader.h>
#include <MorrantUI/docking/DropIndicatorMain.h>
#include <MorrantUI/docking/arrangement.h>
#include <MorrantUI/platform/native.h>
#include <MorrantUI/theme/palettes.h>

#include <QContextMenuEvent>
#include <QKeyEvent>

#include <utility>

using ui::docking::Answers;
using ui::docking::groupOf;
using ui::docking::isMainWindow;
using ui::docking::mainWindow;
using ui::docking::Rearranging;
namespace native = morrant::native;

namespace {

/// Behind contents of any colour, whatever the theme: a neutral grey that shows between a window's
/// parts and until its content paints.
constexpr QColor kGround(31, 31, 31);

} // namespace

DockableWindow::DockableWindow()
    : m_dragHandler(this)
{
    ui::installAccessible<DockableWindow, ui::AccessibleDockable>();
    ui::docking::rememberFocus();
    ui::docking::followApplication();
    Answers::followHosts();
    m_inactive = ui::docking::isApplicationLeft();
    makeFloating();
    setAttribute(Qt::WA_DeleteOnClose);
    ui::setWidgetBackground(this, kGround);
    native::setDarkTitleBar(this);

    m_overlays = std::make_unique<ui::docking::WindowOverlays>(*this);
    m_layout = new WindowLayout(this);
    setHeader(new DockableTabHeader);
    setHeaderVisible(false);
}

DockableWindow::DockableWindow(QWidget* content)
    : DockableWindow()
{
    m_windowMode = WindowMode::Panel;
    m_content = content;
    if (content) {
        content->setAttribute(Qt::WA_DontCreateNativeAncestors);
        m_layout->addWidget(content, 1);
    }
    m_layout->setSizeConstraint(QLayout::SetMinAndMaxSize);
    setHeaderVisible(true);
}

DockableWindow::~DockableWindow()
{
    if (isWindow()) {
        hide(); // now, as long as answers to that can wait
    }
    // When this window is gone; a group that goes with it takes these calls along. One that was
    // closed has left already.
    DockableGroup* group = groupOf(*this);
    if (group) {
        QMetaObject::invokeMethod(
            group, [group] { group->collapseIfNeedless(); }, Qt::QueuedConnection);
    }
    if (DockableGroup* old = oldParent(); old && old != this) {
        QMetaObject::invokeMethod(
            old, [old] { old->collapseIfNeedless(); }, Qt::QueuedConnection);
    }
    if (group || (m_windowMode == WindowMode::Panel && !m_closing)) {
        ui::docking::reportLayoutChangeLater();
    }
}

void DockableWindow::setHeader(DockableHeader* header)
{
    if (header && header == m_header) {
        return;
    }
    if (m_header) {
        m_layout->removeWidget(m_header);
        m_header->hide();
        m_header->deleteLater();
    }
    if (m_grabWidget) {
        m_grabWidget->removeEventFilter(&m_dragHandler);
    }
    m_grabWidget.clear();
    m_header = header;
    if (!header) {
        return;
    }
    if (DockableWindow* previous = findDockableParent(header->parentWidget());
        previous && previous->m_header == header)
    {
        previous->releaseHeader();
    }
    m_grabWidget = header->setHandler(&m_dragHandler);
    header->setText(m_text);
    header->setAttribute(Qt::WA_DontCreateNativeAncestors); // as the constructor does
    m_layout->insertWidget(0, header);
    if (ui::docking::TreeAccess::tabOf(*this)) {
        header->hide(); // the tab has the title
    }
    m_overlays->raiseDimmer();
}

/// Lets go of a header that another window takes over.
void DockableWindow::releaseHeader()
{
    if (m_grabWidget) {
        m_grabWidget->removeEventFilter(&m_dragHandler);
    }
    m_layout->removeWidget(m_header);
    m_grabWidget.clear();
    m_header.clear();
}

DockableHeader* DockableWindow::header() const
{
    return m_header;
}

void DockableWindow::setHeaderVisible(bool visible)
{
    if (m_header) {
        m_header->setVisible(visible);
    }
    if (m_header && !visible) {
        m_header->clearFocus(); // Qt leaves it there if there is nobody else to take it
    }
}

void DockableWindow::setHeaderDirection(QBoxLayout::Direction direction)
{
    m_layout->setDirection(direction);
}

void DockableWindow::setText(const QString& text)
{
    if (text.isEmpty()) {
        return;
    }
    if (m_header) {
        m_header->setText(text);
    }
    const bool changed = text != m_text;
    m_text = text;
    setWindowTitle(text);
    if (changed) {
        ui::notifyAccessible(this, QAccessible::NameChanged);
        ui::docking::LayoutChange change;
        change.noteTabs(); // one of them may show it
        Q_EMIT textChanged(text);
    }
}

bool DockableWindow::isFloating() const
{
    return isWindow() && !isMainWindow(*this);
}

DockableWindow* DockableWindow::findDockableParent()
{
    return isWindow() ? nullptr : findDockableParent(parentWidget());
}

DockableWindow* DockableWindow::findDockableParent(QWidget* widget)
{
    while (widget) {
        if (auto* window = qobject_cast<DockableWindow*>(widget)) {
            return window;
        }
        widget = widget->isWindow() ? nullptr : widget->parentWidget();
    }
    return nullptr;
}

DockableGroup* DockableWindow::findDockableParentGroup()
{
    DockableWindow* window = findDockableParent();
    while (window && !qobject_cast<DockableGroup*>(window)) {
        window = window->findDockableParent();
    }
    return qobject_cast<DockableGroup*>(window);
}

DockableWindow* DockableWindow::findDockableRoot()
{
    DockableWindow* root = this;
    while (DockableWindow* parent = root->findDockableParent()) {
        root = parent;
    }
    return root;
}

void DockableWindow::setDragEnabled(bool enabled)
{
    m_dragHandler.setEnabled(enabled);
}

bool DockableWindow::isDragEnabled() const
{
    return m_dragHandler.isEnabled();
}

void DockableWindow::updateIndicators(bool sidesDisabled, bool topBottomDisabled)
{
    DropIndicatorMain& indicator = m_overlays->dropIndicator();
    indicator.updateArea();
    const bool nestedGroup = m_windowMode == WindowMode::Group && findDockableParent();
    if (nestedGroup && indicator.area() == DockableArea::None) {
        indicator.hide();
        return;
    }
    indicator.resize(size());
    indicator.showZones(topOffset(), sidesDisabled, topBottomDisabled);
}

void DockableWindow::hideIndicators()
{
    m_overlays->dropIndicator().hide();
}

DockableArea DockableWindow::dropArea() const
{
    return m_overlays->dropIndicator().area();
}

void DockableWindow::setFocusFrameVisible(bool visible)
{
    m_overlays->setFocusFrameVisible(visible);
}

bool DockableWindow::focusFrameVisible() const
{
    return m_overlays->isFocusFrameVisible();
}

void DockableWindow::flashFocusColor(const QColor& color)
{
    m_overlays->flashFocusFrame(color);
}

void DockableWindow::setDim(bool dim)
{
    m_overlays->setDim(dim);
}

bool DockableWindow::getDim() const
{
    return m_overlays->isDim();
}

void DockableWindow::onApplicationActivate()
{
    if (!isMainWindow(*this)) {
        native::setFloating(this, true);
        m_inactive = false;
    }
}

void DockableWindow::onApplicationDeactivate()
{
    if (!isMainWindow(*this)) {
        native::setFloating(this, false);
        m_inactive = true;
    }
}

void DockableWindow::setVisible(bool visible)
{
    const Answers answers; // of what is in it
    Widget::setVisible(visible);
}

bool DockableWindow::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Show:
        if (m_windowMode == WindowMode::Panel) {
            ui::docking::offerFocus(*this);
        }
        if (!m_inactive && !isMainWindow(*findDockableRoot())) {
            native::setFloating(window(), true);
            return true;
        }
        break;
    case QEvent::Hide:
        if (!isWindow()) { // a splitter makes it as small as can be
            m_seenSize = size();
        }
        break;
    case QEvent::WindowActivate:
        native::setDarkTitleBar(window());
        Widget::event(event); // hands it down to the content
        return true;
    case QEvent::Close: {
        if (event != m_question && Answers::putOff(*this, [this] { close(); })) {
            event->ignore();
            return true;
        }
        ui::docking::LayoutChange change(ui::docking::LayoutChange::Report::Later);
        const QPointer<DockableWindow> self(this);
        const bool handled = Widget::event(event);
        if (self && event->isAccepted() && !isMainWindow(*this) && event != m_question) {
            m_closing |= testAttribute(Qt::WA_DeleteOnClose);
            change.noteLayout();
            if (DockableGroup* group = groupOf(*this)) {
                ui::docking::Departure(*this, *group).closed();
            }
        }
        return handled;
    }
    case QEvent::ChildPolished:
        m_overlays->raiseDimmer(); // above a child that came later
        break;
    default: break;
    }
    return Widget::event(event);
}

int DockableWindow::topOffset()
{
    const bool onTop =
        m_header && m_header->isVisible() && m_layout->direction() == QBoxLayout::TopToBottom;
    return onTop ? m_header->height() : 0;
}

void DockableWindow::paintEvent(QPaintEvent* event)
{
    if (!autoFillBackground()) { // else Qt has painted all there is
        Widget::paintEvent(event);
    }
}

void DockableWindow::resizeEvent(QResizeEvent* event)
{
    Widget::resizeEvent(event);
    m_overlays->fit();
}

/// Keys that nothing inside has a use for.
void DockableWindow::keyPressEvent(QKeyEvent* event)
{
    if (!ui::docking::walkPanels(*event) && !ui::docking::askForMenu(*event)
        && !ui::docking::maximizeByKey(*event, *this))
    {
        Widget::keyPressEvent(event);
    }
}

/// The content has no menu of its own: the Menu key opens the header's.
void DockableWindow::contextMenuEvent(QContextMenuEvent* event)
{
    if (m_windowMode == WindowMode::Panel && event->reason() == QContextMenuEvent::Keyboard) {
        m_dragHandler.contextMenuEvent(event);
    } else {
        Widget::contextMenuEvent(event);
    }
}

void DockableWindow::removeFromParent(DockableGroup* group)
{
    const int index = group ? group->indexOfChild(this) : -1;
    if (index < 0) {
        return;
    }
    const QPoint position = group->mapToGlobal(mapTo(group, QPoint()));
    group->takeChild(index); // makes it float
    move(position);
    if (m_windowMode == WindowMode::Panel) {
        setHeaderVisible(true);
    }
    if (!Rearranging::active()) {
        show();
    }
}

/// Makes the window a top-level one that belongs to the main window; hidden, unless it was one. One
/// that is only changing places stays in the top-level window that it is in, hidden.
void DockableWindow::makeFloating()
{
    if (isMainWindow(*this)) {
        return;
    }
    if (!isWindow() && Rearranging::active()) {
        setParent(findDockableRoot());
    } else if (!isWindow()) {
        setParent(nullptr); // straight to another parent Qt would make it a native window at once
    }
    DockableGroup* main = mainWindow();
    const bool floats = parentWidget() == main && windowFlags().testFlag(Qt::Window);
    const bool passing = Rearranging::active() && !Answers::areDue(); // a content may make new ones
    if (!floats && !passing) {
        setParent(main, windowFlags() | Qt::Window);
    }
    if (!updatesEnabled() && !testAttribute(Qt::WA_ForceUpdatesDisabled)) {
        setUpdatesEnabled(true); // it was in a window that paints nothing at present
    }
}

/// Takes over the content's minimum and maximum size, which Qt puts off while the window is hidden.
void DockableWindow::settleLimits()
{
    if (m_layout) {
        m_layout->activate();
    }
}

/// Before docking: a native child would make its siblings native too, and a native window that is
/// still there would become a child of the main window's for a moment.
void DockableWindow::dropNativeWindow()
{
    setAttribute(Qt::WA_NativeWindow, false);
    if (windowOpacity() < 1.0) { // of one in mid-drag, and docked it could not be set
        setWindowOpacity(1.0);
    }
    if (isWindow() && isVisible() && !(windowState() & ~Qt::WindowActive)) {
        m_floatPlace = QRect(pos(), size());
    }
    if (isWindow() && windowHandle()) {
        hide();
        if (!ui::docking::holdsWindow(*this)) { // which would be destroyed along; Qt sees to it
            destroy();
        }
    }
    ui::docking::makeUsualSize(*this);
}

/// Shows it, unless it lies behind another tab.
void DockableWindow::showInGroup()
{
    DockableGroup* group = groupOf(*this);
    if (!group || group->isInFront(*this)) {
        show();
    }
}

void DockableWindow::undock(bool collapse)
{
    if (Answers::putOff(*this, [this, collapse] { undock(collapse); })) {
        return;
    }
    if (DockableGroup* group = groupOf(*this)) {
        ui::docking::Departure(*this, *group).undock(collapse);
    }
}

void DockableWindow::undockAndClose()
{
    if (Answers::putOff(*this, [this] { undockAndClose(); })) {
        return;
    }
    if (DockableGroup* group = groupOf(*this)) {
        ui::docking::Departure(*this, *group).close();
    }
}

void DockableWindow::floatAgain()
{
    if (Answers::putOff(*this, [this] { floatAgain(); })) {
        return;
    }
    const QRect place = m_floatPlace;
    const QPointer<DockableWindow> self(this);
    undock(true);
    if (self && isFloating()) {
        ui::docking::placeOnScreen(*self, place);
        ui::docking::keepOnScreen(*self, self->geometry().center());
    }
}

void DockableWindow::dockAgain()
{
    if (Answers::putOff(*this, [this] { dockAgain(); })) {
        return;
    }
    if (const auto home = std::exchange(m_home, nullptr)) {
        home->dockAgain(*this);
    }
}

void DockableWindow::toggleFloating()
{
    isFloating() ? dockAgain() : floatAgain();
}

void DockableWindow::mouseUndock()
{
    if (Answers::putOff(*this, [this] { mouseUndock(); })) {
        return;
    }
    if (DockableGroup* parent = groupOf(*this)) {
        const QPointer<DockableGroup> left(parent);
        const QPointer<DockableWindow> self(this);
        m_oldParent = parent;
        undock(false);
        if (self && !groupOf(*self)) {
            m_oldParent = left; // the drag may have ended meanwhile, before the group was left
        }
    }
}

void DockableWindow::cleanupOldParent(DockableWindow* newParent)
{
    DockableGroup* old = oldParent();
    if (old && old == newParent) {
        return;
    }
    m_oldParent.clear();
    if (old) {
        old->collapseIfNeedless();
    }
}

DockableGroup* DockableWindow::oldParent() const
{
    return qobject_cast<DockableGroup*>(m_oldParent.data());
}

bool DockableWindow::canTake(DockableWindow* window)
{
    if (!window || m_closing || window->m_closing || isMainWindow(*window)) {
        return false;
    }
    for (DockableWindow* above = this; above; above = above->findDockableParent()) {
        if (above == window || above->m_closing) {
            return false;
        }
    }
    return true;
}

DockableWindow* DockableWindow::dockInArea(DockableWindow* window, DockableArea area)
{
    if (!canTake(window)) {
        return nullptr;
    }
    const auto later = [this, area, guest = QPointer(window)] { dockInArea(guest, area); };
    return Answers::putOff(*this, later) ? nullptr
                                         : ui::docking::DockOperation(*this, *window, area).dock();
}

QString DockableWindow::shownTitle()
{
    return m_text;
}

ui::docking::Limits DockableWindow::limits()
{
    if (!m_layout) {
        return {};
    }
    const QSizePolicy policy = sizePolicy();
    return {m_layout->contentsMaximum(), {policy.horizontalStretch(), policy.verticalStretch()}};
}

void DockableWindow::setLimits(const ui::docking::Limits& /*limits*/, Qt::Orientations lifted)
{
    if (m_layout && m_layout->lift(lifted) && m_windowMode == WindowMode::Panel) {
        setMaximumSize(m_layout->maximumSize());
    }
}

void DockableWindow::listPanels(QList<DockableWindow*>& panels)
{
    if (m_windowMode == WindowMode::Panel && isVisible() && !m_closing) {
        panels.append(this);
    }
}

/// Width or height, whichever windows share when they dock at the area.
int DockableWindow::extentAlong(DockableArea area) const
{
    return ui::docking::isVertical(area) ? height() : width();
}
