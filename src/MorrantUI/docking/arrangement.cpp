// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/docktree.h"
#include "MorrantUI/docking/panelfocus.h"
#include <MorrantUI/docking/DockableGroup.h>
#include <MorrantUI/docking/arrangement.h>
#include <MorrantUI/docking/panelnavigation.h>

#include <QCoreApplication>
#include <QPointer>

#include <utility>
#include <vector>

namespace ui {

namespace {

/// What there was before a panel was maximised.
struct Maximized
{
    struct Group
    {
        QPointer<DockableGroup> group;
        QList<int> sizes;
    };
    QPointer<DockableWindow> panel;
    std::vector<Group> groups; ///< the outermost last
    std::vector<QPointer<QWidget>> hidden;
};

Maximized& maximized()
{
    static Maximized current;
    return current;
}

bool& lock()
{
    static bool locked = false;
    return locked;
}

void hideSiblings(DockableGroup& group, const DockableWindow& child)
{
    maximized().groups.push_back({&group, group.sizes()});
    for (int i = 0; i < group.childCount(); ++i) {
        DockableWindow* sibling = group.getChild(i);
        if (sibling && sibling != &child && !sibling->isHidden()) {
            maximized().hidden.emplace_back(sibling);
        }
    }
}

} // namespace

void setLayoutLocked(bool locked)
{
    lock() = locked;
}

bool isLayoutLocked()
{
    return lock();
}

bool maximizePanel(DockableWindow* panel)
{
    restorePanels();
    if (!panel || !panelsInOrder().contains(panel)) {
        return false;
    }
    DockableWindow* child = panel;
    while (DockableGroup* group = docking::groupOf(*child)) {
        if (group->windowMode() == DockableWindow::WindowMode::Group) {
            hideSiblings(*group, *child);
        }
        child = group;
    }
    if (maximized().hidden.empty()) {
        maximized() = {};
        return false;
    }
    maximized().panel = panel;
    QObject::connect(panel, &QObject::destroyed, qApp, &restorePanels, Qt::QueuedConnection);
    const QPointer<DockableWindow> guard(panel);
    const auto isStill = [&guard] { return guard && maximizedPanel() == guard; };
    for (const auto& window : std::vector(maximized().hidden)) { // which may restore them all
        if (window && isStill()) {
            window->hide();
        }
    }
    if (!isStill()) {
        return false;
    }
    docking::enterByClick(*guard);
    return true;
}

void restorePanels()
{
    const Maximized before = std::exchange(maximized(), {});
    if (before.panel) {
        QObject::disconnect(before.panel, &QObject::destroyed, qApp, nullptr);
    }
    for (const auto& window : before.hidden) {
        if (window) {
            window->show();
        }
    }
    for (auto entry = before.groups.rbegin(); entry != before.groups.rend(); ++entry) {
        if (entry->group && entry->group->childCount() == entry->sizes.size()) {
            docking::TreeAccess::applySizes(*entry->group, entry->sizes);
        }
    }
}

DockableWindow* maximizedPanel()
{
    return maximized().panel;
}

} // namespace ui
