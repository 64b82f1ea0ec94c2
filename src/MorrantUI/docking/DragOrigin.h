#pragma once

#include "MorrantUI/docking/SplitterSizes.h"

#include <QPoint>
#include <QPointer>

class DockableWindow;

namespace ui::docking {

/// Where a window is before it is dragged away, so that the drag can be taken back.
class DragOrigin
{
public:
    explicit DragOrigin(DockableWindow& window);

    /// Puts the window there again, and what lies around it as it was. One whose group is gone
    /// stays where it floats; one that is docked somewhere stays there.
    void restore(DockableWindow& window) const;

private:
    QPointer<QObject> m_group; ///< null if the window floats; or while it is being destroyed
    bool m_floats;
    bool m_inFront = true; ///< no other tab lay before it
    int m_index = -1;      ///< in the group
    SplitterSizes::Memory m_sizes;
    QPoint m_position; ///< of a window that floats
};

} // namespace ui::docking
