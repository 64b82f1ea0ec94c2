// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/saving/LayoutRestore.h"

#include "MorrantUI/docking/LayoutChange.h"
#include "MorrantUI/docking/Rearranging.h"
#include "MorrantUI/docking/afloat.h"
#include "MorrantUI/docking/docktree.h"
#include <MorrantUI/docking/DockableHeader.h>
#include <MorrantUI/docking/DockableTabGroup.h>
#include <MorrantUI/theme/screens.h>

#include <QApplication>
#include <QScreen>

#include <algorithm>

namespace ui::docking {

namespace {

using Kind = LayoutNode::Kind;

QScreen* screenFor(const SavedWindow& saved)
{
    const auto screens = QGuiApplication::screens();
    const auto named = std::find_if(screens.begin(), screens.end(), [&saved](QScreen* screen) {
        return screen->name() == saved.screen && screen->geometry().intersects(saved.geometry);
    });
    return named != screens.end() ? *named : getClosestScreenAt(saved.geometry.center());
}

DockableGroup* makeGroup(Kind kind)
{
    return kind == Kind::Tabs ? new DockableTabGroup : new DockableGroup;
}

/// Gives the keyboard focus back to who had it, once everything has its place.
class FocusReturn
{
public:
    FocusReturn() = default;
    ~FocusReturn()
    {
        if (m_focus && m_focus->isVisible() && !m_focus->hasFocus()) {
            m_focus->setFocus(Qt::OtherFocusReason);
        }
    }
    Q_DISABLE_COPY_MOVE(FocusReturn)

private:
    QPointer<QWidget> m_focus = QApplication::focusWidget();
};

} // namespace

void applySizes(DockableWindow& window, const LayoutNode& node)
{
    auto* group = qobject_cast<DockableGroup*>(&window);
    if (!group || group->childCount() != static_cast<int>(node.children.size())) {
        return;
    }
    if (node.kind != Kind::Tabs && node.sizes.size() == group->childCount()) {
        group->setSizes(node.sizes);
    }
    for (int i = 0; i < group->childCount(); ++i) { // from the outside in: they must have room
        applySizes(*group->getChild(i), node.children[static_cast<std::size_t>(i)]);
    }
}

LayoutRestore::LayoutRestore(DockableGroup& root, const SavedLayout& layout)
    : m_root(&root)
    , m_layout(layout)
{}

void LayoutRestore::run(const PanelForName& panelForName)
{
    claim(panelForName);
    if (!m_root) {
        return; // the host's function has replaced the whole main window
    }
    const LayoutChange change;
    const FocusReturn focus;
    closeUnwanted();
    if (!m_root) {
        return; // or what is in a panel, as it was asked
    }
    prune();
    noteOthers();
    const std::vector<QPointer<DockableGroup>> before = groupsNow();
    {
        const Rearranging rearranging;
        fill(*m_root, m_layout.root);
        for (const QPointer<DockableWindow>& window : m_others) {
            if (window) {
                m_root->appendChild(window);
            }
        }
    }
    for (const SavedWindow& window : m_layout.floating) {
        floatWindow(window);
    }
    deleteEmptied(before);
    applySizes(*m_root, m_layout.root);
}

/// Who comes where is known before anything moves, since the host may do whatever it likes when it
/// is asked.
void LayoutRestore::claim(const PanelForName& panelForName)
{
    QStringList names = panelsOf(m_layout.root);
    for (const SavedWindow& window : m_layout.floating) {
        names += panelsOf(window.root);
    }
    names.removeDuplicates();
    QSet<DockableWindow*> taken;
    for (const QString& name : names) {
        DockableWindow* const window = panelForName(name);
        if (window && window->windowMode() == DockableWindow::WindowMode::Panel
            && !window->isClosing() && !taken.contains(window))
        {
            taken.insert(window);
            m_panels.insert(name, window);
        }
    }
}

/// Leaves out what cannot be had, or not any more.
void LayoutRestore::prune()
{
    QSet<QString> found;
    for (auto panel = m_panels.cbegin(); panel != m_panels.cend(); ++panel) {
        if (panel.value() && !panel.value()->isClosing()) {
            found.insert(panel.key());
        }
    }
    const QStringList closed = m_layout.closed;
    m_layout = withOnly(m_layout, found);
    m_layout.closed = closed;
}

bool LayoutRestore::isClaimed(const DockableWindow& window) const
{
    return std::any_of(m_panels.cbegin(), m_panels.cend(), [&window](const auto& panel) {
        return panel == &window;
    });
}

/// What they do as they are asked comes before anything else is looked at.
void LayoutRestore::closeUnwanted()
{
    Windows unwanted;
    for (DockableWindow* window : allPanels()) {
        if (!isClaimed(*window) && m_layout.closed.contains(window->objectName())) {
            unwanted.emplace_back(window);
        }
    }
    for (const QPointer<DockableWindow>& window : unwanted) {
        if (window && window->isFloating()) {
            window->close();
        } else if (window) {
            window->undockAndClose();
        }
    }
}

/// Also those that have refused to close.
void LayoutRestore::noteOthers()
{
    for (DockableWindow* window : allPanels()) {
        if (!isClaimed(*window) && (groupOf(*window) || !window->isHidden())) {
            m_others.emplace_back(window);
        }
    }
}

std::vector<QPointer<DockableGroup>> LayoutRestore::groupsNow() const
{
    std::vector<QPointer<DockableGroup>> groups;
    for (DockableGroup* group : m_root->findChildren<DockableGroup*>()) {
        groups.emplace_back(group);
    }
    return groups;
}

/// Of the former groups, from which all panels have moved to their new places.
void LayoutRestore::deleteEmptied(const std::vector<QPointer<DockableGroup>>& groups)
{
    for (const QPointer<DockableGroup>& group : groups) {
        if (!group) {
            continue; // it lay in another one
        }
        if (DockableGroup* parent = groupOf(*group)) {
            parent->takeChild(parent->indexOfChild(group));
        }
        delete group;
    }
}

void LayoutRestore::fill(DockableGroup& group, const LayoutNode& node)
{
    if (node.kind != Kind::Tabs) {
        group.setLayoutMode(
            node.kind == Kind::Column ? DockableGroup::LayoutMode::Vertical
                                      : DockableGroup::LayoutMode::Horizontal);
    }
    for (const LayoutNode& child : node.children) {
        if (DockableWindow* window = assemble(child)) {
            group.appendChild(window);
        }
    }
    if (auto* tabs = qobject_cast<DockableTabGroup*>(&group)) {
        tabs->setActiveIndex(node.active);
    }
}

DockableWindow* LayoutRestore::assemble(const LayoutNode& node)
{
    if (node.kind == Kind::Panel) {
        DockableWindow* const window = m_panels.value(node.panel);
        if (window && window->header()) {
            window->setHeaderVisible(!node.headerHidden);
        }
        return window;
    }
    DockableGroup* const group = makeGroup(node.kind);
    fill(*group, node);
    return group;
}

void LayoutRestore::floatWindow(const SavedWindow& saved)
{
    QPointer<DockableWindow> window;
    if (saved.root.kind == Kind::Panel) {
        window = assemble(saved.root);
        if (DockableGroup* parent = window ? groupOf(*window) : nullptr) {
            parent->takeChild(parent->indexOfChild(window));
        }
    } else {
        DockableGroup* const group = makeGroup(saved.root.kind);
        const Rearranging rearranging;
        fill(*group, saved.root);
        window = group;
    }
    if (!window) {
        return;
    }
    if (!saved.geometry.isEmpty()) {
        const QScreen* const screen = screenFor(saved);
        window->setWindowState(
            window->windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized));
        const QMargins frame = frameOf(*window);
        const QRect whole = saved.geometry.marginsAdded(frame);
        window->setGeometry(
            screen ? within(whole, screen->availableGeometry()).marginsRemoved(frame)
                   : saved.geometry);
    }
    if (saved.state != SavedState::Normal) {
        window->setWindowState(
            saved.state == SavedState::Maximized ? Qt::WindowMaximized : Qt::WindowMinimized);
    }
    window->setVisible(m_root->isVisible());
    m_floated.push_back(window);
    applySizes(*window, saved.root);
}

} // namespace ui::docking
