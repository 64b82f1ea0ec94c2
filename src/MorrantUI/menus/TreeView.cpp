// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/TreeView.h"

#include "MorrantUI/menus/NameDelegate.h"
#include "MorrantUI/menus/RowDrag.h"
#include "MorrantUI/menus/TreeMemory.h"
#include "MorrantUI/menus/menusearch.h"
#include "MorrantUI/menus/rowmoves.h"
#include "MorrantUI/theme/style/shapes.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QPainter>
#include <QStandardItemModel>

#include <algorithm>
#include <utility>

namespace {

/// From the root to a row: the order of these is the order on screen.
QList<int> placeOf(QModelIndex index)
{
    QList<int> place;
    for (; index.isValid(); index = index.parent()) {
        place.prepend(index.row());
    }
    return place;
}

/// By how many places a key moves rows; 0 for keys that move none.
int stepOf(const QKeyEvent& key)
{
    const bool moves = key.modifiers() == Qt::AltModifier;
    return moves && key.key() == Qt::Key_Up ? -1 : moves && key.key() == Qt::Key_Down ? 1 : 0;
}

bool removes(const QKeyEvent& key)
{
    return key.modifiers() == Qt::NoModifier
           && (key.key() == Qt::Key_Delete || key.key() == Qt::Key_Backspace);
}

constexpr int kSwitchWidth = 24; ///< logical pixels
constexpr int kRowCorner = 4;    ///< in which a row's round corner lies

} // namespace

TreeView::TreeView(QWidget* parent)
    : QTreeView(parent)
    , m_drag(std::make_unique<RowDrag>(*this))
    , m_memory(std::make_unique<TreeMemory>())
{
    setUniformRowHeights(true);
    setHeaderHidden(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(EditKeyPressed | DoubleClicked);
    auto* const names = new NameDelegate(this);
    setItemDelegate(names);
    connect(names, &NameDelegate::renamed, this, &TreeView::renamed);
}

TreeView::~TreeView()
{
    m_drag->cancel();
    for (const QMetaObject::Connection& watch : std::as_const(m_watches)) {
        disconnect(watch); // a model that is the tree's child dies after what they would use
    }
}

void TreeView::setModel(QAbstractItemModel* newModel)
{
    if (newModel == model()) {
        return;
    }
    m_drag->cancel();
    for (const QMetaObject::Connection& watch : std::exchange(m_watches, {})) {
        disconnect(watch);
    }
    if (newModel) {
        m_watches += connect(newModel, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
            m_drag->giveUp();
            if (!m_awaitsRows) {
                m_memory->keep(*this, m_keyRole);
            }
        });
        m_watches += connect(newModel, &QObject::destroyed, this, [this] { m_drag->giveUp(); });
    }
    QTreeView::setModel(newModel);
    if (newModel) { // behind the base's own answer
        m_watches += connect(newModel, &QAbstractItemModel::modelReset, this, [this] {
            recall();
            fitSwitches();
        });
        m_watches +=
            connect(newModel, &QAbstractItemModel::columnsInserted, this, &TreeView::fitSwitches);
    }
    m_awaitsRows = false;
    fitSwitches();
}

/// A model that is emptied and filled tells of a reset only while it is empty: its rows are there
/// when the event loop comes round.
void TreeView::recall()
{
    if (model()->rowCount(rootIndex()) > 0) {
        m_awaitsRows = false;
        m_memory->restore(*this, m_keyRole);
    } else if (!std::exchange(m_awaitsRows, true)) {
        QMetaObject::invokeMethod(
            this,
            [this] {
                const bool isChosen =
                    selectionModel()
                    && (selectionModel()->hasSelection() || currentIndex().isValid());
                if (std::exchange(m_awaitsRows, false)) {
                    const auto part = isChosen ? TreeMemory::Part::OpenRows : TreeMemory::Part::All;
                    m_memory->restore(*this, m_keyRole, part);
                }
            },
            Qt::QueuedConnection);
    }
}

void TreeView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    // By a reset in the slot of renamed().
    const bool isPutAway = editor && editor->isHidden() && state() != EditingState;
    if (!isPutAway) {
        QTreeView::closeEditor(editor, hint);
    }
}

