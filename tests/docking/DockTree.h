#pragma once

#include <MorrantUI/docking/DockableGroup.h>

#include <QString>
#include <QStringList>
#include <QWidget>

#include <memory>

namespace ui::test {

/// A main window with a root group, installed as gMainWindow. Its end deletes it with everything
/// that floats, and fails the test when a dockable window outlives it.
class DockTree
{
public:
    explicit DockTree(QSize size = QSize(612, 412)); ///< 600 by 400 within the border
    ~DockTree();
    Q_DISABLE_COPY_MOVE(DockTree)

    DockableGroup& root() { return *m_root; }
    /// Empties gMainWindow and everything that belongs to it.
    void destroy();

    /// A panel of that size that floats, hidden.
    static DockableWindow* panel(const QString& title = QString(), QSize size = QSize(100, 80));
    /// The same, docked.
    static DockableWindow* panelIn(
        DockableWindow& target, DockableArea area, const QString& title = QString());
    /// Shows the main window and waits until everything is laid out.
    void show();
    /// Fills the root with panels of these widths, named "a", "b" and so on, and shows it.
    void showRow(const QList<int>& widths);

    /// The tree below a window as text: titles in H(), V() and T() for the groups.
    static QString text(DockableWindow& window);

private:
    std::unique_ptr<DockableGroup> m_root;
};

/// Runs everything that is due: events, then deferred deletes, until there are none.
void settle();

/// When invariants are asked for; never in the middle of an operation.
enum class Moment
{
    Settled,   ///< nothing is due any more
    Unsettled, ///< layouts and queued calls are still due
    Dragging,  ///< as well, and one window is perhaps being dragged, over one that shows its zones
};

/// What is wrong with the windows of gMainWindow, in words; empty if nothing is.
QStringList brokenInvariants(Moment moment = Moment::Settled);

/// Whether a drag that is over still keeps mouse events from other widgets.
bool mouseEventsAreKept();

/// Visible groups without children but for the root; undock(false) may leave one for a while.
int emptyShellsInSight();

} // namespace ui::test
