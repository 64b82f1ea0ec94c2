// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/tabs/TabBarHeader.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/docking/tabs/AccessibleTabs.h"
#include "MorrantUI/docking/tabs/TabDrag.h"
#include "MorrantUI/docking/tabs/TabRow.h"
#include "MorrantUI/docking/tabs/tabkeys.h"
#include "MorrantUI/docking/tabs/tablook.h"
#include <MorrantUI/docking/tabs/TabItem.h>

#include <QContextMenuEvent>
#include <QDrag>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QWheelEvent>

#include <utility>

using ui::tabs::Command;

namespace {

constexpr int kWidestFade = 32; ///< of an edge
constexpr int kLeastWidth = 80; ///< narrowest header worth having

} // namespace

TabBarHeader::TabBarHeader(QWidget* parent)
    : Widget(parent)
    , m_row(new TabRow(this, kWidestFade))
    , m_layout(m_row->tabs())
    , m_drag(std::make_unique<TabDrag>(*this, *m_row))
{
    ui::installAccessible<TabBarHeader, ui::AccessibleTabList>();
    setFocusPolicy(Qt::TabFocus); // a click must not take the focus from a field
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAcceptDrops(true);
    connect(m_row, &TabRow::needsOtherSpace, this, &TabBarHeader::updateGeometry);
    connect(m_row, &TabRow::childLost, this, &TabBarHeader::noteLostTab);
}

TabBarHeader::~TabBarHeader()
{
    m_row->disconnect(this);
}

int TabBarHeader::count() const
{
    return m_layout->count();
}

TabItem* TabBarHeader::tab(int index) const
{
    const QLayoutItem* const item = m_layout->itemAt(index);
    return item != nullptr ? static_cast<TabItem*>(item->widget()) : nullptr;
}

int TabBarHeader::indexOf(const TabItem* tab) const
{
    return tab != nullptr ? m_layout->indexOf(tab) : -1;
}

TabItem* TabBarHeader::currentTab() const
{
    return m_current;
}

void TabBarHeader::insertTab(int index, TabItem* tab)
{
    if (!tab || tab->index() >= 0) {
        return;
    }
    const bool inside = index >= 0 && index < count();
    m_layout->insertWidget(inside ? index : count(), tab);
    tab->m_header = this;
    ++m_known;
    if (!tab->testAttribute(Qt::WA_WState_ExplicitShowHide)) {
        tab->show(); // the layout passes over what is not shown yet
    }
    connect(tab, &TabItem::clicked, this, [this, tab] { setCurrentIndex(indexOf(tab)); });
    renumber();
    if (!m_current && isReachable(tab->index())) {
        select(tab->index());
    }
    m_currentIndex = indexOf(m_current);
    tellCurrent();
}

void TabBarHeader::removeTab(int index)
{
    TabItem* const leaving = tab(index);
    if (!leaving) {
        return;
    }
    takeOut(leaving);
    settle();
    tellRemoval();
}

void TabBarHeader::clear()
{
    if (count() == 0) {
        return;
    }
    while (TabItem* const last = tab(count() - 1)) {
        takeOut(last);
    }
    settle();
    tellRemoval();
}

void TabBarHeader::closeTabs(const QList<int>& indices)
{
    QList<QPointer<TabItem>> leaving; // a slot may delete any of them, and the header
    for (const int index : indices) {
        leaving.append(tab(index));
    }
    const QPointer<TabBarHeader> self(this);
    const QPointer<TabItem> before = m_current;
    const bool wasClosing = std::exchange(m_closing, true);
    for (const QPointer<TabItem>& closing : leaving) {
        m_isRefused = false;
        if (closing && indexOf(closing) >= 0) {
            Q_EMIT closing->closed();
        }
        if (self && m_isRefused) {
            break;
        }
        if (self && closing && indexOf(closing) >= 0) {
            takeOut(closing);
            settle();
            Q_EMIT tabRemoved();
        }
        if (!self) {
            return;
        }
    }
    m_closing = wasClosing;
    const bool isRefused = std::exchange(m_isRefused, false);
    if (!isRefused && before != m_current && isReachable(indexOf(before))) { // a slot showed others
        select(indexOf(before));
        scrollTo(m_currentIndex);
    }
    if (!m_closing) {
        tellCurrent();
    }
}

