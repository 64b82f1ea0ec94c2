// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/docking/DockableArea.h>
#include <MorrantUI/docking/DockableDragHandler.h>
#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/theme/Widget.h>

#include <QBoxLayout>
#include <QList>
#include <QPointer>
#include <QString>

#include <memory>

class DockableGroup;
class DockableHeader;
class WindowLayout;

namespace ui::docking {
class Departure;
class DockOperation;
class TreeAccess;
struct Limits;
class WindowOverlays;
} // namespace ui::docking

/// A panel of the application, or a group of panels.
///
/// Windows form a tree: a group's children are panels or further groups. What is in no group
/// floats: it is a top-level window that belongs to gMainWindow and lies above it. A window that is
/// closed deletes itself; one that is deleted leaves its group, and takes it along as its last
/// child.
///
/// What a content does to the windows when one is shown or hidden, or another tab comes forward, is
/// done when control returns to the event loop: docking, undocking, closing, choosing a tab.
///
/// Lengths are logical pixels. Windows to dock that are null, closed, gMainWindow or the parent of
/// where they would go are ignored.
class MORRANT_UI_EXPORT DockableWindow : public Widget
{
    Q_OBJECT
    Q_PROPERTY(QString text READ getText WRITE setText NOTIFY textChanged)

public:
    enum class WindowMode : int
    {
        Panel = 0,    ///< holds one content widget
        Group = 1,    ///< a DockableGroup
        TabGroup = 2, ///< a group that shows its children as tabs
    };
    Q_ENUM(WindowMode)

    /// What a group starts from: floating and hidden, in mode Group, with a hidden header.
    DockableWindow();
    /// A panel, floating and hidden, with its header shown. Takes the content and keeps within its
    /// minimum and maximum size.
    explicit DockableWindow(QWidget* content);
    ~DockableWindow() override;

    WindowMode windowMode() const { return m_windowMode; }
    QWidget* content() const { return m_content; }

    /// Takes another header, which gets the window's text and is what moves the window. The one
    /// before is hidden at once and deleted when control returns to the event loop, so that a slot
    /// of that header may call this. Null leaves the window without one.
    void setHeader(DockableHeader* header);
    DockableHeader* header() const;
    void setHeaderVisible(bool visible); ///< a hidden one takes no room
    /// Where the header sits: from it to the content in this direction.
    void setHeaderDirection(QBoxLayout::Direction direction);

    /// The title: in the header, on the tab, and of the native window. An empty text is ignored.
    void setText(const QString& text);
    QString getText() const { return m_text; }

    /// Docks `window` into this one at an area, where it shares the room of this window with it;
    /// into a floating group it brings its own size instead. A window that is docked somewhere else
    /// leaves there first, and a group left with fewer than two children dissolves.
    /// @return the group that now holds both; null if nothing was docked, or not yet
    DockableWindow* dockInArea(DockableWindow* window, DockableArea area);

    /// Takes the window out of its group and makes it float where it is. Does nothing when it
    /// floats.
    /// @param collapse dissolves the group if it is left with fewer than two children
    void undock(bool collapse);
    /// Undocks the window, dissolves a group left with fewer than two children, and closes the
    /// window. One that floats is left open (deliberate); one that refuses to close floats.
    void undockAndClose();
    /// undock(true), and the window is where it last floated, if that is still on a screen, or else
    /// as a whole on the one where it is.
    void floatAgain();
    /// Docks a window that floats where it was docked last, or as near to that as can be. Does
    /// nothing for one that never was.
    void dockAgain();
    /// What a double click on its header or tab does: floatAgain(), or dockAgain() if it floats.
    void toggleFloating();
    /// undock(false) for a drag: the group is remembered until cleanupOldParent().
    void mouseUndock();
    /// Ends what mouseUndock() began: dissolves the remembered group if it is left with fewer than
    /// two children. Does nothing, and remembers on, when the group is `newParent`.
    void cleanupOldParent(DockableWindow* newParent);

    /// In no group, and not gMainWindow.
    bool isFloating() const;
    /// Accepted its closing: it will be deleted soon and takes part in nothing any more.
    bool isClosing() const { return m_closing; }
    /// A group inside another group: it has no margin of its own.
    bool isBorderHidden() const { return m_borderHidden; }

    /// The nearest dockable window strictly above this one in the same top-level window, or null.
    DockableWindow* findDockableParent();
    /// The nearest one at or above a widget in the same top-level window; null for null.
    static DockableWindow* findDockableParent(QWidget* widget);
    /// The nearest group strictly above this window in the same top-level window, or null.
    DockableGroup* findDockableParentGroup();
    /// The topmost dockable window of the same top-level window; itself, if there is none above.
    DockableWindow* findDockableRoot();

