// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/DockableGroup.h"

#include "MorrantUI/docking/Answers.h"
#include "MorrantUI/docking/GroupSplitter.h"
#include "MorrantUI/docking/LayoutChange.h"
#include "MorrantUI/docking/Rearranging.h"
#include "MorrantUI/docking/SplitterSizes.h"
#include "MorrantUI/docking/WindowLayout.h"
#include "MorrantUI/docking/afloat.h"
#include "MorrantUI/docking/carryover.h"
#include "MorrantUI/docking/docktree.h"
#include "MorrantUI/docking/panelfocus.h"
#include "MorrantUI/docking/shares.h"
#include <MorrantUI/theme/screens.h>

#include <QCloseEvent>
#include <QCoreApplication>
#include <QCursor>
#include <QScreen>
#include <QStyle>

#include <algorithm>
#include <numeric>
#include <utility>

using ui::docking::Answers;
using ui::docking::groupOf;
using ui::docking::isMainWindow;
using ui::docking::kBorder;
using ui::docking::Rearranging;
using ui::docking::TreeAccess;

DockableGroup* gMainWindow = nullptr;

DockableGroup::DockableGroup(WindowMode mode)
    : m_splitterSizes(std::make_unique<ui::docking::SplitterSizes>(*this))
{
    setWindowMode(mode);
    ui::docking::groupBorn(*this);
}

DockableGroup::DockableGroup()
    : DockableGroup(WindowMode::Group)
{
    adoptSplitter(new GroupSplitter);
    setBorderVisible(true);
}

DockableGroup::~DockableGroup()
{
    DockableGroup* main = ui::docking::mainWindow();
    ui::docking::letKeptLeave(*this, main != this ? main : nullptr);
    ui::docking::groupDying(*this);
}

void DockableGroup::adoptSplitter(GroupSplitter* splitter)
{
    m_splitter = splitter;
    ui::docking::carryOver(*splitter, *this);
    m_layout->addFilling(splitter);
    connect(splitter, &QSplitter::splitterMoved, this, [this] {
        m_splitterSizes->forget(); // the user wants it otherwise now
        ui::docking::reportLayoutChange();
    });
}

int DockableGroup::childCount() const
{
    return m_splitter ? m_splitter->count() : 0;
}

DockableWindow* DockableGroup::getChild(int index)
{
    return m_splitter ? qobject_cast<DockableWindow*>(m_splitter->widget(index)) : nullptr;
}

int DockableGroup::indexOfChild(DockableWindow* window)
{
    return m_splitter && window ? m_splitter->indexOf(window) : -1;
}

DockableWindow* DockableGroup::takeChild(int index)
{
    const QPointer<DockableWindow> child = getChild(index);
    if (Answers::areDue()) {
        return nullptr; // it could not be out at once
    }
    if (ui::docking::restoreBefore(*this, child) && indexOfChild(child) >= 0) {
        ui::docking::LayoutChange change; // slots that hear of it may delete the child
        change.note(*child);
        const GroupSplitter::Pause pause(m_splitter);
        release(*child);
        if (!Rearranging::active()) {
            m_splitterSizes->giveBack(*child);
        }
    }
    return child;
}

/// What a child is without a group.
void DockableGroup::release(DockableWindow& child)
{
    DockableGroup::handOver(child);
    const bool unseen = child.isHidden() && child.m_seenSize.isValid();
    child.makeFloating();
    child.setNested(false);
    child.setLimits({}, {});
    if (unseen) {
        child.resize(child.m_seenSize);
    }
    if (m_splitter) {
        m_splitter->settleLimits();
    }
    if (childCount() == 0) {
        QMetaObject::invokeMethod(this, &DockableGroup::collapseIfEmpty, Qt::QueuedConnection);
    }
}

void DockableGroup::handOver(DockableWindow& child)
{
    ui::docking::forgetFocusIn(child);
    if (child.m_directionHandedDown) {
        child.unsetLayoutDirection();
        child.m_directionHandedDown = false;
    }
}

void DockableGroup::appendChild(DockableWindow* window)
{
    insertChild(-1, window);
}

void DockableGroup::insertChild(int index, DockableWindow* window)
{
    const auto later = [this, index, guest = QPointer(window)] { insertChild(index, guest); };
    if (Answers::putOff(*this, later)) {
        return;
    }
    if (!ui::docking::restoreBefore(*this, window) || !m_splitter || !canTake(window)) {
        return;
    }
    ui::docking::LayoutChange change;
    const QPointer<DockableGroup> old = receive(*window);
    const int place = placeFor(index);
    const ui::docking::Arrival arrival = m_splitterSizes->before(*window);
    if (!Rearranging::active()) {
        m_splitterSizes->growFor(*window, place);
    }
    if (!ui::docking::TreeAccess::hideFor(*this, *window)) {
        return;
    }
    GroupSplitter::liftLimits(*window);
    {
        const GroupSplitter::Pause pause(m_splitter);
        m_splitter->put(place, *window);
        handDownDirection(*window);
        m_splitter->settleLimits();
        if (!Rearranging::active()) {
            m_splitterSizes->shareAfter(arrival, place);
        }
    }
    tidyAfterReceiving(old);
}

