// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/LayoutChange.h"

#include "MorrantUI/docking/docktree.h"
#include <MorrantUI/docking/DockableGroup.h>

#include <QCoreApplication>
#include <QPointer>

#include <algorithm>
#include <utility>
#include <vector>

namespace ui::docking {

namespace {

/// A window that an operation may have moved, and the group it was in before.
struct Seen
{
    QPointer<QObject> window; // QObjects, since they may be on the point of being destroyed
    QPointer<QObject> group;
    bool wasDocked = false;
};

struct Operation
{
    int depth = 0;
    std::vector<Seen> seen;
    bool tabs = false;
    bool layout = false;
    bool later = false;
};

Operation& operation()
{
    static Operation current;
    return current;
}

void report(const Seen& seen)
{
    auto* window = qobject_cast<DockableWindow*>(seen.window.data());
    if (!window) {
        return;
    }
    DockableGroup* group = groupOf(*window);
    if (group && group != seen.group) {
        Q_EMIT window->docked(group);
    } else if (!group && seen.wasDocked) {
        Q_EMIT window->undocked();
    }
}

/// Titles first, so that slots find them right.
/// @return whether another tab is active somewhere
bool settleTabs()
{
    std::vector<QPointer<DockableGroup>> found; // slots may delete groups
    for (DockableGroup* group : livingGroups()) {
        TreeAccess::showTitles(*group);
        found.emplace_back(group);
    }
    bool changed = false;
    for (const auto& group : found) {
        changed |= group && TreeAccess::reportActive(*group);
    }
    return changed;
}

} // namespace

LayoutChange::LayoutChange(Report report)
{
    if (++operation().depth == 1) {
        operation().later = report == Report::Later;
    }
}

LayoutChange::~LayoutChange()
{
    if (--operation().depth > 0) {
        return;
    }
    if (operation().later) {
        QMetaObject::invokeMethod(
            qApp, [] { const LayoutChange now; }, Qt::QueuedConnection);
        return;
    }
    const std::vector<Seen> seen = std::exchange(operation().seen, {});
    const bool tabs = std::exchange(operation().tabs, false);
    const bool layout = std::exchange(operation().layout, false) || !seen.empty();
    const bool tabChanged = (tabs || !seen.empty()) && settleTabs();
    for (const Seen& window : seen) {
        report(window);
    }
    if (tabChanged || layout) {
        reportLayoutChange();
    }
}

void LayoutChange::noteLayout()
{
    operation().layout = true;
}

void LayoutChange::noteTabs()
{
    operation().tabs = true;
}

void LayoutChange::note(DockableWindow& window)
{
    auto& seen = operation().seen;
    const bool known = std::any_of(
        seen.begin(), seen.end(), [&](const Seen& other) { return other.window == &window; });
    if (!known) {
        DockableGroup* group = groupOf(window);
        seen.push_back({&window, group, group != nullptr});
    }
}

void reportLayoutChange()
{
    if (DockableGroup* main = mainWindow()) {
        Q_EMIT main->layoutChanged();
    }
}

void reportLayoutChangeLater()
{
    static QPointer<QObject> reporting;
    DockableGroup* main = mainWindow();
    if (main && main != reporting) {
        reporting = main;
        const auto report = [] {
            reporting.clear();
            settleTabs(); // a group may have gone by the title of one that is no more
            reportLayoutChange();
        };
        QMetaObject::invokeMethod(main, report, Qt::QueuedConnection);
    }
}

} // namespace ui::docking
