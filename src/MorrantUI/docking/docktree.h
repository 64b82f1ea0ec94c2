#pragma once

#include <QtGlobal>

class DockableGroup;
class DockableWindow;

/// What the operations on the tree of dockable windows share.
namespace ui::docking {

/// gMainWindow while it lives; null when there is none, or it is being destroyed.
DockableGroup* mainWindow();
void groupBorn(DockableGroup& group);
void groupDying(DockableGroup& group);

/// The group that has the window as its child; null for one that floats or is elsewhere.
DockableGroup* groupOf(DockableWindow& window);

/// The scope of an operation. When the outermost one ends the windows seen in it report where they
/// have gone, then the main window that the layout has changed.
class LayoutChange
{
public:
    LayoutChange();
    ~LayoutChange();
    Q_DISABLE_COPY_MOVE(LayoutChange)

    /// To be called before the window moves.
    void note(DockableWindow& window);

    /// Titles of tabs, or which one is active, may be others at the end.
    void noteTabs();

private:
    static bool settleTabs();
};

/// Sends the main window's layoutChanged().
void reportLayoutChange();
/// The same from the event loop, once for all calls until then.
void reportLayoutChangeLater();

/// While one lives, windows change places behind the scenes: none is shown as a top-level window,
/// groups neither grow nor move, and nobody shares out room.
class Rearranging
{
public:
    Rearranging();
    ~Rearranging();
    Q_DISABLE_COPY_MOVE(Rearranging)

    static bool active();
};

} // namespace ui::docking
