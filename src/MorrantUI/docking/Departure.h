// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/docking/LayoutChange.h"
#include "MorrantUI/docking/panelfocus.h"

#include <QPointer>

class DockableGroup;
class DockableWindow;

namespace ui::docking {

/// A window leaves its group, perhaps for good, and remembers the place.
class Departure
{
public:
    /// @param group that the window is in
    Departure(DockableWindow& window, DockableGroup& group);

    /// It floats where it was on screen.
    /// @param collapse dissolves a group left with fewer than two children
    void undock(bool collapse);
    /// Unseen, then it closes; one that refuses floats. A group left with one child dissolves.
    void close();
    /// It has accepted its closing: hidden and afloat it waits for its end or, kept by the host,
    /// for being shown again.
    void closed();

    /// The step that docking elsewhere shares: out of the group, without showing anything.
    static void takeOut(DockableWindow& window, DockableGroup& group);

private:
    bool isPossible() const;

    LayoutChange m_change;
    FocusKeeper m_focus;
    QPointer<DockableWindow> m_window;
    QPointer<DockableGroup> m_group;
};

} // namespace ui::docking
