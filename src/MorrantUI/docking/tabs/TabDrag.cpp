// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/tabs/TabDrag.h"

#include "MorrantUI/docking/tabs/TabHover.h"
#include "MorrantUI/docking/tabs/TabRow.h"
#include <MorrantUI/docking/tabs/TabBarHeader.h>
#include <MorrantUI/docking/tabs/TabItem.h>
#include <MorrantUI/docking/tabs/tabreorder.h>

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>

TabDrag::TabDrag(TabBarHeader& header, TabRow& row)
    : m_header(header)
    , m_row(row)
    , m_hover(new TabHover(&row))
{}

TabDrag::~TabDrag()
{
    if (m_drag) {
        m_drag->setParent(nullptr); // its loop is running and still needs it
    }
}

void TabDrag::fitHeader()
{
    m_hover->fitHeader();
}

bool TabDrag::press(const QMouseEvent& event)
{
    if (event.button() != Qt::LeftButton || m_state == State::Dragging) {
        return false;
    }
    m_pressPosition = event.position().toPoint();
    m_tab = qobject_cast<TabItem*>(m_row.tabAt(m_pressPosition));
    m_state = m_tab ? State::Pressed : State::Idle;
    return m_state == State::Pressed;
}

void TabDrag::endPress()
{
    if (m_state == State::Pressed) {
        m_state = State::Idle;
    }
}

void TabDrag::move(const QMouseEvent& event)
{
    const QPoint way = event.position().toPoint() - m_pressPosition;
    if (!event.buttons().testFlag(Qt::LeftButton)) {
        endPress();
    } else if (
        m_state == State::Pressed && m_tab && m_tab->isEnabled()
        && way.manhattanLength() >= QApplication::startDragDistance())
    {
        start();
    }
}

void TabDrag::start()
{
    if (m_header.count() < 2) {
        endPress();
        return;
    }
    auto* const carried = new QMimeData;
    carried->setData(ui::tabs::reorderFormat(), ui::tabs::reorderData(m_tab->index()));
    auto* const drag = new QDrag(&m_header);
    drag->setMimeData(carried);
    drag->setPixmap(m_tab->grab());
    drag->setHotSpot(m_pressPosition - m_tab->mapTo(&m_header, QPoint(0, 0)));
    m_state = State::Dragging;
    m_drag = drag;
    m_row.setFadesVisible(false); // the tabs at the edges are places to drop at

    const QPointer<TabBarHeader> header(&m_header); // owns this
    const QPointer<QDrag> running(drag);
    m_header.runDrag(drag);
    if (running) {
        running->deleteLater(); // outlives the header
    }
    if (header) {
        finish();
    }
}

void TabDrag::finish()
{
    m_state = State::Idle;
    m_tab = nullptr;
    m_drag = nullptr;
    m_hover->end();
    m_row.setFadesVisible(true);
}

/// The index of what is held over the header if it may be dropped: a tab of this header.
std::optional<int> TabDrag::draggedIndex(const QDropEvent& event) const
{
    const bool fromElsewhere = event.source() != nullptr && event.source() != &m_header;
    if (fromElsewhere || !event.possibleActions().testFlag(Qt::MoveAction)) {
        return std::nullopt;
    }
    std::optional<int> index = ui::tabs::reorderIndex(event.mimeData());
    if (index && m_state == State::Dragging) {
        index = m_header.indexOf(m_tab); // others may have been closed since the drag began
    }
    return index && m_header.tab(*index) != nullptr ? index : std::nullopt;
}

void TabDrag::hover(QDropEvent& event)
{
    const std::optional<int> index = draggedIndex(event);
    if (!index) {
        m_hover->end();
        event.ignore();
        return;
    }
    m_hover->hold(m_header.tab(*index), event.position().toPoint());
    event.setDropAction(Qt::MoveAction);
    event.accept();
}

void TabDrag::leave()
{
    m_hover->end();
}

void TabDrag::drop(QDropEvent& event)
{
    const std::optional<int> from = draggedIndex(event);
    m_hover->end();
    if (!from) {
        event.ignore();
        return;
    }
    event.setDropAction(Qt::MoveAction);
    event.accept();
    m_row.place();
    const int gap = m_header.dropGap(event.position().toPoint());
    m_header.moveTab(*from, ui::tabs::indexAfterDrop(*from, gap));
}
