#include "MorrantUI/docking/saving/LayoutRestore.h"

#include "MorrantUI/docking/LayoutChange.h"
#include "MorrantUI/docking/Rearranging.h"
#include "MorrantUI/docking/docktree.h"
#include "MorrantUI/theme/FrozenUpdates.h"
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

/// Behind the scenes windows belong to nobody.
void setFloating(DockableWindow& window, DockableGroup& root)
{
    if (window.parentWidget() != &root || !window.isWindow()) {
        window.setParent(&root, window.windowFlags() | Qt::Window);
    }
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
    const FrozenUpdates frozen{m_root};
    sortOutOthers();
    {
        const Rearranging rearranging;
        takeApart();
        fill(*m_root, m_layout.root);
        for (const QPointer<DockableWindow>& window : m_others) {
            if (window) {
                m_root->appendChild(window);
            }
        }
    }
    applySizes(*m_root, m_layout.root);
    for (const SavedWindow& window : m_layout.floating) {
        floatWindow(window);
    }
    closeUnwanted();
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
    QSet<QString> found;
    for (auto panel = m_panels.cbegin(); panel != m_panels.cend(); ++panel) {
        if (panel.value()) {
            found.insert(panel.key());
        }
    }
    const QStringList closed = m_layout.closed;
    m_layout = withOnly(m_layout, found);
    m_layout.closed = closed;
}

void LayoutRestore::sortOutOthers()
{
    for (DockableWindow* window : allPanels()) {
        const bool claimed =
            std::any_of(m_panels.cbegin(), m_panels.cend(), [window](const auto& panel) {
                return panel == window;
            });
        if (claimed) {
            continue;
        }
        if (m_layout.closed.contains(window->objectName())) {
            m_unwanted.emplace_back(window);
        } else if (groupOf(*window) || !window->isHidden()) {
            m_others.emplace_back(window);
        }
    }
}

void LayoutRestore::takeApart()
{
    for (DockableWindow* window : allPanels()) {
        if (DockableGroup* group = groupOf(*window)) {
            group->takeChild(group->indexOfChild(window));
        }
    }
    while (m_root->childCount() > 0) {
        delete m_root->takeChild(0); // groups without panels
    }
    for (DockableWindow* window : floatingWindows()) {
        if (window->windowMode() != DockableWindow::WindowMode::Panel) {
            delete window;
        }
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
    DockableGroup* group = node.kind == Kind::Tabs ? new DockableTabGroup : new DockableGroup;
    fill(*group, node);
    return group;
}

void LayoutRestore::floatWindow(const SavedWindow& saved)
{
    QPointer<DockableWindow> window;
    {
        const Rearranging rearranging;
        window = assemble(saved.root);
    }
    if (!window) {
        return;
    }
    setFloating(*window, *m_root);
    if (!saved.geometry.isEmpty()) {
        const QScreen* const screen = screenFor(saved);
        window->setWindowState(
            window->windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized));
        window->setGeometry(
            screen ? within(saved.geometry, screen->availableGeometry()) : saved.geometry);
    }
    if (saved.state != SavedState::Normal) {
        window->setWindowState(
            saved.state == SavedState::Maximized ? Qt::WindowMaximized : Qt::WindowMinimized);
    }
    window->setVisible(m_root->isVisible());
    applySizes(*window, saved.root);
}

/// A panel that refuses comes to the others.
void LayoutRestore::closeUnwanted()
{
    for (const QPointer<DockableWindow>& window : m_unwanted) {
        if (!window) {
            continue;
        }
        setFloating(*window, *m_root);
        if (!window->close() && window) {
            m_root->appendChild(window);
        }
    }
}

} // namespace ui::docking
