// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/docking/saving/layoutnode.h"
#include <MorrantUI/docking/saving/savedlayouts.h>

#include <QHash>
#include <QPointer>

#include <vector>

class DockableGroup;
class DockableWindow;

namespace ui::docking {

/// Brings the panels in and above the main window into a saved arrangement. Each moves straight
/// from its old group into its new one, so that none is seen at another place or leaves its window
/// without need.
class LayoutRestore
{
public:
    LayoutRestore(DockableGroup& root, const SavedLayout& layout);

    /// @param panelForName asked once for each panel of the layout, before anything moves
    void run(const PanelForName& panelForName);

    /// What of the layout could be had, after run().
    const SavedLayout& layout() const { return m_layout; }
    /// The windows that float for it, hidden while the main window is.
    const std::vector<QPointer<DockableWindow>>& floated() const { return m_floated; }

private:
    using Windows = std::vector<QPointer<DockableWindow>>;

    void claim(const PanelForName& panelForName);
    bool isClaimed(const DockableWindow& window) const;
    void closeUnwanted();
    void prune();
    void noteOthers();
    std::vector<QPointer<DockableGroup>> groupsNow() const;
    static void deleteEmptied(const std::vector<QPointer<DockableGroup>>& groups);
    void fill(DockableGroup& group, const LayoutNode& node);
    DockableWindow* assemble(const LayoutNode& node);
    void floatWindow(const SavedWindow& saved);

    QPointer<DockableGroup> m_root;
    SavedLayout m_layout;
    QHash<QString, QPointer<DockableWindow>> m_panels; ///< by the layout's names
    Windows m_others;                                  ///< not in the layout, and to be seen
    Windows m_floated;
};

/// Gives the groups below a window the sizes of a layout, as far as they have the same children.
void applySizes(DockableWindow& window, const LayoutNode& node);

} // namespace ui::docking
