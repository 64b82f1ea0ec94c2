// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/docking/DockableArea.h>

#include <QPointer>

class DockableGroup;
class DockableWindow;

namespace ui::docking {

/// A window docks at an area of a target, out of the group that it may be in. What
/// hears that it is shown may delete any of those that take part.
class DockOperation
{
public:
    DockOperation(DockableWindow& target, DockableWindow& window, DockableArea area);

    /// @return the group that now holds both, if it still lives; null if nothing was docked
    DockableWindow* dock();

private:
    /// Whether there is a way: a main window keeps its kind.
    bool isPossible() const;
    /// The window is a child of the target and already where it would come.
    bool isNeedless() const;
    QPointer<DockableWindow> run();
    /// A new group for target and newcomer.
    DockableGroup* makeGroup() const;
    void splitRoot(DockableGroup& root);
    static DockableGroup* moveChildrenDown(DockableGroup& root, DockableArea area);
    QPointer<DockableGroup> splitInGroup(DockableGroup& parent);
    QPointer<DockableGroup> splitFloating();

    DockableWindow& m_target;
    DockableWindow& m_window;
    DockableArea m_area;
};

} // namespace ui::docking
