// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/Departure.h"

#include "MorrantUI/docking/DragOrigin.h"
#include "MorrantUI/docking/GroupSplitter.h"
#include "MorrantUI/docking/Rearranging.h"
#include "MorrantUI/docking/SplitterSizes.h"
#include <MorrantUI/docking/DockableGroup.h>
#include <MorrantUI/docking/arrangement.h>

namespace ui::docking {

Departure::Departure(DockableWindow& window, DockableGroup& group)
    : m_window(&window)
    , m_group(&group)
{
    restorePanels(); // which runs slots
    if (isPossible()) {
        m_change.note(*m_window);
        m_window->m_home = std::make_unique<DragOrigin>(*m_window);
    }
}

bool Departure::isPossible() const
{
    return m_window && m_group && m_group->indexOfChild(m_window) >= 0;
}

void Departure::undock(bool collapse)
{
    if (!isPossible()) {
        return;
    }
    m_window->removeFromParent(m_group);
    if (m_group && collapse && m_group->childCount() < 2) {
        m_group->collapseGroup();
    } else if (m_group && !Rearranging::active()) {
        m_group->showInGroup();
    }
}

void Departure::close()
{
    if (!isPossible()) {
        return;
    }
    takeOut(*m_window, *m_group); // on its way out it need not be seen on its own
    if (m_window) {
        m_window->makeFloating();
    }
    if (m_group && m_group->childCount() > 1) {
        m_group->showInGroup();
    } else if (m_group) {
        m_group->collapseGroup();
    }
    if (m_window && !m_window->close() && m_window) {
        m_window->show();
    }
}

void Departure::closed()
{
    if (!isPossible()) {
        return;
    }
    const bool unseen = m_window->isHidden() && m_window->m_seenSize.isValid();
    const QSize before = unseen ? m_window->m_seenSize : m_window->size();
    takeOut(*m_window, *m_group);
    if (m_window) {
        m_window->makeFloating();
        m_window->resize(before);
    }
    if (m_group && !m_group->m_askingToClose) {
        m_group->collapseIfNeedless();
    }
}

void Departure::takeOut(DockableWindow& window, DockableGroup& group)
{
    const QPointer<DockableWindow> leaver(&window);
    const QPointer<DockableGroup> left(&group);
    const GroupSplitter::Pause pause(group.m_splitter);
    {
        const Rearranging rearranging;
        window.removeFromParent(left);
    }
    if (left && leaver) {
        left->m_splitterSizes->giveBack(*leaver);
    }
}

} // namespace ui::docking
