// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/DragOrigin.h"

#include "MorrantUI/docking/LayoutChange.h"
#include "MorrantUI/docking/Rearranging.h"
#include "MorrantUI/docking/docktree.h"
#include "MorrantUI/docking/panelfocus.h"
#include <MorrantUI/docking/DockableGroup.h>

namespace ui::docking {

DragOrigin::DragOrigin(DockableWindow& window)
    : m_floats(window.isFloating())
    , m_position(window.pos())
    , m_size(window.size())
    , m_state(window.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen))
    , m_usual(window.normalGeometry())
    , m_floatPlace(m_floats && !m_state ? QRect(m_position, m_size) : window.m_floatPlace)
{
    if (DockableGroup* group = groupOf(window)) {
        m_group = group;
        m_inFront = group->isInFront(window);
        m_index = group->indexOfChild(&window);
        m_sizes = group->m_splitterSizes->memory();
        const bool tabs = group->windowMode() == DockableWindow::WindowMode::TabGroup;
        const bool upright = group->getLayoutMode() == DockableGroup::LayoutMode::Vertical;
        const bool behind = m_index > 0;
        m_neighbour = group->getChild(behind ? m_index - 1 : m_index + 1);
        m_area = tabs      ? DockableArea::Center
                 : upright ? (behind ? DockableArea::Bottom : DockableArea::Top)
                           : (behind ? DockableArea::Right : DockableArea::Left);
    }
}

void DragOrigin::restore(DockableWindow& window) const
{
    if (!window.isFloating()) {
        return;
    }
    if (m_floats) {
        if (m_state & ~window.windowState()) { // the drag has given it its usual size
            window.setGeometry(m_usual);
            window.setWindowState(window.windowState() | m_state);
        } else {
            window.move(m_position);
        }
        return;
    }
    const QPointer<DockableGroup> group = this->group(window);
    if (!group) {
        return;
    }
    const LayoutChange change;
    const FocusKeeper focus;
    window.m_oldParent.clear(); // it needs no tidying
    {
        const Rearranging rearranging;
        group->insertChild(m_index, &window);
    }
    if (m_inFront) {
        group->bringForward(window);
    }
    if (group) {
        group->m_splitterSizes->recall(m_sizes);
    }
}

void DragOrigin::dockAgain(DockableWindow& window) const
{
    if (!window.isFloating() || m_floats) {
        return;
    }
    const QPointer<DockableWindow> self(&window); // what is in it may do anything when it is shown
    const QRect place(window.pos(), window.size());
    const LayoutChange change;
    const FocusKeeper focus;
    auto* neighbour = qobject_cast<DockableWindow*>(m_neighbour.data());
    if (const QPointer<DockableGroup> group = this->group(window)) {
        group->insertChild(m_index, &window);
        if (group && self) {
            group->bringForward(window);
        }
        if (group && group->sizes().size() == m_sizes.sizes.size()) {
            group->applySizes(m_sizes.sizes);
        }
    } else if (DockableGroup* main = mainWindow()) {
        window.resize(m_size); // what it gets of the neighbour's room
        const bool there = neighbour && neighbour->findDockableRoot() == main;
        there ? neighbour->dockInArea(&window, m_area)
              : main->dockInArea(&window, DockableArea::Right);
    }
    if (self) {
        self->m_floatPlace = place;
    }
}

/// If it still exists and takes the window.
DockableGroup* DragOrigin::group(DockableWindow& window) const
{
    auto* group = qobject_cast<DockableGroup*>(m_group.data());
    return group && group->canTake(&window) ? group : nullptr;
}

} // namespace ui::docking