void TreeView::setReordering(Reordering reordering)
{
    m_drag->cancel();
    m_reordering = reordering;
}

bool TreeView::isReordering() const
{
    return m_drag->state() == RowDrag::State::Dragging;
}

void TreeView::setSwitchColumns(const QList<int>& columns)
{
    m_switches = columns;
    fitSwitches();
}

void TreeView::fitSwitches()
{
    if (m_switches.contains(header()->count() - 1)) {
        header()->setStretchLastSection(false);
    }
    for (const int column : std::as_const(m_switches)) {
        if (column >= 0 && column < header()->count()) {
            header()->setMinimumSectionSize(std::min(header()->minimumSectionSize(), kSwitchWidth));
            header()->setSectionResizeMode(column, QHeaderView::Fixed);
            header()->resizeSection(column, kSwitchWidth);
        }
    }
    giveRoomToNames();
}

/// To the one column that is no switch; of several the host knows which is how wide.
void TreeView::giveRoomToNames()
{
    QList<int> others;
    for (int column = 0; column < header()->count(); ++column) {
        if (!m_switches.contains(column)) {
            others.append(column);
        }
    }
    const bool isHosts = others.size() != 1 || m_switches.isEmpty()
                         || header()->sectionResizeMode(others[0]) != QHeaderView::Interactive;
    if (!isHosts) {
        header()->setSectionResizeMode(others[0], QHeaderView::Stretch);
    }
}

bool TreeView::pressesSwitch(const QKeyEvent& key) const
{
    return key.key() == Qt::Key_Space && key.modifiers() == Qt::NoModifier && isOnSwitch();
}

/// @return whether it was on a switch; a slot may have deleted this object
bool TreeView::pressSwitch(const QMouseEvent& event)
{
    const QModelIndex index = indexAt(event.position().toPoint());
    const bool isSwitch = event.button() == Qt::LeftButton && m_switches.contains(index.column());
    if (isSwitch) {
        Q_EMIT switchPressed(index);
    }
    return isSwitch;
}

bool TreeView::isOnSwitch() const
{
    return currentIndex().isValid() && m_switches.contains(currentIndex().column());
}

/// The switch, or from the first one the name, to which a key goes; invalid for none.
/// @param step 1 towards the end of the row, -1 towards its beginning
QModelIndex TreeView::cellBeside(int step) const
{
    const QModelIndex from = currentIndex();
    int column = header()->visualIndex(from.column()) + step;
    const auto isPassed = [this](int visual) {
        const int logical = header()->logicalIndex(visual);
        return logical > 0 && (header()->isSectionHidden(logical) || !m_switches.contains(logical));
    };
    while (column >= 0 && column < header()->count() && isPassed(column)) {
        column += step;
    }
    return from.siblingAtColumn(header()->logicalIndex(column));
}

QModelIndex TreeView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex current = currentIndex();
    const bool isAside = action == MoveLeft || action == MoveRight;
    const int step = (action == MoveRight) != isRightToLeft() ? 1 : -1;
    const bool unfolds = model() && model()->hasChildren(current) && !isExpanded(current);
    const bool leads = isOnSwitch() || (!m_switches.isEmpty() && step > 0 && !unfolds);
    if (isAside && current.isValid() && leads) {
        const QModelIndex beside = cellBeside(step);
        if (beside.isValid()) {
            return beside;
        }
    }
    return QTreeView::moveCursor(action, modifiers);
}

/// Names are what is found, and their cells are where the base looks.
void TreeView::keyboardSearch(const QString& search)
{
    if (isOnSwitch()) {
        selectionModel()->setCurrentIndex(
            currentIndex().siblingAtColumn(0), QItemSelectionModel::NoUpdate);
    }
    QTreeView::keyboardSearch(search);
}

QModelIndexList TreeView::selectedRowsInOrder() const
{
    if (!selectionModel()) {
        return {};
    }
    QList<std::pair<QList<int>, QModelIndex>> places;
    for (const QModelIndex& index : selectionModel()->selectedRows()) {
        places.append({placeOf(index), index});
    }
    std::sort(places.begin(), places.end(), [](const auto& a, const auto& b) {
        return std::lexicographical_compare(
            a.first.begin(), a.first.end(), b.first.begin(), b.first.end());
    });
    QModelIndexList rows;
    QList<int> above;
    for (const auto& [place, index] : std::as_const(places)) {
        const bool inside = !rows.isEmpty() && place.size() > above.size()
                            && std::equal(above.begin(), above.end(), place.begin());
        if (!inside) {
            rows.append(index);
            above = place;
        }
    }
    return rows;
}

