// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/theme/Widget.h>

#include <QList>
#include <QPoint>
#include <QPointer>

#include <memory>

class QBoxLayout;
class QDrag;
class TabDrag;
class TabItem;
class TabRow;

namespace ui::tabs {
enum class Command;
}

/// A row of tabs, one of which is current. A row that does not fit is scrolled by the wheel and by
/// keys, and fades out where it goes on.
///
/// Tabs are reordered by dragging. The header reached with the Tab key, Left and Right select the
/// next enabled tab, Home and End the outermost ones, Page Up and Page Down scroll, Control with
/// Shift and an arrow moves the current tab, F2 renames a renamable one and the menu key opens its
/// menu. Clicks do not take the focus.
class MORRANT_UI_EXPORT TabBarHeader : public Widget
{
    Q_OBJECT

public:
    explicit TabBarHeader(QWidget* parent = nullptr);
    ~TabBarHeader() override;

    int count() const;
    /// Null for an index out of range.
    TabItem* tab(int index) const;
    /// -1 for what is not a tab of this header.
    int indexOf(const TabItem* tab) const;

    /// Makes an item one of the tabs and owns it. Any index out of range stands for the end. The
    /// first tab becomes current. Null, and what is a tab of any header already, are ignored.
    void insertTab(int index, TabItem* tab);
    /// Takes a tab out at once and deletes it later. If it was current, its neighbour takes its
    /// place: the next enabled and shown tab behind it, else before it.
    void removeTab(int index);
    /// The same for all tabs.
    void clear();

    /// -1 without a tab that could be current.
    int currentIndex() const { return m_currentIndex; }
    TabItem* currentTab() const;
    /// Selects a tab and scrolls to it. An index out of range, and a tab that is disabled, also
    /// with the whole header, are ignored. Emits indexChanged() if the index is another.
    void setCurrentIndex(int index);
    /// Selects the nearest enabled tab in reading direction, or against it for a negative `step`.
    /// At the ends nothing happens.
    void selectNeighbour(int step);
    /// The same going round: after the last comes the first.
    void selectInTurn(int step);

    /// Moves a tab to another place and selects it, then emits tabMoved(). Nothing happens when the
    /// places are the same or one is out of range.
    void moveTab(int from, int to);

    /// Closes the tabs with these indices: each emits closed() and is removed, unless a slot has
    /// done so. The current tab stays current unless it is one of them. Indices out of range are
    /// ignored.
    void closeTabs(const QList<int>& indices);
    /// For a slot of closed(): of those that closeTabs() is closing, this tab and the ones behind
    /// it stay where they are. At other times nothing happens.
    void refuseClosing() { m_isRefused = true; }

    /// How much of the row's beginning is scrolled out of sight, logical pixels.
    int scrollOffset() const;
    /// Bounded to what there is to scroll.
    void setScrollOffset(int offset);
    /// Scrolls as little as possible to show a tab; out of range nothing happens.
    void scrollTo(int index);

    /// The gap that a tab dropped at a point in the header would go into, see ui::tabs::gapAt().
    int dropGap(const QPoint& position) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// Another index is current, or after a removal another tab at the same index; -1 for none.
    void indexChanged(int index);
    /// A tab has moved, and is current.
    void tabMoved(int from, int to);
    /// A tab has left the row.
    void tabRemoved();

protected:
    /// Runs the drag of a tab and returns when it is over, as QDrag::exec() does for a move. The
    /// header may be deleted meanwhile.
    virtual Qt::DropAction runDrag(QDrag* drag);

    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    friend class TabDrag; // runs the drag
    friend class TabItem; // tells of the end of a press

    /// What indexChanged() has told last.
    struct Told
    {
        int index = -1;
        QPointer<TabItem> tab;
    };

    bool isReachable(int index) const;
    void select(int index);
    void selectInsteadOf(int index);
    void selectFrom(int index, int step);
    void takeOut(TabItem* tab);
    void noteLostTab(QObject* child);
    void settle();
    void renumber();
    void tellCurrent();
    void tellRemoval();

    void endPress();
    void run(ui::tabs::Command command);

    TabRow* m_row;
    QBoxLayout* m_layout;            ///< of the row: the tabs in display order, nothing else
    std::unique_ptr<TabDrag> m_drag; ///< never null

    int m_known = 0; ///< tabs that have been put in and not taken out
    int m_currentIndex = -1;
    QPointer<TabItem> m_current; ///< null or the tab at that index
    Told m_told;
    bool m_closing = false;   ///< several tabs, of whose removals one signal tells
    bool m_isRefused = false; ///< the tab that is being closed
};
