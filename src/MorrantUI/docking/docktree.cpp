// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/docktree.h"

#include <MorrantUI/docking/DockableGroup.h>
#include <MorrantUI/docking/arrangement.h>

#include <QCloseEvent>
#include <QCoreApplication>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace ui::docking {

namespace {

std::vector<DockableGroup*>& groups()
{
    static std::vector<DockableGroup*> living;
    return living;
}

} // namespace

DockableGroup* mainWindow()
{
    const auto& living = groups();
    const bool lives = std::find(living.begin(), living.end(), gMainWindow) != living.end();
    return lives ? gMainWindow : nullptr;
}

bool isMainWindow(const DockableWindow& window)
{
    return &window == mainWindow();
}

void groupBorn(DockableGroup& group)
{
    groups().push_back(&group);
}

void groupDying(DockableGroup& group)
{
    std::erase(groups(), &group);
}

const std::vector<DockableGroup*>& livingGroups()
{
    return groups();
}

DockableGroup* groupOf(DockableWindow& window)
{
    DockableGroup* group = window.findDockableParentGroup();
    return group && group->indexOfChild(&window) >= 0 ? group : nullptr;
}

void letKeptLeave(DockableGroup& dying, DockableGroup* heir)
{
    for (DockableWindow* window : dying.findChildren<DockableWindow*>()) {
        const QObject* above = window; // or it has left with the group that it is in
        while (above && above != &dying) {
            above = above->parent();
        }
        const bool kept = !window->isClosing() && !window->testAttribute(Qt::WA_DeleteOnClose);
        if (above && kept) {
            const QSize size = window->size();
            TreeAccess::dropNativeWindow(*window); // Windows destroys what a dying window owns
            TreeAccess::letGo(*window);
            window->setParent(heir, Qt::Window);
            TreeAccess::setLimits(*window, {}, {});
            window->resize(size);
        }
    }
}

bool restoreBefore(DockableGroup& group, DockableWindow* window)
{
    if (!window) {
        return false;
    }
    const QPointer<DockableGroup> place(&group);
    const QPointer<DockableWindow> guest(window);
    restorePanels();
    return place && guest;
}

void TreeAccess::listPanels(DockableWindow& window, QList<DockableWindow*>& panels)
{
    window.listPanels(panels);
}

void TreeAccess::dropNativeWindow(DockableWindow& window)
{
    window.dropNativeWindow();
}

bool TreeAccess::hideFor(DockableGroup& group, DockableWindow& window)
{
    const QPointer<DockableGroup> taker(&group);
    const QPointer<DockableWindow> guest(&window);
    window.dropNativeWindow();
    return taker && guest && taker->canTake(guest);
}

void TreeAccess::letGo(DockableWindow& window)
{
    if (DockableGroup* group = groupOf(window)) {
        group->handOver(window);
        window.setNested(false);
    }
}

DockableWindow* TreeAccess::frontChild(DockableWindow& window)
{
    return window.frontChild();
}

QWidget* TreeAccess::tabOf(DockableWindow& window)
{
    DockableGroup* group = groupOf(window);
    return group ? group->tabFor(window) : nullptr;
}

void TreeAccess::showTitles(DockableGroup& group)
{
    group.showTitles();
}

bool TreeAccess::reportActive(DockableGroup& group)
{
    return group.reportActive();
}

void TreeAccess::applySizes(DockableGroup& group, const QList<int>& sizes)
{
    group.applySizes(sizes);
}

bool TreeAccess::agreesToClose(DockableWindow& panel)
{
    const QPointer<DockableWindow> guard(&panel);
    QCloseEvent question;
    const QEvent* const outer = std::exchange(panel.m_question, &question);
    QCoreApplication::sendEvent(&panel, &question);
    if (guard) {
        guard->m_question = outer; // its answer may wait, in a dialog, while it is asked again
    }
    return question.isAccepted();
}

Limits TreeAccess::limitsOf(DockableWindow& window)
{
    return window.limits();
}

void TreeAccess::setLimits(DockableWindow& window, const Limits& limits, Qt::Orientations lifted)
{
    window.setLimits(limits, lifted);
}

void TreeAccess::setApplicationLeft(DockableWindow& window, bool left)
{
    if (window.m_inactive != left) {
        left ? window.onApplicationDeactivate() : window.onApplicationActivate();
    }
}

} // namespace ui::docking
