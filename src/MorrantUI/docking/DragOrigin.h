// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/docking/SplitterSizes.h"
#include <MorrantUI/docking/DockableArea.h>

#include <QPoint>
#include <QPointer>
#include <QRect>

class DockableGroup;
class DockableWindow;

namespace ui::docking {

/// Where a window is before it is dragged away, so that the drag can be taken back.
class DragOrigin
{
public:
    explicit DragOrigin(DockableWindow& window);

    bool floats() const { return m_floats; }
    /// Where the window last lay when it floated, not where it was dragged.
    const QRect& floatPlace() const { return m_floatPlace; }
    /// Puts the window there again, and what lies around it as it was. One whose group is gone
    /// stays where it floats; one that is docked somewhere stays there.
    void restore(DockableWindow& window) const;
    /// Docks it there again later, when much may have changed: beside its neighbour of then if its
    /// group is gone, else at the right of the main window.
    void dockAgain(DockableWindow& window) const;

private:
    DockableGroup* group(DockableWindow& window) const;

    QPointer<QObject> m_group; ///< null if the window floats; or while it is being destroyed
    bool m_floats;
    bool m_inFront = true; ///< no other tab lay before it
    int m_index = -1;      ///< in the group
    SplitterSizes::Memory m_sizes;
    QPoint m_position; ///< of a window that floats
    QSize m_size;
    Qt::WindowStates m_state; ///< maximised, perhaps
    QRect m_usual;            ///< without that
    QRect m_floatPlace;
    QPointer<QObject> m_neighbour;            ///< in the group
    DockableArea m_area = DockableArea::None; ///< of the neighbour
};

} // namespace ui::docking
