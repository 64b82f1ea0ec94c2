// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/gestures/GestureDoors.h>

#include <QBasicTimer>
#include <QList>
#include <QObject>
#include <QPersistentModelIndex>
#include <QRect>

#include <optional>

class QPainter;
class TreeView;

/// The drag that takes the selected rows of a tree to another place. Near the upper and lower edge
/// the tree scrolls, and a closed row on which the pointer rests opens.
class RowDrag : public QObject
{
    Q_OBJECT

public:
    enum class State
    {
        Idle,
        Pressed, ///< on a row, not yet far enough to be a drag
        Dragging,
        GivenUp, ///< with the button still down: the coming release is no click
    };

    explicit RowDrag(TreeView& tree);

    State state() const { return m_state; }

    /// The left button went down on a row; a point of the viewport. What is selected when the drag
    /// begins is what it carries.
    void press(const QPoint& point);
    /// @return whether the move is the drag's; if not, it is no business of this object
    bool moveTo(const QPoint& point);
    /// The button came up: a drag drops its rows. This object may be deleted by a slot.
    /// @return whether there was a drag
    bool release();
    /// Leaves the rows where they are.
    void cancel();

    /// The same by Escape: the coming release is no click either.
    void giveUp();

    /// Where the rows would go, for the tree's own painting.
    void paint(QPainter& painter) const;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    /// Where a release would put the rows.
    struct Target
    {
        QPersistentModelIndex parent;
        int row = 0;
        QRect mark; ///< a line of no height, or the row that takes them; in the viewport
    };

    std::optional<Target> targetAt(const QPoint& point) const;
    std::optional<Target> targetBehindAll() const;
    QRect markAt(const QRect& row, int indent, int top, int height) const;
    bool isAllowed(const QModelIndex& parent) const;
    void aim();
    void leave();
    void scrollAtEdge();

    TreeView& m_tree;
    GestureDoors m_doors;
    State m_state = State::Idle;
    QPoint m_pressed;
    QPoint m_point;
    QList<QPersistentModelIndex> m_rows;             ///< that are dragged
    std::optional<QPersistentModelIndex> m_siblings; ///< the parent of all of them
    std::optional<Target> m_target;
    QPersistentModelIndex m_resting; ///< the closed row under the pointer
    QBasicTimer m_scrolling;
    QBasicTimer m_opening;
};