/// Takes a window to insert out of the group it is in, which is returned, and readies it.
QPointer<DockableGroup> DockableGroup::receive(DockableWindow& window)
{
    ui::docking::LayoutChange change;
    change.note(window);
    QPointer<DockableGroup> old = groupOf(window);
    if (old && Rearranging::active() && old->window() == this->window()) {
        old->handOver(window); // it moves straight from there to here
    } else if (old) {
        old->takeChild(old->indexOfChild(&window));
    }
    if (window.isWindow()) {
        window.m_seenSize = QSize(); // as it is now
    }
    window.settleLimits();
    window.setNested(true);
    return old;
}

void DockableGroup::tidyAfterReceiving(const QPointer<DockableGroup>& old)
{
    if (old && old != this && !Rearranging::active()) {
        old->collapseIfNeedless();
    }
}

int DockableGroup::placeFor(int index) const
{
    return index < 0 || index > childCount() ? childCount() : index;
}

/// Whether a child is seen: that of a tab group may lie behind another.
bool DockableGroup::isInFront(const DockableWindow& child) const
{
    const DockableWindow* front = frontChild();
    return !front || front == &child;
}

QString DockableGroup::shownTitle()
{
    DockableWindow* front = frontChild();
    QString title = front && getText().isEmpty() ? front->shownTitle() : getText();
    for (int i = 0; title.isEmpty() && i < childCount(); ++i) {
        DockableWindow* child = getChild(i);
        title = child ? child->shownTitle() : QString();
    }
    return title;
}

/// A floating group without a text of its own goes by what is in front.
void DockableGroup::showTitles()
{
    if (isFloating() && getText().isEmpty()) {
        setWindowTitle(shownTitle());
    }
}

void DockableGroup::listPanels(QList<DockableWindow*>& panels)
{
    if (!isVisible() || isClosing()) {
        return;
    }
    for (const auto& child : childWindows()) {
        child->listPanels(panels);
    }
}

void DockableGroup::setNested(bool nested)
{
    setBorderVisible(!nested);
}

void DockableGroup::setLayoutMode(LayoutMode mode)
{
    m_layoutMode = mode;
    if (!m_splitter) {
        return;
    }
    if (mode == LayoutMode::Horizontal) {
        m_splitter->setOrientation(Qt::Horizontal);
    } else if (mode == LayoutMode::Vertical) {
        m_splitter->setOrientation(Qt::Vertical);
    }
    m_splitter->settleLimits();
}

void DockableGroup::setSizes(const QList<int>& sizes)
{
    m_splitterSizes->forget(); // as when the user moves a handle
    if (m_splitter) {
        m_splitter->share(sizes);
    }
}

void DockableGroup::applySizes(const QList<int>& sizes)
{
    if (m_splitter) {
        m_splitter->give(sizes);
    }
}

ui::docking::Limits DockableGroup::limits()
{
    if (!m_splitter || (childCount() == 0 && Rearranging::active())) {
        return {}; // not known yet
    }
    return m_splitter->limits(minimumSizeHint() - m_splitter->minimumSizeHint());
}

void DockableGroup::setLimits(const ui::docking::Limits& limits, Qt::Orientations lifted)
{
    const bool docked = groupOf(*this) || lifted;
    QSizePolicy policy = sizePolicy();
    policy.setHorizontalStretch(limits.stretch.width());
    policy.setVerticalStretch(limits.stretch.height());
    setSizePolicy(policy);
    // Just below Qt's own limit: at that it would go by the size policy instead.
    const int width = lifted.testFlag(Qt::Horizontal) ? QLAYOUTSIZE_MAX : limits.most.width();
    const int height = lifted.testFlag(Qt::Vertical) ? QLAYOUTSIZE_MAX : limits.most.height();
    setMaximumSize(docked ? QSize(width, height) : QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
}

QList<int> DockableGroup::sizes() const
{
    return m_splitter ? m_splitter->sizes() : QList<int>();
}

void DockableGroup::bringToFront()
{
    ui::docking::bringToFront(*window());
}

void DockableGroup::setBorderVisible(bool visible)
{
    if (windowMode() != WindowMode::Group) {
        return;
    }
    const int margin = visible ? kBorder : 0;
    m_layout->setContentsMargins(margin, margin, margin, margin);
    m_borderHidden = !visible;
}

void DockableGroup::removeFromParent(DockableGroup* group)
{
    DockableWindow::removeFromParent(group);
    setBorderVisible(true);
}

void DockableGroup::offsetParent(DockableWindow* window)
{
    const QRect available = screen()->availableGeometry();
    QPoint position = pos();
    if (m_layoutMode == LayoutMode::Vertical) {
        position.setY(std::max(position.y() - window->height(), available.top()));
    } else if (m_layoutMode == LayoutMode::Horizontal) {
        position.setX(std::max(position.x() - window->width(), available.left()));
    }
    move(position);
}

QSize DockableGroup::combinedSize(DockableWindow* window)
{
    const QSize own = childCount() > 0 ? size() : QSize(0, 0);
    const QSize other = window->size();
    QSize combined = own.expandedTo(other);
    if (m_layoutMode == LayoutMode::Vertical) {
        combined.setHeight(own.height() + other.height());
    } else {
        combined.setWidth(own.width() + other.width());
    }
    QSize limit(-1, -1);
    if (const QScreen* screen = getClosestScreenAt(QCursor::pos())) {
        limit = screen->availableSize();
        limit.rheight() -= style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this);
    }
    return combined.boundedTo(limit);
}