    /// Whether the user can move the window by its header; on by default.
    void setDragEnabled(bool enabled);
    bool isDragEnabled() const;
    /// Dragged, this window finds no Left, Right and Center zone.
    bool sideDockingDisabled = false;
    /// Dragged, this window finds no Top, Bottom and Center zone.
    bool verticalDockingDisabled = false;

    /// Shows the zones for a dragged window with these restrictions, and highlights the one under
    /// the cursor; see DropIndicatorMain.
    void updateIndicators(bool sidesDisabled, bool topBottomDisabled);
    void hideIndicators(); ///< of this window
    /// The zone that was last highlighted.
    DockableArea dropArea() const;

    /// A line along the top edge that marks the window with the user's focus.
    void setFocusFrameVisible(bool visible);
    bool focusFrameVisible() const;
    /// Lets the line of the focus frame turn to a colour and back, in a second and a half. Replaces
    /// a running flash; does not show the frame. An invalid colour is ignored.
    void flashFocusColor(const QColor& color);

    /// Darkens the whole window; the mouse still reaches it.
    void setDim(bool dim);
    bool getDim() const;

    /// What happens by itself when the application gains or loses activation: floating windows lie
    /// above other applications only while this one is active. A host may call these, too.
    void onApplicationActivate();
    void onApplicationDeactivate(); ///< see onApplicationActivate()

    bool event(QEvent* event) override;
    void setVisible(bool visible) override;

Q_SIGNALS:
    void textChanged(const QString& text); ///< the title is another
    /// The window is in another group than before. Comes when the operation is over.
    void docked(DockableGroup* group);
    /// The window left its group and floats. Comes when the operation is over.
    void undocked();

protected:
    /// Takes the window out of a group it is in, floats it where it is on screen and shows it, with
    /// its header if it is a panel.
    virtual void removeFromParent(DockableGroup* group);
    /// Height of a visible header at the top, else 0.
    virtual int topOffset();

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

    void setWindowMode(WindowMode mode) { m_windowMode = mode; } ///< for subclasses

private:
    friend class DockableDragHandler;
    friend class DockableGroup;
    friend class DockableTabGroup;
    friend class ui::docking::Departure;
    friend class ui::docking::DockOperation;
    friend class ui::docking::DragOrigin;
    friend class ui::docking::TreeAccess;
    using Widget::setChild; // would delete the layout

    // What panels, groups and tab groups do each in their own way.
    /// The title as others show it: a group that has none goes by its first panel.
    virtual QString shownTitle();
    /// Those in it that can be seen, in the order of the tree; itself, if it is one.
    virtual void listPanels(QList<DockableWindow*>& panels);
    /// The child that the others lie behind; null where all are seen.
    virtual DockableWindow* frontChild() const { return nullptr; }
    /// After it has come into a group, or left one.
    virtual void setNested(bool /*nested*/) {}
    /// How far what is in it lets it grow.
    virtual ui::docking::Limits limits();
    /// While it is docked it keeps these limits, but for those that are lifted.
    virtual void setLimits(const ui::docking::Limits& limits, Qt::Orientations lifted);
    /// Whether docking at the area makes a window a child of this one.
    virtual bool takesDirectly(DockableArea /*area*/) { return false; }
    /// Whether a child is where docking it at the area would put it.
    virtual bool hasAt(DockableWindow& /*window*/, DockableArea /*area*/) { return false; }
    /// Docks a window without a new group around this one.
    /// @return the group that has it now; null where that is not the way
    virtual DockableGroup* takeIn(DockableWindow& /*window*/, DockableArea /*area*/)
    {
        return nullptr;
    }

    void makeFloating();
    void settleLimits();
    void dropNativeWindow();
    void showInGroup();
    bool canTake(DockableWindow* window);
    int extentAlong(DockableArea area) const;
    void releaseHeader();
    DockableGroup* oldParent() const;

    DockableDragHandler m_dragHandler;
    QPointer<QObject> m_oldParent; ///< a group, unless it is being destroyed
    std::unique_ptr<ui::docking::WindowOverlays> m_overlays; ///< never null
    QPointer<DockableHeader> m_header;
    QPointer<QWidget> m_grabWidget; ///< of the header
    WindowMode m_windowMode = WindowMode::Group;
    bool m_borderHidden = false;
    bool m_inactive = false;
    bool m_closing = false;
    const QEvent* m_question = nullptr; ///< asks whether it may close, no more
    bool m_directionHandedDown = false; ///< the layout direction is the group's, not the host's
    QPointer<WindowLayout> m_layout;
    QPointer<QWidget> m_content;
    QString m_text;
    QSize m_seenSize;   ///< when it was last seen in a group
    QRect m_floatPlace; ///< its last one: position with, size without the frame
    std::unique_ptr<ui::docking::DragOrigin> m_home; ///< where it was docked last
};
