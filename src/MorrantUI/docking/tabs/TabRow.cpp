// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/tabs/TabRow.h"

#include "MorrantUI/docking/tabs/tablook.h"
#include <MorrantUI/docking/tabs/TabGradientOverlay.h>

#include <QChildEvent>
#include <QHBoxLayout>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

constexpr int kGap = 1;             ///< logical pixels between tabs
constexpr int kPeek = 32;           ///< of a tab's neighbours that revealing it shows
constexpr double kWheelStep = 60.0; ///< logical pixels for one notch
constexpr double kNotch = 120.0;    ///< of the wheel's angle

/// How far a wheel wants to scroll, logical pixels, positive towards the beginning of the row.
double wheelDistance(const QWheelEvent& event, Qt::LayoutDirection direction)
{
    const bool exact = !event.pixelDelta().isNull(); // touchpads
    const QPoint delta = exact ? event.pixelDelta() : event.angleDelta();
    const double scale = exact ? 1.0 : kWheelStep / kNotch;
    if (std::abs(delta.x()) > std::abs(delta.y())) {
        return scale * (direction == Qt::RightToLeft ? -delta.x() : delta.x());
    }
    return scale * delta.y();
}

} // namespace

TabRow::TabRow(QWidget* header, int widestFade)
    : QWidget(header)
    , m_tabs(new QHBoxLayout(this))
    , m_fades(new TabGradientOverlay(header))
    , m_widestFade(widestFade)
{
    m_tabs->setContentsMargins(0, 0, 0, 0);
    m_tabs->setSpacing(kGap);
    m_tabs->setSizeConstraint(QLayout::SetNoConstraint);
}

TabRow::~TabRow() = default;

ui::tabs::View TabRow::view() const
{
    return {
        .viewport = parentWidget()->width(),
        .content = m_tabs->sizeHint().width(),
        .offset = m_offset,
        .direction = layoutDirection(),
    };
}

QSize TabRow::wantedSize() const
{
    return {m_tabs->sizeHint().width(), ui::tabs::tabHeight(*parentWidget())};
}

QSize TabRow::leastSize(int width) const
{
    const QSize whole = wantedSize();
    return {std::min(width, whole.width()), whole.height()};
}

void TabRow::setFadesVisible(bool visible)
{
    m_fades->setVisible(visible);
}

std::vector<ui::tabs::Span> TabRow::spans() const
{
    std::vector<ui::tabs::Span> spans;
    int end = 0;
    for (int i = 0; i < m_tabs->count(); ++i) {
        const QWidget* const tab = m_tabs->itemAt(i)->widget();
        const QRect place = tab->geometry();
        ui::tabs::Span span{end, 0}; // of a hidden tab
        if (!tab->isHidden()) {
            const int start = isRightToLeft() ? width() - place.right() - 1 : place.x();
            span = {start, place.width()};
        }
        end = span.end();
        spans.push_back(span);
    }
    return spans;
}

void TabRow::place()
{
    m_offset = ui::tabs::boundedOffset(view(), m_offset);
    const ui::tabs::View now = view();
    setGeometry(ui::tabs::rowLeft(now), 0, now.content, parentWidget()->height());
    m_tabs->setGeometry(rect()); // of a row that is not shown, Qt would put it off
    m_fades->setGeometry(parentWidget()->rect());
    m_fades->setFades(ui::tabs::fades(now, m_widestFade));
}

void TabRow::scroll(int offset)
{
    m_offset = ui::tabs::boundedOffset(view(), offset);
    place();
}

void TabRow::reveal(int index)
{
    place();
    const ui::tabs::Span wanted = spans().at(static_cast<std::size_t>(index));
    scroll(ui::tabs::offsetShowing(view(), wanted, kPeek));
}

bool TabRow::scrollByWheel(const QWheelEvent& event)
{
    if (ui::tabs::largestOffset(view()) == 0) {
        return false;
    }
    m_wheelRest -= wheelDistance(event, layoutDirection());
    const double whole = std::trunc(m_wheelRest);
    m_wheelRest -= whole;
    scroll(m_offset + static_cast<int>(whole));
    return true;
}

QWidget* TabRow::tabAt(const QPoint& point) const
{
    for (int i = 0; i < m_tabs->count(); ++i) {
        QWidget* const tab = m_tabs->itemAt(i)->widget();
        if (!tab->isHidden() && tabRect(i).contains(point)) {
            return tab;
        }
    }
    return nullptr;
}

QRect TabRow::tabRect(int index) const
{
    return m_tabs->itemAt(index)->widget()->geometry().translated(pos());
}

int TabRow::gapAt(const QPoint& point) const
{
    return ui::tabs::gapAt(spans(), ui::tabs::positionAt(view(), point.x()));
}

int TabRow::gapX(int gap) const
{
    return ui::tabs::xAt(view(), ui::tabs::gapPosition(spans(), gap));
}

bool TabRow::event(QEvent* event)
{
    const bool done = QWidget::event(event);
    if (event->type() == QEvent::LayoutRequest) {
        place();
        Q_EMIT needsOtherSpace();
    } else if (event->type() == QEvent::ChildRemoved) {
        Q_EMIT childLost(static_cast<QChildEvent*>(event)->child());
    }
    return done;
}
