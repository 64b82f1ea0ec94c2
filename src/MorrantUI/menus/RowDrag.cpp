// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/RowDrag.h"

#include "MorrantUI/menus/rowmoves.h"
#include <MorrantUI/menus/TreeView.h>
#include <MorrantUI/theme/drawing.h>

#include <QApplication>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QTimerEvent>

#include <algorithm>
#include <utility>

using ui::menus::RowPlace;

namespace {

constexpr int kScrollMargin = 16;   ///< logical pixels from an edge in which the tree scrolls
constexpr int kScrollInterval = 50; ///< milliseconds
constexpr int kOpeningDelay = 700;  ///< milliseconds on a closed row until it opens

/// Whether a row is one of several, or lies in one.
bool isIn(const QList<QPersistentModelIndex>& rows, QModelIndex row)
{
    while (row.isValid() && !rows.contains(row)) {
        row = row.parent();
    }
    return row.isValid();
}

/// The parent of all rows; nothing for rows of several parents.
std::optional<QPersistentModelIndex> commonParent(const QModelIndexList& rows)
{
    const QModelIndex parent = rows.value(0).parent();
    const bool siblings =
        !rows.isEmpty() && std::all_of(rows.begin(), rows.end(), [&parent](const auto& row) {
            return row.parent() == parent;
        });
    return siblings ? std::optional<QPersistentModelIndex>(parent) : std::nullopt;
}

} // namespace

RowDrag::RowDrag(TreeView& tree)
    : m_tree(tree)
{}

void RowDrag::press(const QPoint& point)
{
    m_state = State::Pressed;
    m_pressed = point;
    m_doors.watch(m_tree.viewport(), [this](GestureDoors::Door) { giveUp(); });
}

bool RowDrag::moveTo(const QPoint& point)
{
    if (m_state == State::Pressed
        && (point - m_pressed).manhattanLength() >= QApplication::startDragDistance())
    {
        m_state = State::Dragging;
        const QModelIndexList rows = m_tree.selectedRowsInOrder();
        m_siblings = commonParent(rows);
        m_rows = QList<QPersistentModelIndex>(rows.begin(), rows.end());
        m_tree.setFocus(Qt::MouseFocusReason); // Escape is for us
    }
    m_point = point;
    aim();
    return m_state != State::Idle;
}

bool RowDrag::release()
{
    const State state = m_state;
    aim(); // rows may have come and gone since the last move
    const std::optional<Target> target = std::exchange(m_target, std::nullopt);
    QModelIndexList rows;
    for (const QPersistentModelIndex& row : std::exchange(m_rows, {})) {
        if (row.isValid()) {
            rows.append(row);
        }
    }
    cancel();
    if (target) {
        m_tree.reorder(rows, target->parent, target->row);
    }
    return state == State::Dragging || state == State::GivenUp;
}

void RowDrag::giveUp()
{
    const bool isHeld = m_state != State::Idle;
    leave();
    m_state = isHeld ? State::GivenUp : State::Idle;
}

void RowDrag::cancel()
{
    leave();
}

/// The one end of every drag.
void RowDrag::leave()
{
    m_doors.stop();
    m_scrolling.stop();
    m_opening.stop();
    m_target.reset();
    m_siblings.reset();
    m_rows.clear();
    m_resting = QPersistentModelIndex();
    if (std::exchange(m_state, State::Idle) == State::Dragging) {
        m_tree.viewport()->update();
    }
}

void RowDrag::aim()
{
    if (m_state != State::Dragging || !m_tree.model()) {
        return;
    }
    m_target = targetAt(m_point);
    const QModelIndex under = m_tree.indexAt(m_point).siblingAtColumn(0);
    const bool opens = m_target && under.isValid() && !m_tree.isExpanded(under)
                       && m_tree.model()->hasChildren(under)
                       && m_tree.reordering() == TreeView::Reordering::Anywhere;
    if (!opens) {
        m_opening.stop();
    } else if (under != m_resting || !m_opening.isActive()) {
        m_opening.start(kOpeningDelay, this);
    }
    m_resting = under;
    const int height = m_tree.viewport()->height();
    const bool atEdge = m_point.y() < kScrollMargin || m_point.y() >= height - kScrollMargin;
    if (!atEdge) {
        m_scrolling.stop();
    } else if (!m_scrolling.isActive()) {
        m_scrolling.start(kScrollInterval, this);
    }
    m_tree.viewport()->update();
}