void TreeView::renameCurrent()
{
    const QModelIndex row = isOnSwitch() ? currentIndex().siblingAtColumn(0) : currentIndex();
    if (row.flags().testFlag(Qt::ItemIsEditable)) {
        edit(row);
    }
}

QList<QPersistentModelIndex> TreeView::moveRows(
    const QModelIndexList& rows, const QModelIndex& parent, int row)
{
    return ui::menus::moveRows(*model(), rows, parent, row);
}

/// What the user asked for by mouse or key. A slot may delete this object at every step.
bool TreeView::reorder(const QModelIndexList& rows, const QModelIndex& parent, int row)
{
    if (rows.isEmpty()) {
        return false;
    }
    const QList<QStandardItem*> open = openItems(rows);
    const QPersistentModelIndex into(parent);
    const QPointer<TreeView> self(this);
    const QList<QPersistentModelIndex> moved = moveRows(rows, parent, row);
    if (!self || moved.isEmpty()) {
        return false;
    }
    for (const QStandardItem* item : open) {
        if (self && item->model() == model()) {
            expand(item->index());
        }
    }
    if (self) {
        expand(into);
    }
    if (self) {
        select(moved);
    }
    if (self) {
        Q_EMIT rowsReordered();
    }
    return true;
}

/// The rows in `rows` and below that are open, where a model of items has them: items that are
/// taken out and put in again come back closed.
QList<QStandardItem*> TreeView::openItems(const QModelIndexList& rows) const
{
    QList<QStandardItem*> open;
    if (const auto* items = qobject_cast<QStandardItemModel*>(model())) {
        for (const QModelIndex& row : rows) {
            if (isExpanded(row)) {
                QModelIndexList children;
                for (int child = 0; child < items->rowCount(row); ++child) {
                    children.append(items->index(child, 0, row));
                }
                open.append(items->itemFromIndex(row));
                open += openItems(children);
            }
        }
    }
    return open;
}