void TabBarHeader::takeOut(TabItem* tab)
{
    m_layout->removeWidget(tab);
    --m_known;
    tab->m_index = -1;
    disconnect(tab, nullptr, this, nullptr);
    tab->hide();
    tab->deleteLater(); // one of its own slots may be running
}

void TabBarHeader::noteLostTab(QObject* child)
{
    if (count() == m_known) {
        return; // it was taken out before
    }
    m_known = count();
    if (auto* const moved = qobject_cast<TabItem*>(child)) { // and not just being deleted
        moved->m_index = -1;
        disconnect(moved, nullptr, this, nullptr);
    }
    settle();
    tellRemoval();
}

/// After a tab has left the layout.
void TabBarHeader::settle()
{
    renumber();
    const int index = indexOf(m_current);
    if (index >= 0) {
        m_currentIndex = index;
    } else {
        selectInsteadOf(m_currentIndex);
        scrollTo(m_currentIndex);
    }
}

void TabBarHeader::renumber()
{
    for (int i = 0; i < count(); ++i) {
        tab(i)->m_index = i;
    }
}

/// Whether a tab may become current without having been asked for.
bool TabBarHeader::isReachable(int index) const
{
    const TabItem* const candidate = tab(index);
    // Enabled for itself: a panel that is disabled as a whole keeps its pages.
    return candidate != nullptr && candidate->isEnabledTo(m_row) && !candidate->isHidden();
}

void TabBarHeader::select(int index)
{
    m_current = tab(index);
    m_currentIndex = index;
    for (int i = 0; i < count(); ++i) {
        tab(i)->setActive(i == index);
    }
}

void TabBarHeader::selectInsteadOf(int index)
{
    int next = qMax(0, index);
    while (next < count() && !isReachable(next)) {
        ++next;
    }
    if (next >= count()) {
        next = qMin(index, count()) - 1;
        while (next >= 0 && !isReachable(next)) {
            --next;
        }
    }
    select(next);
}

void TabBarHeader::tellCurrent()
{
    const bool changed = m_told.index != m_currentIndex || m_told.tab != m_current;
    m_told = {m_currentIndex, m_current};
    if (changed) {
        update();
        ui::notifyTabSelected(m_current, hasFocus());
        Q_EMIT indexChanged(m_currentIndex);
    }
}

void TabBarHeader::tellRemoval()
{
    const QPointer<TabBarHeader> self(this);
    Q_EMIT tabRemoved();
    if (self && !m_closing) {
        tellCurrent();
    }
}

void TabBarHeader::setCurrentIndex(int index)
{
    const TabItem* const chosen = tab(index);
    if (chosen && chosen->isEnabled()) {
        select(index);
        scrollTo(index);
        tellCurrent();
    }
}

void TabBarHeader::selectNeighbour(int step)
{
    const int direction = step < 0 ? -1 : 1;
    selectFrom(m_currentIndex + direction, direction);
}

void TabBarHeader::selectInTurn(int step)
{
    const int before = m_currentIndex;
    selectNeighbour(step);
    if (m_currentIndex == before) {
        step < 0 ? selectFrom(count() - 1, -1) : selectFrom(0, 1);
    }
}

void TabBarHeader::selectFrom(int index, int step)
{
    while (index >= 0 && index < count()) {
        if (isReachable(index)) {
            setCurrentIndex(index);
            return;
        }
        index += step;
    }
}

void TabBarHeader::moveTab(int from, int to)
{
    if (from == to || !tab(from) || !tab(to)) {
        return;
    }
    QLayoutItem* const item = m_layout->takeAt(from);
    m_layout->insertWidget(to, item->widget());
    delete item;
    renumber();
    if (tab(to)->isEnabled()) {
        select(to);
        scrollTo(to);
    }
    m_currentIndex = indexOf(m_current);
    m_told.tab = m_current; // tabMoved() tells that
    const QPointer<TabBarHeader> self(this);
    tellCurrent();
    if (self) {
        Q_EMIT tabMoved(from, to);
    }
}

int TabBarHeader::scrollOffset() const
{
    return m_row->view().offset;
}

void TabBarHeader::setScrollOffset(int offset)
{
    m_row->scroll(offset);
}

void TabBarHeader::scrollTo(int index)
{
    if (tab(index)) {
        m_row->reveal(index);
    }
}

int TabBarHeader::dropGap(const QPoint& position) const
{
    return m_row->gapAt(position);
}

