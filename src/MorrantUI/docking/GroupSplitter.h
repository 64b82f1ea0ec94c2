// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/docking/docktree.h"
#include "MorrantUI/docking/shares.h"
#include <MorrantUI/docking/SolidSplitter.h>

#include <vector>

/// The splitter of a group: its children leave none of its room empty.
///
/// A child keeps within its limits along the splitter as long as the others can take the rest; if
/// none can, the one that may grow most fills it. Across the splitter every child fills all of it.
/// What the children need and may have goes on to the group.
class GroupSplitter : public SolidSplitter
{
    Q_OBJECT

public:
    GroupSplitter();
    ~GroupSplitter() override;

    /// The room of the children, without the handles between those that are seen.
    int room() const;
    void give(const QList<int>& sizes);
    /// Shares the room in these proportions, as far as limits let it.
    void share(const QList<int>& sizes);

    /// Those of the children that are seen together, and of what lies beside the splitter.
    ui::docking::Limits limits(QSize beside) const;
    /// Before a newcomer comes in: its own limit would shrink all of them for a moment.
    static void liftLimits(QWidget& child);
    /// After children or their limits have changed: they share the room anew.
    void settleLimits();

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void childEvent(QChildEvent* event) override;

private:
    void readLimits();
    bool applyLimits();
    void fill();

    std::vector<ui::docking::Limits> m_limits; ///< of all children
    std::vector<ui::docking::Cell> m_cells;    ///< the same along the splitter
    bool m_limited = false;                    ///< one of them cannot have all of the room
};