void DockableGroup::collapseGroup()
{
    if (isMainWindow(*this) || isClosing() || Answers::putOff(*this, [this] { collapseGroup(); })) {
        return;
    }
    ui::docking::LayoutChange change;
    const ui::docking::FocusKeeper focus;
    const QPointer<DockableGroup> self(this);
    const QPointer<DockableGroup> parent = groupOf(*this);
    const bool empty = childCount() == 0;
    if (parent) {
        handChildrenTo(*parent);
    } else {
        floatChildren();
    }
    if (self) {
        closeEmptied();
    }
    if (parent && empty) {
        parent->collapseIfNeedless();
    }
}

/// The children take this group's place in its parent, and share its room as they did here.
void DockableGroup::handChildrenTo(DockableGroup& parent)
{
    const Rearranging rearranging;
    const GroupSplitter::Pause pause(parent.m_splitter);
    const GroupSplitter::Pause leaving(m_splitter);
    const QList<int> neighbours = parent.sizes();
    const int place = parent.indexOfChild(this);
    const bool inFront = parent.isInFront(*this);
    QList<int> parts = sizes();
    if (parent.getLayoutMode() != m_layoutMode
        || std::accumulate(parts.begin(), parts.end(), 0) == 0) {
        parts = QList<int>(childCount(), 1); // lying across or in tabs, they had all of it
    }
    const DockableWindow* seen = frontChild();

    std::vector<DockableWindow*> moved;
    for (const auto& child : childWindows()) {
        if (child) {
            parent.insertChild(place + static_cast<int>(moved.size()), child);
            if (parent.indexOfChild(child) >= 0) { // a closing one is refused
                moved.push_back(child);
            }
        }
    }
    removeFromParent(&parent);
    if (!moved.empty() && inFront) {
        const auto front = std::find(moved.begin(), moved.end(), seen);
        parent.bringForward(front != moved.end() ? **front : *moved.front());
    }
    if (!moved.empty() && static_cast<qsizetype>(moved.size()) == parts.size()) {
        parent.m_splitterSizes->splitDissolved(*this, *moved.back(), place, neighbours, parts);
    }
}

/// Each child floats where it is on screen; this group is not shown for it.
void DockableGroup::floatChildren()
{
    struct Place
    {
        QPointer<DockableWindow> child;
        QPoint position;
        QSize size;
    };
    std::vector<Place> places; // of all, since those that stay spread when one leaves
    for (const auto& child : childWindows()) {
        places.push_back({child, floatPlaceOf(*child), floatSizeOf(*child)});
    }
    const QPointer<DockableGroup> self(this);
    for (const Place& place : places) {
        if (!self || !place.child || indexOfChild(place.child) < 0) {
            continue;
        }
        place.child->removeFromParent(this);
        if (place.child) {
            place.child->move(place.position);
            place.child->resize(place.size);
        }
    }
}

QPoint DockableGroup::floatPlaceOf(const DockableWindow& child) const
{
    const QPoint frame = geometry().topLeft() - pos(); // the child's will be as wide
    return mapToGlobal(child.mapTo(this, QPoint())) - frame;
}

QSize DockableGroup::floatSizeOf(const DockableWindow& child) const
{
    return child.size();
}

void DockableGroup::closeEmptied()
{
    const bool deletes = testAttribute(Qt::WA_DeleteOnClose);
    if (!deletes || isWindow()) { // else it goes where it is
        makeFloating();
    }
    close();
    if (deletes && !isClosing() && childCount() == 0) {
        // It has nothing left to ask about; and Qt closes no window that has lost its native one.
        m_closing = true;
        hide();
        deleteLater();
    }
}

