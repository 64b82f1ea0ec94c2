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
{
    if (DockableGroup* group = groupOf(window)) {
        m_group = group;
        m_inFront = group->isInFront(window);
        m_index = group->indexOfChild(&window);
        m_sizes = group->m_splitterSizes->memory();
    }
}

void DragOrigin::restore(DockableWindow& window) const
{
    if (!window.isFloating()) {
        return;
    }
    if (m_floats) {
        window.move(m_position);
        return;
    }
    const QPointer<DockableGroup> group = qobject_cast<DockableGroup*>(m_group.data());
    if (!group || !group->canTake(&window)) {
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

} // namespace ui::docking