void TreeView::select(const QList<QPersistentModelIndex>& rows)
{
    QItemSelection selection;
    for (const QPersistentModelIndex& index : rows) {
        selection.select(index, index);
    }
    const QPointer<QItemSelectionModel> selecting(selectionModel());
    const QPointer<TreeView> self(this);
    selecting->setCurrentIndex(rows.first(), QItemSelectionModel::NoUpdate);
    if (selecting) {
        selecting->select(
            selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
    if (self) {
        scrollTo(rows.first());
    }
}

/// @param step 1 or -1
/// @return whether the selected rows, which have to be siblings, have moved
bool TreeView::moveSelectionBy(int step)
{
    const QModelIndexList rows = selectedRowsInOrder();
    if (rows.isEmpty()) {
        return false;
    }
    const QModelIndex parent = rows.first().parent();
    const bool siblings = std::all_of(rows.begin(), rows.end(), [&parent](const QModelIndex& row) {
        return row.parent() == parent;
    });
    const int row = step < 0 ? rows.first().row() - 1 : rows.last().row() + 2;
    return siblings && row >= 0 && row <= model()->rowCount(parent) && reorder(rows, parent, row);
}

/// Whether a key is the tree's, so that no shortcut of the window takes it: a letter that finds a
/// row, or a key that acts on rows.
bool TreeView::takesKey(const QKeyEvent& key) const
{
    if (!model() || state() == EditingState) {
        return false;
    }
    const bool moves = m_reordering != Reordering::None && stepOf(key) != 0;
    const bool finds = ui::menus::searches(key.modifiers(), key.text())
                       && key.key() != Qt::Key_Space && model()->rowCount(rootIndex()) > 0;
    const bool escapes = key.key() == Qt::Key_Escape && isReordering();
    const bool deletes =
        removes(key) && isSignalConnected(QMetaMethod::fromSignal(&TreeView::removalRequested));
    return moves || finds || escapes || deletes || pressesSwitch(key);
}

bool TreeView::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride
        && takesKey(*static_cast<const QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QTreeView::event(event);
}

void TreeView::keyPressEvent(QKeyEvent* event)
{
    const int step = m_reordering != Reordering::None ? stepOf(*event) : 0;
    if (event->key() == Qt::Key_Escape && isReordering()) {
        m_drag->giveUp();
    } else if (step != 0) {
        moveSelectionBy(step);
    } else if (pressesSwitch(*event)) {
        Q_EMIT switchPressed(currentIndex());
    } else if (event->key() == Qt::Key_F2 && isOnSwitch()) {
        renameCurrent();
    } else if (removes(*event) && takesKey(*event)) {
        const QModelIndexList rows = selectedRowsInOrder();
        if (!rows.isEmpty()) {
            Q_EMIT removalRequested(rows);
        }
    } else {
        QTreeView::keyPressEvent(event);
    }
}

/// The base draws the ground in two parts, before the item and below it: what it does at the row's
/// beginning is cut off, so that the one below both shows its round corners.
void TreeView::drawRow(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const bool hasOneColumn = header()->count() - header()->hiddenSectionCount() == 1;
    if (!hasOneColumn || !isEnabled() || !selectionModel()->isSelected(index)) {
        QTreeView::drawRow(painter, option, index);
        return;
    }
    QStyleOptionViewItem ground(option);
    ground.rect = {0, option.rect.y(), viewport()->width(), option.rect.height()};
    ground.viewItemPosition = QStyleOptionViewItem::OnlyOne;
    ground.state |= QStyle::State_Selected;
    style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &ground, painter, this);
    const ui::style::PainterState state(*painter);
    const bool leftToRight = layoutDirection() == Qt::LeftToRight;
    const QMargins beginning(leftToRight ? kRowCorner : 0, 0, leftToRight ? 0 : kRowCorner, 0);
    painter->setClipRect(ground.rect - beginning);
    QTreeView::drawRow(painter, option, index);
}

void TreeView::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    if (isReordering()) {
        QPainter painter(viewport());
        m_drag->paint(painter);
    }
}

void TreeView::mousePressEvent(QMouseEvent* event)
{
    if (isReordering()) {
        return; // another button; the drag goes on
    }
    m_drag->cancel(); // one whose release went elsewhere
    if (pressSwitch(*event)) {
        return;
    }
    const QPointer<TreeView> self(this);
    QTreeView::mousePressEvent(event);
    if (!self || !model()) {
        return; // a slot's work
    }
    const QModelIndex row = indexAt(event->position().toPoint());
    const bool drags = m_reordering != Reordering::None && event->button() == Qt::LeftButton
                       && event->modifiers() == Qt::NoModifier && row.isValid()
                       && selectionModel()->isSelected(row);
    if (drags) {
        m_drag->press(event->position().toPoint());
    }
}

void TreeView::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() == Qt::NoButton) {
        m_drag->cancel(); // a release that went elsewhere
    }
    if (!m_drag->moveTo(event->position().toPoint())) {
        QTreeView::mouseMoveEvent(event);
    }
}

void TreeView::mouseReleaseEvent(QMouseEvent* event)
{
    const bool dragged = event->button() == Qt::LeftButton && m_drag->release();
    if (!dragged) {
        QTreeView::mouseReleaseEvent(event);
    }
}

void TreeView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (!pressSwitch(*event)) { // the second of two quick presses is one as well
        QTreeView::mouseDoubleClickEvent(event);
    }
}

QItemSelectionModel::SelectionFlags TreeView::selectionCommand(
    const QModelIndex& index, const QEvent* event) const
{
    // A press on one of several selected rows may begin to drag them all; the release chooses.
    const bool mayDrag = m_reordering != Reordering::None && event
                         && event->type() == QEvent::MouseButtonPress && index.isValid()
                         && static_cast<const QMouseEvent*>(event)->modifiers() == Qt::NoModifier
                         && selectionModel()->isSelected(index);
    return mayDrag ? QItemSelectionModel::NoUpdate : QTreeView::selectionCommand(index, event);
}
