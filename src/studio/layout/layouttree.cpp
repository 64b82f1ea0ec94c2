#include "layout/layouttree.h"

#include <MorrantUI/docking/DockableGroup.h>
#include <MorrantUI/docking/DockableTabGroup.h>
#include <MorrantUI/theme/screens.h>

#include <QScreen>

#include <algorithm>

namespace studio {

namespace {

using Kind = LayoutNode::Kind;

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

bool isRow(Kind kind)
{
    return kind == Kind::Row || kind == Kind::Column;
}

LayoutNode nodeOf(DockableWindow& window)
{
    LayoutNode node;
    node.kind = kindOf(window);
    if (node.kind == Kind::Panel) {
        node.panel = window.objectName();
        return node;
    }
    auto& group = static_cast<DockableGroup&>(window);
    for (int i = 0; i < group.childCount(); ++i) {
        node.children.push_back(nodeOf(*group.getChild(i)));
    }
    if (node.kind == Kind::Tabs) {
        node.active = static_cast<DockableTabGroup&>(group).activeIndex();
    } else {
        node.sizes = group.sizes();
    }
    return node;
}

DockableWindow* makeWindow(const LayoutNode& node, const MakePanel& make);

void fill(DockableGroup& group, const LayoutNode& node, const MakePanel& make)
{
    if (isRow(node.kind)) {
        const bool upright = node.kind == Kind::Column;
        group.setLayoutMode(
            upright ? DockableGroup::LayoutMode::Vertical : DockableGroup::LayoutMode::Horizontal);
    }
    for (const LayoutNode& child : node.children) {
        group.appendChild(makeWindow(child, make));
    }
    if (auto* tabs = qobject_cast<DockableTabGroup*>(&group)) {
        tabs->setActiveIndex(node.active);
    }
}

DockableWindow* makeWindow(const LayoutNode& node, const MakePanel& make)
{
    if (node.kind == Kind::Panel) {
        return make(node.panel);
    }
    DockableGroup* group = node.kind == Kind::Tabs ? new DockableTabGroup : new DockableGroup;
    fill(*group, node, make);
    return group;
}

void setSizes(DockableWindow& window, const LayoutNode& node)
{
    auto* group = qobject_cast<DockableGroup*>(&window);
    if (!group || group->childCount() != static_cast<int>(node.children.size())) {
        return;
    }
    if (isRow(node.kind) && node.sizes.size() == group->childCount()) {
        group->setSizes(node.sizes);
    }
    for (int i = 0; i < group->childCount(); ++i) { // from the outside in: they must have room
        setSizes(*group->getChild(i), node.children[static_cast<std::size_t>(i)]);
    }
}

/// The smallest window that holds those of some panels which are docked; null for none.
DockableWindow* holderOf(const QStringList& panels, DockableWindow& window)
{
    if (auto* group = qobject_cast<DockableGroup*>(&window)) {
        DockableWindow* found = nullptr;
        for (int i = 0; i < group->childCount(); ++i) {
            DockableWindow* holder = holderOf(panels, *group->getChild(i));
            if (holder && found) {
                return group;
            }
            found = holder ? holder : found;
        }
        return found;
    }
    return panels.contains(window.objectName()) ? &window : nullptr;
}

/// What takes a neighbour of a whole group: tabs as a whole, and not a group's only child, except
/// for the main window's.
DockableWindow& targetFor(DockableWindow& holder, Kind kind)
{
    DockableWindow* target = &holder;
    while (DockableGroup* parent = target->findDockableParentGroup()) {
        const bool isTab = parent->windowMode() == DockableWindow::WindowMode::TabGroup;
        if (parent == gMainWindow || (parent->childCount() > 1 && !isTab)) {
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

std::vector<DockableWindow*> floatingWindows(DockableGroup& mainWindow)
{
    std::vector<DockableWindow*> windows;
    const auto children =
        mainWindow.findChildren<DockableWindow*>(QString(), Qt::FindDirectChildrenOnly);
    std::copy_if(
        children.begin(), children.end(), std::back_inserter(windows), [](DockableWindow* window) {
            return window->isFloating() && !window->isClosing();
        });
    return windows;
}

void clearTree(DockableGroup& mainWindow)
{
    // The panels first: a group that dies with its window can no longer give up what is in it.
    const auto all = mainWindow.findChildren<DockableWindow*>();
    for (const QPointer<DockableWindow>& window :
         QList<QPointer<DockableWindow>>(all.begin(), all.end()))
    {
        if (window && window->windowMode() == DockableWindow::WindowMode::Panel) {
            delete window;
        }
    }
    while (mainWindow.childCount() > 0) {
        delete mainWindow.takeChild(0);
    }
    // What floats, and what has closed and is about to be deleted.
    qDeleteAll(mainWindow.findChildren<DockableWindow*>(QString(), Qt::FindDirectChildrenOnly));
}

Layout layoutOf(DockableGroup& mainWindow)
{
    Layout layout;
    layout.root = nodeOf(mainWindow);
    for (DockableWindow* window : floatingWindows(mainWindow)) {
        LayoutNode node = nodeOf(*window);
        if (!panelsOf(node).isEmpty()) {
            layout.floating.push_back({window->geometry(), std::move(node)});
        }
    }
    return layout;
}

void buildTree(const Layout& layout, DockableGroup& mainWindow, const MakePanel& make)
{
    clearTree(mainWindow);
    fill(mainWindow, layout.root, make);
    setSizes(mainWindow, layout.root);
    for (const FloatingWindow& floating : layout.floating) {
        DockableWindow* window = makeWindow(floating.root, make);
        const QScreen* screen = getClosestScreenAt(floating.geometry.center());
        window->setGeometry(
            screen ? within(floating.geometry, screen->availableGeometry()) : floating.geometry);
        window->setVisible(mainWindow.isVisible());
        setSizes(*window, floating.root);
    }
}

void applySizes(const Layout& layout, DockableGroup& mainWindow)
{
    setSizes(mainWindow, layout.root);
    const auto windows = floatingWindows(mainWindow);
    for (std::size_t i = 0; i < std::min(windows.size(), layout.floating.size()); ++i) {
        setSizes(*windows[i], layout.floating[i].root);
    }
}

void dockAtHome(DockableWindow& window, const LayoutNode& home, DockableGroup& mainWindow)
{
    for (const Neighbour& place : neighboursOf(home, window.objectName())) {
        if (DockableWindow* holder = holderOf(place.panels, mainWindow)) {
            DockableWindow& target = targetFor(*holder, place.kind);
            dockBeside(window, target, place);
            return;
        }
    }
    mainWindow.appendChild(&window);
}

} // namespace studio
