// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/saving/savedlayouts.h"

#include "MorrantUI/docking/Answers.h"
#include "MorrantUI/docking/docktree.h"
#include "MorrantUI/docking/saving/LayoutRestore.h"
#include "MorrantUI/docking/saving/layoutjson.h"
#include <MorrantUI/docking/DockableHeader.h>
#include <MorrantUI/docking/DockableTabGroup.h>

#include <QEvent>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace ui {

namespace {

using namespace docking;
using Kind = LayoutNode::Kind;

/// A layout that was restored before its main window was shown: nothing has a size yet that could
/// be given or read.
class UnshownLayout : public QObject
{
public:
    UnshownLayout(DockableGroup& root, const LayoutRestore& restore)
        : QObject(&root)
        , layout(restore.layout())
        , m_root(root)
        , m_floating(restore.floated())
    {
        delete of(root);
        setObjectName(kName);
        root.installEventFilter(this);
    }

    static UnshownLayout* of(const DockableGroup& root)
    {
        return static_cast<UnshownLayout*>(
            root.findChild<QObject*>(kName, Qt::FindDirectChildrenOnly));
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == &m_root && event->type() == QEvent::Show) {
            m_root.removeEventFilter(this);
            setObjectName({}); // at work no more, also for saveLayout() in a slot
            deleteLater();
            for (const QPointer<DockableWindow>& window : m_floating) {
                if (window) {
                    window->show();
                }
            }
            applySizes(m_root, layout.root);
        }
        return QObject::eventFilter(watched, event);
    }

    const SavedLayout layout;

private:
    inline static const QString kName = QStringLiteral("unshownLayout");

    DockableGroup& m_root;
    std::vector<QPointer<DockableWindow>> m_floating;
};

Kind kindOf(const DockableWindow& window)
{
    switch (window.windowMode()) {
    case DockableWindow::WindowMode::Panel: return Kind::Panel;
    case DockableWindow::WindowMode::TabGroup: return Kind::Tabs;
    case DockableWindow::WindowMode::Group: break;
    }
    const auto& group = static_cast<const DockableGroup&>(window);
    return group.getLayoutMode() == DockableGroup::LayoutMode::Vertical ? Kind::Column : Kind::Row;
}

/// Whether a group is, or everything in a group is, without a name.
bool isNameless(const LayoutNode& node)
{
    const QStringList panels = panelsOf(node);
    return std::all_of(
        panels.begin(), panels.end(), [](const QString& name) { return name.isEmpty(); });
}

LayoutNode nodeOf(DockableWindow& window)
{
    LayoutNode node;
    node.kind = kindOf(window);
    if (node.kind == Kind::Panel) {
        node.panel = window.objectName();
        node.headerHidden = window.header() && window.header()->isHidden();
        return node;
    }
    auto& group = static_cast<DockableGroup&>(window);
    const QList<int> sizes = group.sizes();
    const auto* tabs = qobject_cast<DockableTabGroup*>(&group);
    for (int i = 0; i < group.childCount(); ++i) {
        LayoutNode child = nodeOf(*group.getChild(i));
        if (isNameless(child)) {
            continue;
        }
        if (tabs && i == tabs->activeIndex()) {
            node.active = static_cast<int>(node.children.size());
        } else if (!tabs && i < sizes.size()) {
            node.sizes.append(sizes[i]);
        }
        node.children.push_back(std::move(child));
    }
    return node;
}

SavedWindow savedWindow(DockableWindow& window)
{
    SavedWindow saved;
    saved.root = nodeOf(window);
    saved.state = window.isMinimized()   ? SavedState::Minimized
                  : window.isMaximized() ? SavedState::Maximized
                                         : SavedState::Normal;
    const bool normal = saved.state == SavedState::Normal || window.normalGeometry().isEmpty();
    saved.geometry = normal ? window.geometry() : window.normalGeometry();
    if (const QScreen* screen = window.screen()) {
        saved.screen = screen->name();
    }
    return saved;
}

/// While the main window itself is unseen, so is what floats above it.
bool isClosed(const DockableWindow& window, const DockableGroup& root)
{
    return window.isFloating() && window.isHidden() && root.isVisible();
}

SavedLayout currentLayout(DockableGroup& root)
{
    SavedLayout layout;
    layout.root = nodeOf(root);
    for (DockableWindow* window : floatingWindows()) {
        SavedWindow saved = savedWindow(*window);
        if (!isNameless(saved.root)) {
            layout.floating.push_back(std::move(saved));
        }
    }
    for (const DockableWindow* panel : allPanels()) {
        if (isClosed(*panel, root) && !panel->objectName().isEmpty()) {
            layout.closed.append(panel->objectName());
        }
    }
    return layout;
}

void listTree(DockableWindow& window, QList<DockableWindow*>& panels)
{
    if (auto* group = qobject_cast<DockableGroup*>(&window)) {
        for (int i = 0; i < group->childCount(); ++i) {
            listTree(*group->getChild(i), panels);
        }
    } else if (!window.isClosing()) {
        panels.append(&window);
    }
}