void DockableGroup::collapseIfNeedless()
{
    if (childCount() < 2) {
        collapseGroup();
    }
}

/// From the event loop: a host may be about to put something else in it.
void DockableGroup::collapseIfEmpty()
{
    if (childCount() == 0 && !isAwaited()) {
        collapseGroup();
    }
}

/// What has been dragged out of it may still come back.
bool DockableGroup::isAwaited()
{
    const auto windows = ui::docking::mainWindow() ? gMainWindow->findChildren<DockableWindow*>()
                                                   : QList<DockableWindow*>();
    return std::any_of(windows.begin(), windows.end(), [this](const DockableWindow* window) {
        return window->oldParent() == this && window->m_dragHandler.mayTakeBack();
    });
}

bool DockableGroup::mayClose()
{
    std::vector<QPointer<DockableWindow>> panels; // which may do anything when they are asked
    for (DockableWindow* window : findChildren<DockableWindow*>()) {
        if (window->windowMode() == WindowMode::Panel && !window->isClosing()) {
            panels.emplace_back(window);
        }
    }
    return std::all_of(panels.begin(), panels.end(), [](const QPointer<DockableWindow>& panel) {
        return !panel || TreeAccess::agreesToClose(*panel);
    });
}

void DockableGroup::closeEvent(QCloseEvent* event)
{
    if (isMainWindow(*this)) {
        if (mayClose()) {
            DockableWindow::closeEvent(event);
        } else {
            event->ignore();
        }
        return;
    }
    const QPointer<DockableGroup> self(this); // they may do anything
    m_askingToClose = true;
    bool refused = false;
    std::vector<std::pair<QPointer<DockableWindow>, QSize>> sizes; // before the first one leaves
    for (const auto& child : childWindows()) {
        sizes.emplace_back(child, child->isHidden() ? QSize() : child->size());
    }
    for (const auto& [child, size] : sizes) {
        refused = refused || (child && !child->close());
        if (child && size.isValid() && child->isFloating()) {
            child->resize(size);
        }
    }
    if (!self) {
        return;
    }
    m_askingToClose = false;
    if (refused || childCount() > 0) { // one that came meanwhile has not been asked
        event->ignore();
        QMetaObject::invokeMethod(this, &DockableGroup::collapseIfNeedless, Qt::QueuedConnection);
    } else {
        DockableWindow::closeEvent(event);
    }
}

void DockableGroup::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LayoutDirectionChange) {
        for (const auto& child : childWindows()) {
            handDownDirection(*child);
        }
    }
    DockableWindow::changeEvent(event);
}

/// The splitter is always left to right, its children are as the group is.
void DockableGroup::handDownDirection(DockableWindow& child)
{
    const bool own = child.testAttribute(Qt::WA_SetLayoutDirection) && !child.m_directionHandedDown;
    if (!own && child.layoutDirection() != layoutDirection()) {
        child.setLayoutDirection(layoutDirection());
        child.m_directionHandedDown = true;
    }
}

DockableGroup::LayoutMode DockableGroup::layoutModeOf(DockableArea area)
{
    return ui::docking::isVertical(area) ? LayoutMode::Vertical : LayoutMode::Horizontal;
}

bool DockableGroup::takesDirectly(DockableArea area)
{
    return m_layoutMode == layoutModeOf(area) || childCount() == 0;
}

bool DockableGroup::hasAt(DockableWindow& window, DockableArea area)
{
    const int index = indexOfChild(&window);
    const int wanted = ui::docking::insertIndex(area) == 0 ? 0 : childCount() - 1;
    return index >= 0 && index == wanted && takesDirectly(area);
}

DockableGroup* DockableGroup::takeIn(DockableWindow& window, DockableArea area)
{
    if (!takesDirectly(area)) {
        return nullptr;
    }
    insertDirectly(window, area);
    return this;
}

void DockableGroup::insertDirectly(DockableWindow& window, DockableArea area)
{
    if (m_splitter) {
        setLayoutMode(layoutModeOf(area)); // another one only while there are no children
    }
    const QPointer<DockableWindow> both[] = {this, &window}; // who hears of it may delete them
    insertChild(ui::docking::insertIndex(area), &window);
    if (both[0] && both[1]) {
        bringForward(window);
    }
    for (const auto& one : both) {
        if (one) {
            one->updateGeometry();
        }
    }
}

std::vector<QPointer<DockableWindow>> DockableGroup::childWindows()
{
    std::vector<QPointer<DockableWindow>> found;
    for (int index = 0; index < childCount(); ++index) {
        if (DockableWindow* child = getChild(index)) {
            found.emplace_back(child);
        }
    }
    return found;
}