bool RowDrag::isAllowed(const QModelIndex& parent) const
{
    if (isIn(m_rows, parent)) {
        return false;
    }
    if (m_tree.reordering() == TreeView::Reordering::Anywhere) {
        return !parent.isValid() || parent.flags().testFlag(Qt::ItemIsDropEnabled);
    }
    return m_siblings && *m_siblings == parent;
}

std::optional<RowDrag::Target> RowDrag::targetAt(const QPoint& point) const
{
    const int right = m_tree.viewport()->width();
    const QPoint inside(std::clamp(point.x(), 0, std::max(0, right - 1)), point.y());
    const QModelIndex over = m_tree.indexAt(inside).siblingAtColumn(0);
    if (!over.isValid()) {
        return point.y() < 0 ? std::nullopt : targetBehindAll();
    }
    const QRect row = m_tree.visualRect(over);
    const bool nests = m_tree.itemsExpandable(); // a flat list does not
    const bool takesRows = nests && m_tree.reordering() == TreeView::Reordering::Anywhere
                           && over.flags().testFlag(Qt::ItemIsDropEnabled) && isAllowed(over);
    const RowPlace place = ui::menus::rowPlace(row, point.y(), takesRows);
    if (place == RowPlace::Inside) {
        return Target{
            over, m_tree.model()->rowCount(over), markAt(row, 0, row.top(), row.height())};
    }
    const bool above = place == RowPlace::Before;
    const bool first =
        nests && !above && m_tree.isExpanded(over) && m_tree.model()->hasChildren(over);
    const QModelIndex parent = first ? over : over.parent();
    const int indent = first ? m_tree.indentation() : 0;
    const QRect mark = markAt(row, indent, above ? row.top() : row.bottom() + 1, 0);
    const int index = first ? 0 : over.row() + (above ? 0 : 1);
    return isAllowed(parent) ? std::optional<Target>({parent, index, mark}) : std::nullopt;
}

/// From where a row begins, `indent` further in, to the end of the viewport.
QRect RowDrag::markAt(const QRect& row, int indent, int top, int height) const
{
    const int width = m_tree.viewport()->width();
    const bool mirrored = m_tree.layoutDirection() == Qt::RightToLeft;
    const int start = (mirrored ? width - row.right() - 1 : row.left()) + indent;
    return {mirrored ? 0 : start, top, width - start, height};
}

/// Below the last row.
std::optional<RowDrag::Target> RowDrag::targetBehindAll() const
{
    const QModelIndex root = m_tree.rootIndex();
    const int count = m_tree.model()->rowCount(root);
    if (count == 0 || !isAllowed(root)) {
        return std::nullopt;
    }
    QModelIndex last = m_tree.model()->index(count - 1, 0, root);
    const QRect row = m_tree.visualRect(last);
    while (m_tree.isExpanded(last) && m_tree.model()->rowCount(last) > 0) {
        last = m_tree.model()->index(m_tree.model()->rowCount(last) - 1, 0, last);
    }
    const QRect mark = markAt(row, 0, m_tree.visualRect(last).bottom() + 1, 0);
    return Target{root, count, mark};
}

void RowDrag::paint(QPainter& painter) const
{
    if (!m_target) {
        return;
    }
    if (m_target->mark.height() > 0) {
        ui::drawFocusRing(painter, m_target->mark, ui::kSmallCornerRadius);
    } else {
        const QPointF left(m_target->mark.topLeft());
        const QPointF right(m_target->mark.left() + m_target->mark.width(), left.y());
        const bool mirrored = m_tree.layoutDirection() == Qt::RightToLeft;
        ui::drawDropMark(painter, mirrored ? right : left, mirrored ? left : right);
    }
}

void RowDrag::scrollAtEdge()
{
    QScrollBar* const bar = m_tree.verticalScrollBar();
    const int step = m_point.y() < kScrollMargin ? -bar->singleStep() : bar->singleStep();
    const QPointer<RowDrag> self(this);
    bar->setValue(bar->value() + step);
    if (self) {
        aim(); // other rows are under the pointer now
    }
}

void RowDrag::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_scrolling.timerId()) {
        scrollAtEdge();
    } else if (event->timerId() == m_opening.timerId()) {
        m_opening.stop();
        if (m_resting.isValid()) {
            const QPointer<RowDrag> self(this);
            m_tree.expand(m_resting);
            if (self) {
                aim();
            }
        }
    }
}
