// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "docking/Hand.h"
#include <MorrantUI/docking/DockableTabGroup.h>

#include <functional>
#include <memory>

namespace ui::test {

/// When invariants are asked for; never in the middle of an operation.
enum class Moment
{
    Settled,   ///< nothing is due any more
    Unsettled, ///< layouts and queued calls are still due
    Dragging,  ///< as well, and one window is perhaps being dragged, over one that shows its zones
};

/// What a menu showed.
struct SeenMenu
{
    QStringList texts; ///< "-" is before one that is off
    QPoint place;
};

/// A main window with a root group, installed as gMainWindow, and a hand. Its end deletes it with
/// everything that floats, and fails the test when an invariant is broken by then, mouse events
/// are still kept from other widgets, or a dockable window outlives the main window.
///
/// Trees are written as "H(a=200 T(b c)=300 d) f=80x60": a main window with its groups H, V and T,
/// and what floats. Sizes are along the group. Panels are called by their titles.
class DockTree
{
public:
    /// Shows the windows of the notation, settled; without one there is a hidden, empty root. Of
    /// children with sizes all must have one; the root is made as large as they need.
    explicit DockTree(const QString& notation = {}, QSize size = {612, 412});
    ~DockTree();
    Q_DISABLE_COPY_MOVE(DockTree)

    DockableGroup& root() { return *m_root; }
    /// A panel by its title, "root", or for each ^ in front of these the group around it.
    DockableWindow* operator[](const QString& name);
    DockableWindow* operator[](const char* name) { return (*this)[QString::fromLatin1(name)]; }
    DockableGroup* group(const char* name);
    DockableTabGroup* tabs(const char* name);
    /// A panel that floats, hidden. The content of those called "bar..." is at most 30 pixels high.
    static DockableWindow* panel(const QString& title = {}, QSize size = {100, 80});

    /// Steps, apart by commas, as in "dock x b left, undock x": dock WINDOW TARGET AREA,
    /// insert WINDOW GROUP INDEX, undock, leave (without collapse), tear (by the mouse), tidy
    /// WINDOW GROUP (after it), collapse, close (undocked), shut (where it is), delete, keep
    /// (when it is closed), hide, select (a tab), rename WINDOW TITLE, settle. What is docked or
    /// inserted is made if there is none.
    void play(const QString& steps);

    /// The main window's tree, what floats in sight, half transparent with a tilde, and "b:left"
    /// for the zone where b would take a window; then what invariants are broken.
    QString text();
    /// The same tree with sizes and without zones.
    QString sizes();
    /// Of one window with all in it.
    static QString text(DockableWindow& window, bool withSizes = false);

    /// The menu that opens meanwhile; its entry of that text is chosen, or it is left by Escape.
    SeenMenu menuDuring(const std::function<void()>& action, const QString& choice = {});

    /// Deletes gMainWindow and everything that belongs to it.
    void destroy();

private:
    DockableWindow* build(QStringView& notation);
    void buildChildren(QStringView& notation, DockableGroup& group);

    std::unique_ptr<DockableGroup> m_root;

public:
    Hand hand;
};

/// Runs everything that is due: events, then deferred deletes, until there are none.
void settle();

/// A rectangle of a window's own on the screen.
QRect onScreen(const QWidget& window);
/// A point on the screen within a window's zone; of none, in its middle.
QPoint zoneOf(DockableWindow& window, DockableArea area);
/// "left" for DockableArea::Left, and back.
QString nameOf(DockableArea area);
DockableArea areaOf(const QString& name);

/// What is wrong with the windows of gMainWindow, in words; empty if nothing is.
QStringList brokenInvariants(Moment moment = Moment::Settled);

/// Whether a drag that is over still keeps mouse events from other widgets.
bool mouseEventsAreKept();

} // namespace ui::test
