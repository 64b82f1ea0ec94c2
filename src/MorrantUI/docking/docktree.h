// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLayoutItem>
#include <QList>
#include <QSize>

#include <vector>

class DockableGroup;
class DockableWindow;
class QWidget;

/// The tree of dockable windows, and what kinds of them answer in their own ways.
namespace ui::docking {

/// gMainWindow while it lives; null when there is none, or it is being destroyed.
DockableGroup* mainWindow();
bool isMainWindow(const DockableWindow& window);

void groupBorn(DockableGroup& group);
void groupDying(DockableGroup& group);
const std::vector<DockableGroup*>& livingGroups();

/// The group that has the window as its child; null for one that floats or is elsewhere.
DockableGroup* groupOf(DockableWindow& window);

/// What the host keeps of the windows in and above a group that dies (those that are not deleted
/// when they are closed) goes to an heir, hidden.
void letKeptLeave(DockableGroup& dying, DockableGroup* heir);

/// Before a window comes into a group or leaves it: what a maximised panel hides is shown, which
/// runs slots. Nothing is for a null window.
/// @return whether there are both a group and a window then
bool restoreBefore(DockableGroup& group, DockableWindow* window);

/// How far a window should grow in either direction.
struct Limits
{
    QSize most{QLAYOUTSIZE_MAX, QLAYOUTSIZE_MAX};
    QSize stretch{0, 0}; ///< stretch factors
};

/// The private operations of windows that the tree asks for; each kind has its own.
class TreeAccess
{
public:
    /// Those of its panels that can be seen, in the order of the tree; itself, if it is one.
    static void listPanels(DockableWindow& window, QList<DockableWindow*>& panels);
    /// Hides a window that floats, and gives its window of the system back.
    static void dropNativeWindow(DockableWindow& window);
    /// The same before a window comes into a group. What is in it hears of that, and may do
    /// anything.
    /// @return whether it may still come in
    static bool hideFor(DockableGroup& group, DockableWindow& window);
    /// A window that is in a group gets back what it came with, and may leave.
    static void letGo(DockableWindow& window);
    /// Of a tab group the active child; null where no child lies behind another.
    static DockableWindow* frontChild(DockableWindow& window);
    /// The tab that has the window's title; null where it is in none.
    static QWidget* tabOf(DockableWindow& window);
    /// Gives the tabs of a group the titles that they should have.
    static void showTitles(DockableGroup& group);
    /// Tells the host if another child is active.
    /// @return whether there was anything to tell
    static bool reportActive(DockableGroup& group);
    /// DockableGroup::setSizes(), but newcomers that leave still give back what they took.
    static void applySizes(DockableGroup& group, const QList<int>& sizes);
    /// Asks a panel whether it may be closed. It may do anything when it is asked.
    static bool agreesToClose(DockableWindow& panel);
    /// Of what is in the window; of a group those of its children together.
    static Limits limitsOf(DockableWindow& window);
    /// Lets a docked window have these, but for those that are lifted.
    static void setLimits(DockableWindow& window, const Limits& limits, Qt::Orientations lifted);
    /// Tells a window whether the application is active, unless the host already has.
    static void setApplicationLeft(DockableWindow& window, bool left);
};

} // namespace ui::docking
