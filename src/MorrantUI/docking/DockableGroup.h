// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/docking/DockableWindow.h>
#include <MorrantUI/morrantui_export.h>

#include <QList>
#include <QPointer>
#include <QSize>

#include <memory>
#include <vector>

class GroupSplitter;

namespace ui::docking {
class SplitterSizes;
} // namespace ui::docking

/// Dockable windows side by side or one above the other, with handles between them.
///
/// A group exists as long as it has children: undocking and closing dissolve one that is left with
/// fewer than two, except for gMainWindow. Closing a group closes its children first; one that
/// refuses keeps it open.
class MORRANT_UI_EXPORT DockableGroup : public DockableWindow
{
    Q_OBJECT
    Q_PROPERTY(LayoutMode layoutMode READ getLayoutMode WRITE setLayoutMode)

public:
    enum class LayoutMode : int
    {
        Horizontal = 0, ///< children side by side, from left to right
        Vertical = 1,   ///< children one above the other
    };
    Q_ENUM(LayoutMode)

    /// An empty group, floating and hidden.
    DockableGroup();
    ~DockableGroup() override;

    /// Takes the child out and returns it, floating and hidden; null for an index out of range, and
    /// while a window is being shown or hidden.
    virtual DockableWindow* takeChild(int index);
    virtual int childCount() const;
    /// Null for an index out of range, and for a widget that is no dockable window.
    virtual DockableWindow* getChild(int index);
    /// -1 if absent.
    virtual int indexOfChild(DockableWindow* window);
    /// Puts a window before the child of that index; any index out of range appends. A floating
    /// group grows by the window's size, towards the top or the left for index 0. A window that is
    /// in another group leaves that one.
    virtual void insertChild(int index, DockableWindow* window);
    virtual void appendChild(DockableWindow* window); ///< at the end

    /// Other values than the two are stored but leave the children as they are.
    void setLayoutMode(LayoutMode mode);
    LayoutMode getLayoutMode() const { return m_layoutMode; }

    /// The children's widths or heights, without the handles between them. The group's own size
    /// stays, so that the values count as proportions when they do not add up to it. A newcomer
    /// that leaves later gives no room back that it took before.
    void setSizes(const QList<int>& sizes);
    QList<int> sizes() const;

    /// Dissolves the group: its children take its place in the group that it is in, or else float.
    /// Nothing happens to gMainWindow.
    void collapseGroup();

    /// Asks every panel in and above this group, by a close event, whether it may be closed. None
    /// is. For a host that is about to close the main window; gMainWindow itself asks when it is.
    /// @return false as soon as one refuses
    bool mayClose();

    /// Shows the top-level window, out of its minimised state, above the others and active.
    void bringToFront();

Q_SIGNALS:
    /// The arrangement of any dockable window has changed, or the user has moved a handle. Sent by
    /// gMainWindow only, once for each operation, when it is over.
    void layoutChanged();

protected:
    /// What every group starts from, without a splitter.
    explicit DockableGroup(WindowMode mode);

    /// The base behaviour, then the border is back.
    void removeFromParent(DockableGroup* group) override;

    /// Shows or hides the margin around the children, which a nested group does without. Only in
    /// mode Group.
    void setBorderVisible(bool visible);
    /// Moves the group up or left by the window's size, as far as the screen goes, so that the
    /// children stay where they are on screen when the window comes before them.
    void offsetParent(DockableWindow* window);
    /// The size of the group together with the window, as far as the screen goes.
    QSize combinedSize(DockableWindow* window);

    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    friend class DockableWindow;
    friend class DockableTabGroup;
    friend class ui::docking::Departure;
    friend class ui::docking::DockOperation;
    friend class ui::docking::DragOrigin;
    friend class ui::docking::SplitterSizes;
    friend class ui::docking::TreeAccess;

    QString shownTitle() override;
    ui::docking::Limits limits() override;
    void setLimits(const ui::docking::Limits& limits, Qt::Orientations lifted) override;
    void listPanels(QList<DockableWindow*>& panels) override;
    void setNested(bool nested) override;
    bool takesDirectly(DockableArea area) override;
    bool hasAt(DockableWindow& window, DockableArea area) override;
    DockableGroup* takeIn(DockableWindow& window, DockableArea area) override;
    /// The tab with a child's title; null where children show their own.
    virtual QWidget* tabFor(DockableWindow& /*child*/) { return nullptr; }
    virtual void bringForward(DockableWindow& /*child*/) {}
    /// Where a child floats that is where it was on screen.
    virtual QPoint floatPlaceOf(const DockableWindow& child) const;
    virtual QSize floatSizeOf(const DockableWindow& child) const;
    virtual void showTitles();
    /// Before a child moves to another group.
    virtual void handOver(DockableWindow& child);
    /// Tells the host if another child is active.
    /// @return whether there was anything to tell
    virtual bool reportActive() { return false; }

    static LayoutMode layoutModeOf(DockableArea area);
    void insertDirectly(DockableWindow& window, DockableArea area);
    void handChildrenTo(DockableGroup& parent);
    void floatChildren();
    void closeEmptied();
    void collapseIfNeedless();
    void collapseIfEmpty();
    bool isAwaited();

    QPointer<DockableGroup> receive(DockableWindow& window);
    void tidyAfterReceiving(const QPointer<DockableGroup>& old);
    void release(DockableWindow& child);
    int placeFor(int index) const;
    bool isInFront(const DockableWindow& child) const;

    void applySizes(const QList<int>& sizes);

    void adoptSplitter(GroupSplitter* splitter);
    void handDownDirection(DockableWindow& child);
    std::vector<QPointer<DockableWindow>> childWindows();

    bool m_askingToClose = false; ///< its children leave one by one
    LayoutMode m_layoutMode = LayoutMode::Horizontal;
    QPointer<GroupSplitter> m_splitter;
    std::unique_ptr<ui::docking::SplitterSizes> m_splitterSizes; ///< never null
};

/// The root group of the main window. Set by the application and never by the library; null and a
/// group that has been deleted are treated as none. Every floating window belongs to it.
MORRANT_UI_EXPORT extern DockableGroup* gMainWindow;
