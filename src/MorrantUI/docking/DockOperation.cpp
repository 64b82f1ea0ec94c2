#include "MorrantUI/docking/DockOperation.h"

#include "MorrantUI/docking/GroupRoom.h"
#include "MorrantUI/docking/Rearranging.h"
#include "MorrantUI/docking/docktree.h"
#include "MorrantUI/theme/FrozenUpdates.h"
#include <MorrantUI/docking/DockableTabGroup.h>

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

DockableWindow* DockOperation::run()
{
    if (DockableGroup* group = m_target.takeIn(m_window, m_area)) {
        return group;
    }
    DockableGroup* parent = groupOf(m_target);
    DockableGroup* holder = parent ? splitInGroup(*parent) : splitFloating();
    m_target.updateGeometry();
    m_window.updateGeometry();
    return holder;
}

DockableGroup* DockOperation::makeHolder() const
{
    auto* holder = m_area == DockableArea::Center ? new DockableTabGroup : new DockableGroup;
    holder->setLayoutMode(DockableGroup::layoutModeOf(m_area));
    return holder;
}

/// The target's place in its group goes to a new group of it and the newcomer.
DockableGroup* DockOperation::splitInGroup(DockableGroup& parent)
{
    DockableGroup* holder = makeHolder();
    // Not their root too: it would be painted anew as a whole, at twenty times the cost. Nothing is
    // painted before control returns to the event loop anyway.
    const FrozenUpdates frozen{&m_target, &m_window};
    const Rearranging rearranging;
    const QList<int> neighbours = parent.sizes();
    const QList<int> pair =
        GroupRoom::sharesFor(m_target.extentAlong(m_area), m_window.extentAlong(m_area), m_area);
    const int index = parent.indexOfChild(&m_target);
    const bool inFront = parent.isInFront(m_target);

    m_target.undock(false);
    holder->appendChild(&m_target);
    holder->insertChild(insertIndex(m_area), &m_window);
    holder->bringForward(m_window);
    holder->applySizes(pair);
    parent.insertChild(index, holder);
    if (inFront) {
        parent.bringForward(*holder);
    }
    parent.m_room->holderArrived(m_target, *holder, neighbours);
    return holder;
}

/// A new group comes where the floating target is.
DockableGroup* DockOperation::splitFloating()
{
    DockableGroup* holder = makeHolder();
    const QRect alone(m_target.pos(), m_target.size());
    const QSize newcomerAlone = m_window.size();
    const int own = m_target.extentAlong(m_area);

    holder->appendChild(&m_target);
    holder->insertChild(insertIndex(m_area), &m_window);
    holder->bringForward(m_window);
    holder->m_room->setSizesAround(m_target, own);
    holder->move(alone.topLeft());
    holder->show();
    holder->m_room->rememberPair(m_target, alone, m_window, newcomerAlone);
    return holder;
}

} // namespace ui::docking
