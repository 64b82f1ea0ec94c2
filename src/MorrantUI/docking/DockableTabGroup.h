// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/docking/DockableGroup.h>
#include <MorrantUI/morrantui_export.h>

#include <QPointer>
#include <QSizePolicy>

#include <map>

class DockTabStrip;
class DockableTabWidget;
class PageStack;

/// Dockable windows one behind the other, of which the tabs of a strip above them choose the one
/// that is seen.
///
/// The first child becomes active when it comes, and again whenever a child is taken out; a window
/// that is docked at the centre becomes active. Only the active child has a say in how large the
/// group is: the others' size policies are ignored meanwhile, and given back when they leave. A
/// panel shows no header here, since its tab has the title; dragging the tab tears it out. Where
/// the strip has no tab it is the handle of the whole group. A floating group without a text has
/// the window title of its active child.
///
/// Left and Right walk between tabs, Home and End go to the outermost, while a tab has the keyboard
/// focus; the Menu key opens the window's menu there.
class MORRANT_UI_EXPORT DockableTabGroup : public DockableGroup
{
    Q_OBJECT

public:
    /// An empty group, floating and hidden.
    DockableTabGroup();
    ~DockableTabGroup() override;

    /// Takes the child out with its tab and returns it, floating and hidden; null for an index out
    /// of range, and while a window is being shown or hidden.
    DockableWindow* takeChild(int index) override;
    int childCount() const override;
    DockableWindow* getChild(int index) override;
    int indexOfChild(DockableWindow* window) override;
    /// Puts a window before the tab of that index; any index out of range appends. The child that
    /// is active stays so. A floating group takes the size of its first child. A window that is in
    /// another group leaves that one.
    void insertChild(int index, DockableWindow* window) override;
    /// insertChild() behind the last tab.
    void appendChild(DockableWindow* window) override;

    /// A child that is shown comes to the front.
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Brings a child to the front. Out of range does nothing. Focus that was in the child before
    /// goes to where it last was in the new one. The pages hear of it as they show and hide, and
    /// may do anything to the group.
    void setActiveIndex(int index);
    /// -1 without children.
    int activeIndex() const;
    DockableWindow* activeChild() const;

    /// The text of a child's tab, and of the child itself. An empty text is the tab's alone, until
    /// the child gets another title. Does nothing for a window that is not a child.
    void setTabTextForChild(DockableWindow* window, const QString& text);

    /// Null for an index out of range. A tab lasts until its child leaves.
    DockableTabWidget* tabAt(int index) const;

Q_SIGNALS:
    /// Another child is active now, or the active one has another index; -1 when none is left.
    /// gMainWindow's layoutChanged() follows.
    void activeIndexChanged(int index);

protected:
    /// Height of the strip: it is this group's centre zone, where further tabs are dropped.
    int topOffset() override;

private:
    /// What is kept of a child while it is one.
    struct Kept
    {
        QPointer<DockableWindow> child; ///< until it has got back what it came with
        QSizePolicy policy;             ///< its own, while another is in force
        QString title;                  ///< that its tab last followed
        QSize alone;                    ///< before it met the others, while all of them floated
    };

    DockableWindow* frontChild() const override;
    ui::docking::Limits limits() override;
    bool takesDirectly(DockableArea area) override;
    bool hasAt(DockableWindow& window, DockableArea area) override;
    QWidget* tabFor(DockableWindow& child) override;
    void bringForward(DockableWindow& child) override;
    QPoint floatPlaceOf(const DockableWindow& child) const override;
    QSize floatSizeOf(const DockableWindow& child) const override;
    void showTitles() override;
    void handOver(DockableWindow& child) override;
    bool reportActive() override;

    void addTab(int index, DockableWindow& window);
    void takeOut(DockableWindow& child);
    void handOverFrom(int index, DockableWindow& child);
    void letGoOf(DockableWindow& child, int index);
    void forgetTab(int index);

    DockTabStrip* m_strip;
    PageStack* m_stack;
    std::map<const DockableWindow*, Kept> m_kept;
    QPointer<DockableWindow> m_active;
    int m_activeIndex = -1;              ///< as last reported
    QPointer<DockableWindow> m_reported; ///< the child that was active then
};
