// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/tabs/TabHover.h"

#include "MorrantUI/docking/tabs/TabRow.h"
#include <MorrantUI/docking/tabs/TabBarOverlay.h>

#include <QBoxLayout>
#include <QTimer>

namespace {

constexpr int kEdgeBand = 28;     ///< where holding a tab scrolls
constexpr int kEdgeStep = 10;     ///< logical pixels, at the edge itself
constexpr int kEdgeInterval = 16; ///< milliseconds

} // namespace

TabHover::TabHover(TabRow* row)
    : QObject(row->parentWidget())
    , m_row(row)
    , m_overlay(new TabBarOverlay(row->parentWidget()))
    , m_edgeTimer(new QTimer(this))
{
    m_edgeTimer->setInterval(kEdgeInterval);
    connect(m_edgeTimer, &QTimer::timeout, this, &TabHover::scrollAtEdge);
}

TabHover::~TabHover() = default;

void TabHover::hold(QWidget* tab, const QPoint& position)
{
    m_tab = tab;
    m_position = position;
    m_row->place();
    mark();
    if (!m_edgeTimer->isActive()) { // a hand that trembles must not put it off
        m_edgeTimer->start();
    }
}

void TabHover::end()
{
    m_tab = nullptr;
    m_edgeTimer->stop();
    m_overlay->hide();
}

void TabHover::fitHeader()
{
    m_overlay->setGeometry(m_row->parentWidget()->rect());
}

void TabHover::mark()
{
    const int index = m_row->tabs()->indexOf(m_tab);
    if (index < 0) { // closed meanwhile
        end();
        return;
    }
    const int gap = m_row->gapAt(m_position);
    const bool moves = ui::tabs::indexAfterDrop(index, gap) != index;
    m_overlay->setDrop(
        m_row->tabRect(index), moves ? std::optional(m_row->gapX(gap)) : std::nullopt);
    m_overlay->show();
}

void TabHover::scrollAtEdge()
{
    const ui::tabs::View view = m_row->view();
    const int step = ui::tabs::edgeScroll(view, m_position.x(), kEdgeBand, kEdgeStep);
    if (step != 0) {
        m_row->scroll(view.offset + step);
        mark();
    }
}