/// What floats, whether it is seen or not.
QList<DockableWindow*> windowsAbove(const DockableGroup& root)
{
    const auto children = root.findChildren<DockableWindow*>(QString(), Qt::FindDirectChildrenOnly);
    QList<DockableWindow*> windows;
    std::copy_if(
        children.begin(), children.end(), std::back_inserter(windows), [](DockableWindow* window) {
            return window->isFloating() && !window->isClosing();
        });
    return windows;
}

/// The smallest window that holds those of some panels which are docked; null for none.
DockableWindow* holderOf(const QStringList& panels, DockableWindow& window)
{
    auto* group = qobject_cast<DockableGroup*>(&window);
    if (!group) {
        return panels.contains(window.objectName()) ? &window : nullptr;
    }
    DockableWindow* found = nullptr;
    for (int i = 0; i < group->childCount(); ++i) {
        DockableWindow* const holder = holderOf(panels, *group->getChild(i));
        if (holder && found) {
            return group;
        }
        found = holder ? holder : found;
    }
    return found;
}

/// What takes a neighbour of a whole group: tabs as a whole, and not a group's only child, except
/// for the main window's.
DockableWindow& targetFor(DockableWindow& holder, Kind kind)
{
    DockableWindow* target = &holder;
    while (DockableGroup* parent = target->findDockableParentGroup()) {
        const bool isTab = parent->windowMode() == DockableWindow::WindowMode::TabGroup;
        if (isMainWindow(*parent) || (parent->childCount() > 1 && !isTab)) {
            break;
        }
        target = parent;
    }
    return kind == Kind::Tabs ? holder : *target;
}

void dockBeside(DockableWindow& window, DockableWindow& target, const Neighbour& place)
{
    DockableGroup* parent = target.findDockableParentGroup();
    if (parent && kindOf(*parent) == place.kind) {
        const int index = parent->indexOfChild(&target);
        parent->insertChild(place.isBefore ? index + 1 : index, &window);
    } else if (place.kind == Kind::Row) {
        target.dockInArea(&window, place.isBefore ? DockableArea::Right : DockableArea::Left);
    } else if (place.kind == Kind::Column) {
        target.dockInArea(&window, place.isBefore ? DockableArea::Bottom : DockableArea::Top);
    } else {
        DockableWindow* const holder = target.dockInArea(&window, DockableArea::Center);
        if (auto* tabs = qobject_cast<DockableTabGroup*>(holder); tabs && !place.isBefore) {
            tabs->insertChild(tabs->indexOfChild(&target), &window);
        }
    }
}

} // namespace

QList<DockableWindow*> allPanels()
{
    QList<DockableWindow*> panels;
    if (DockableGroup* root = mainWindow()) {
        listTree(*root, panels);
        for (DockableWindow* window : windowsAbove(*root)) {
            listTree(*window, panels);
        }
    }
    return panels;
}

DockableWindow* panelNamed(const QString& name)
{
    const QList<DockableWindow*> panels = allPanels();
    const auto found = std::find_if(panels.begin(), panels.end(), [&name](DockableWindow* panel) {
        return panel->objectName() == name;
    });
    return found != panels.end() ? *found : nullptr;
}

QList<DockableWindow*> floatingWindows()
{
    QList<DockableWindow*> windows;
    if (const DockableGroup* root = mainWindow()) {
        windows = windowsAbove(*root);
        windows.removeIf([root](DockableWindow* window) { return isClosed(*window, *root); });
    }
    return windows;
}

QByteArray saveLayout()
{
    DockableGroup* const root = mainWindow();
    if (!root) {
        return {};
    }
    const UnshownLayout* const unshown = UnshownLayout::of(*root);
    return layoutJson(unshown ? unshown->layout : currentLayout(*root));
}

bool restoreLayout(const QByteArray& json, const PanelForName& panelForName, QString* error)
{
    const auto layout = readLayout(json, error);
    DockableGroup* const root = mainWindow();
    if (!layout || !root || !panelForName) {
        return false;
    }
    const auto later = [json, panelForName] { restoreLayout(json, panelForName, nullptr); };
    if (Answers::putOff(*root, later)) {
        return true;
    }
    const QPointer<DockableGroup> alive(root);
    LayoutRestore restore(*root, *layout);
    restore.run(panelForName);
    if (alive && !alive->isVisible()) {
        new UnshownLayout(*alive, restore);
    }
    return true;
}

bool restoreLayout(const QByteArray& json, QString* error)
{
    return restoreLayout(json, &panelNamed, error);
}

void dockAsInLayout(DockableWindow* panel, const QByteArray& json)
{
    DockableGroup* const root = mainWindow();
    const auto later = [json, guest = QPointer(panel)] { dockAsInLayout(guest, json); };
    if (!root || !panel || groupOf(*panel) || Answers::putOff(*root, later)) {
        return;
    }
    if (const auto layout = readLayout(json, nullptr)) {
        for (const Neighbour& place : neighboursOf(layout->root, panel->objectName())) {
            if (DockableWindow* holder = holderOf(place.panels, *root)) {
                dockBeside(*panel, targetFor(*holder, place.kind), place);
                return;
            }
        }
    }
    root->appendChild(panel);
}

} // namespace ui
