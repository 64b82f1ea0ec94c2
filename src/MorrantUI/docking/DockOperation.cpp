// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/DockOperation.h"

#include "MorrantUI/docking/Departure.h"
#include "MorrantUI/docking/GroupSplitter.h"
#include "MorrantUI/docking/LayoutChange.h"
#include "MorrantUI/docking/Rearranging.h"
#include "MorrantUI/docking/SplitterSizes.h"
#include "MorrantUI/docking/WindowLayout.h"
#include "MorrantUI/docking/docktree.h"
#include "MorrantUI/docking/panelfocus.h"
#include "MorrantUI/theme/FrozenUpdates.h"
#include <MorrantUI/docking/DockableTabGroup.h>
#include <MorrantUI/docking/arrangement.h>

namespace ui::docking {

DockOperation::DockOperation(DockableWindow& target, DockableWindow& window, DockableArea area)
    : m_target(target)
    , m_window(window)
    , m_area(area)
{}

bool DockOperation::isPossible() const
{
    const bool splits =
        !isMainWindow(m_target) || m_target.windowMode() == DockableWindow::WindowMode::Group;
    return isPlace(m_area) && (splits || m_target.takesDirectly(m_area));
}

bool DockOperation::isNeedless() const
{
    return m_target.hasAt(m_window, m_area);
}

DockableWindow* DockOperation::dock()
{
    if (!isPossible()) {
        return nullptr;
    }
    if (isNeedless()) {
        groupOf(m_window)->bringForward(m_window);
        return &m_target;
    }
    const QPointer<DockableWindow> target(&m_target);
    const QPointer<DockableWindow> newcomer(&m_window);
    restorePanels(); // which runs slots
    if (!target || !newcomer || !target->canTake(newcomer)) {
        return nullptr;
    }
    QPointer<DockableWindow> result; // slots that hear of it may delete it
    {
        LayoutChange change;
        const FocusKeeper focus;
        change.note(m_target);
        change.note(m_window);
        m_window.settleLimits();
        const QPointer<DockableGroup> old = groupOf(m_window);
        if (old) {
            Departure::takeOut(m_window, *old);
        }
        if (target && newcomer) {
            result = run();
        }
        if (newcomer && !newcomer->m_closing && !groupOf(*newcomer)) {
            newcomer->makeFloating(); // something has come in between
            newcomer->show();
        }
        if (old && old != result) {
            old->collapseIfNeedless();
        }
    }
    return result;
}

QPointer<DockableWindow> DockOperation::run()
{
    const QPointer<DockableWindow> target(&m_target);
    const QPointer<DockableWindow> window(&m_window);
    if (m_target.takeIn(m_window, m_area)) {
        return target;
    }
    if (isMainWindow(m_target)) {
        splitRoot(static_cast<DockableGroup&>(m_target));
        return target;
    }
    DockableGroup* parent = groupOf(m_target);
    QPointer<DockableGroup> group = parent ? splitInGroup(*parent) : splitFloating();
    for (const auto& moved : {target, window}) {
        if (moved) {
            moved->updateGeometry();
        }
    }
    return group.data();
}

DockableGroup* DockOperation::makeGroup() const
{
    auto* group = m_area == DockableArea::Center ? new DockableTabGroup : new DockableGroup;
    group->setLayoutMode(DockableGroup::layoutModeOf(m_area));
    return group;
}

/// All children move into a new group, which then lies across the newcomer.
void DockOperation::splitRoot(DockableGroup& root)
{
    const int room = isVertical(m_area) ? root.m_splitter->height() : root.m_splitter->width();
    const QList<int> shares = SplitterSizes::sharesFor(room, m_window.extentAlong(m_area), m_area);
    const QPointer<DockableGroup> inner = moveChildrenDown(root, m_area);
    const QPointer<DockableWindow> window(&m_window);
    {
        const GroupSplitter::Pause pause(root.m_splitter);
        const Rearranging rearranging;
        root.insertChild(insertIndex(m_area), &m_window);
        if (root.isVisible()) {
            root.applySizes(shares);
        }
    }
    // A lone group in a group: without this every newcomer that comes and goes would add one.
    DockableWindow* lone = inner && inner->childCount() == 1 ? inner->getChild(0) : nullptr;
    if (lone && lone->windowMode() == DockableWindow::WindowMode::Group) {
        inner->collapseGroup();
        return;
    }
    for (const QPointer<DockableWindow>& moved : {QPointer<DockableWindow>(inner), window}) {
        if (moved) {
            moved->updateGeometry();
            moved->show();
        }
    }
}

/// Moves all children, and how they share the room, into a new group, by trading splitters. That
/// group becomes the root's only child.
DockableGroup* DockOperation::moveChildrenDown(DockableGroup& root, DockableArea area)
{
    LayoutChange change;
    const Rearranging rearranging;
    for (const auto& child : root.childWindows()) {
        change.note(*child);
    }
    auto* inner = new DockableGroup;
    inner->m_layoutMode = root.m_layoutMode;
    GroupSplitter* full = root.m_splitter;
    GroupSplitter* empty = inner->m_splitter;
    full->disconnect(&root);
    empty->disconnect(inner);
    root.m_layout->removeWidget(full);
    inner->m_layout->removeWidget(empty);
    inner->m_splitter.clear();
    root.adoptSplitter(empty);
    empty->show();
    root.setLayoutMode(DockableGroup::layoutModeOf(area));
    root.appendChild(inner); // before its children, so that these stay in this window
    inner->adoptSplitter(full);
    full->settleLimits();
    empty->settleLimits();
    inner->m_splitterSizes->takeMemoryOf(*root.m_splitterSizes);
    return inner;
}

/// The target's place in its group goes to a new group of it and the newcomer.
QPointer<DockableGroup> DockOperation::splitInGroup(DockableGroup& parent)
{
    QPointer<DockableGroup> group = makeGroup();
    // Not their root too: it would be painted anew as a whole, at twenty times the cost. Nothing is
    // painted before control returns to the event loop anyway.
    const FrozenUpdates frozen{&m_target, &m_window};
    const Rearranging rearranging;
    const QList<int> neighbours = parent.sizes();
    const QList<int> pair = SplitterSizes::sharesFor(
        m_target.extentAlong(m_area), m_window.extentAlong(m_area), m_area);
    const int index = parent.indexOfChild(&m_target);
    const bool inFront = parent.isInFront(m_target);

    const QPointer<DockableGroup> holder(&parent); // who hears that one is shown may delete others
    const QPointer<DockableWindow> target(&m_target);
    const QPointer<DockableWindow> window(&m_window);
    const GroupSplitter::Pause pause(parent.m_splitter);
    const GroupSplitter::Pause pausePair(group->m_splitter);

    // The target moves into the group in its own place, so that it never leaves the window that
    // both are in.
    parent.insertChild(index, group);
    if (parent.m_splitter) { // which shows it when it is laid out, too late for that
        group->setGeometry(m_target.geometry());
        group->show();
    }
    group->appendChild(&m_target);
    if (inFront && group && holder) {
        holder->bringForward(*group);
    }
    if (group && window) { // what is in them hears of each step, and may do anything
        group->insertChild(insertIndex(m_area), window);
    }
    if (group && window) {
        group->bringForward(*window);
    }
    if (group) {
        group->applySizes(pair);
    }
    if (group && target && holder) {
        holder->m_splitterSizes->splitInserted(*target, *group, neighbours);
    }
    return group;
}

/// A new group comes where the floating target is.
QPointer<DockableGroup> DockOperation::splitFloating()
{
    QPointer<DockableGroup> group = makeGroup();
    const QPointer<DockableWindow> target(&m_target);
    const QPointer<DockableWindow> window(&m_window);
    const QRect alone(m_target.pos(), m_target.size());
    const QSize newcomerAlone = m_window.size();
    const int own = m_target.extentAlong(m_area);

    group->appendChild(&m_target);
    if (group && window) { // unless what is in the target has answered to its being hidden
        group->insertChild(insertIndex(m_area), window);
    }
    if (!group || !target || !window || group->childCount() < 2) {
        if (group) {
            group->collapseGroup();
        }
        return {};
    }
    group->bringForward(*window);
    group->m_splitterSizes->setSizesAround(*target, own);
    group->move(alone.topLeft());
    group->show();
    if (group && target && window && groupOf(*window) == group) {
        group->m_splitterSizes->rememberPair(*target, alone, *window, newcomerAlone);
    }
    return group;
}

} // namespace ui::docking