QSize TabBarHeader::sizeHint() const
{
    return m_row->wantedSize();
}

QSize TabBarHeader::minimumSizeHint() const
{
    return m_row->leastSize(kLeastWidth);
}

Qt::DropAction TabBarHeader::runDrag(QDrag* drag)
{
    const auto cancelling = connect(this, &QObject::destroyed, drag, [] { QDrag::cancel(); });
    const Qt::DropAction done = drag->exec(Qt::MoveAction);
    disconnect(cancelling);
    return done;
}

void TabBarHeader::dragEnterEvent(QDragEnterEvent* event)
{
    m_drag->hover(*event);
}

void TabBarHeader::dragMoveEvent(QDragMoveEvent* event)
{
    m_drag->hover(*event);
}

void TabBarHeader::dragLeaveEvent(QDragLeaveEvent* /*event*/)
{
    m_drag->leave();
}

void TabBarHeader::dropEvent(QDropEvent* event)
{
    m_drag->drop(*event);
}

void TabBarHeader::mousePressEvent(QMouseEvent* event)
{
    event->setAccepted(m_drag->press(*event));
}

void TabBarHeader::mouseMoveEvent(QMouseEvent* event)
{
    m_drag->move(*event);
}

void TabBarHeader::endPress()
{
    m_drag->endPress();
}

void TabBarHeader::wheelEvent(QWheelEvent* event)
{
    event->setAccepted(m_row->scrollByWheel(*event));
}

void TabBarHeader::keyPressEvent(QKeyEvent* event)
{
    const Command command = ui::tabs::commandOf(*event, layoutDirection());
    if (command == Command::None) {
        Widget::keyPressEvent(event);
    } else {
        event->accept();
        run(command);
    }
}

void TabBarHeader::run(Command command)
{
    switch (command) {
    case Command::SelectPrevious: selectNeighbour(-1); break;
    case Command::SelectNext: selectNeighbour(1); break;
    case Command::SelectFirst: selectFrom(0, 1); break;
    case Command::SelectLast: selectFrom(count() - 1, -1); break;
    case Command::ScrollBack: m_row->scroll(scrollOffset() - width()); break;
    case Command::ScrollOn: m_row->scroll(scrollOffset() + width()); break;
    case Command::MoveBack: moveTab(m_currentIndex, m_currentIndex - 1); break;
    case Command::MoveOn: moveTab(m_currentIndex, m_currentIndex + 1); break;
    case Command::Rename:
        if (m_current && m_current->isRenamable()) {
            m_current->askForName();
        }
        break;
    case Command::None: break;
    }
}

void TabBarHeader::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    if (!byKey || !m_current || !m_current->isEnabled()) {
        event->ignore();
        return;
    }
    scrollTo(m_currentIndex);
    const QPoint corner =
        QStyle::visualPos(layoutDirection(), m_current->rect(), m_current->rect().bottomLeft());
    QContextMenuEvent own(event->reason(), corner, m_current->mapToGlobal(corner));
    // Not sent: what the tab has no use for would come back here.
    m_current->contextMenuEvent(&own);
    event->setAccepted(own.isAccepted());
}

void TabBarHeader::focusInEvent(QFocusEvent* event)
{
    Widget::focusInEvent(event);
    scrollTo(m_currentIndex);
    if (m_current) {
        m_current->update(); // has the ring
    }
    ui::notifyTabSelected(m_current, true);
}

void TabBarHeader::focusOutEvent(QFocusEvent* event)
{
    Widget::focusOutEvent(event);
    if (m_current) {
        m_current->update();
    }
}

bool TabBarHeader::event(QEvent* event)
{
    const bool announced = event->type() == QEvent::ShortcutOverride;
    if (announced
        && ui::tabs::commandOf(*static_cast<QKeyEvent*>(event), layoutDirection()) != Command::None)
    {
        event->accept(); // the key comes as a press then, whatever the window uses it for
        return true;
    }
    return Widget::event(event);
}

void TabBarHeader::changeEvent(QEvent* event)
{
    Widget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) {
        m_row->place();
        scrollTo(m_currentIndex);
    } else if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        updateGeometry();
    }
}

void TabBarHeader::resizeEvent(QResizeEvent* event)
{
    Widget::resizeEvent(event);
    m_drag->fitHeader();
    m_row->place();
    scrollTo(m_currentIndex);
}

void TabBarHeader::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), ui::tabs::rowGround());
}
