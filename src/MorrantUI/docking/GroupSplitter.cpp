// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/GroupSplitter.h"

#include "MorrantUI/docking/SplitterSizes.h"
#include "MorrantUI/docking/carryover.h"
#include <MorrantUI/docking/DockableWindow.h>

#include <QCoreApplication>
#include <QEvent>
#include <QLayoutItem>

#include <algorithm>
#include <numeric>
#include <utility>

using ui::docking::Cell;
using ui::docking::Limits;
using ui::docking::TreeAccess;

namespace {

/// As proportions, before there is any room: more than any minimum in pixels.
constexpr int kUnknownRoom = 100'000;

} // namespace

GroupSplitter::GroupSplitter()
{
    setContentsMargins(0, 0, 0, 0);
    setHandleWidth(ui::docking::kHandleWidth);
}

GroupSplitter::~GroupSplitter() = default;

GroupSplitter::Pause::Pause(GroupSplitter* splitter)
    : m_splitter(splitter)
{
    if (m_splitter) {
        ++m_splitter->m_pauses;
    }
}

GroupSplitter::Pause::~Pause()
{
    if (m_splitter && --m_splitter->m_pauses == 0 && m_splitter->m_stale) {
        m_splitter->settle();
    }
}

/// Qt lays a splitter out whenever a child comes or goes, as long as the splitter is visible: each
/// time all of them would be resized, and painted, for sizes that hold until the next step.
template <typename Work>
void GroupSplitter::withoutLayout(Work&& work)
{
    const bool paused = isPaused();
    m_stale = m_stale || paused;
    if (paused) {
        setAttribute(Qt::WA_WState_Visible, false);
    }
    work();
    if (paused) {
        setAttribute(Qt::WA_WState_Visible, true);
    }
}

void GroupSplitter::put(int index, QWidget& window)
{
    const Pause pause(this);
    ui::docking::carryOver(window, *this);
    const bool carried = window.parentWidget() == this;
    if (!carried) {
        // It is to be seen, and its handle with it, even if it was hidden on purpose.
        window.setAttribute(Qt::WA_WState_ExplicitShowHide, false);
        window.setParent(this);
        window.setAttribute(Qt::WA_WState_ExplicitShowHide, false); // a stack hides who leaves it
    }
    withoutLayout([&] { insertWidget(index, &window); });
    if (!carried && isVisible()) {
        window.setAttribute(Qt::WA_WState_Hidden, false); // it counts, but is not seen yet
        m_newcomers.emplace_back(&window);
    } else if (!carried) {
        window.show();
    }
}

/// What a pause has put off.
void GroupSplitter::settle()
{
    m_stale = false;
    readLimits();
    applyLimits();
    showHandles();
    const QList<int> sizes = std::exchange(m_awaited, {});
    if (sizes.size() == count()) {
        setSizes(sizes);
    }
    refresh();
    fill();
    shareAsWished();
    for (const QPointer<QWidget>& window : std::exchange(m_newcomers, {})) {
        if (window && !window->isHidden()) { // what is in the others may do anything when shown
            window->show();
        }
    }
}

/// As Qt does it, which has not shown those that it was asked to show in a pause.
void GroupSplitter::showHandles()
{
    bool seen = false; // none before the first window
    for (int i = 0; isVisible() && i < count(); ++i) {
        const bool wanted = seen && !widget(i)->isHidden();
        if (wanted != handle(i)->isVisible()) {
            handle(i)->hide();
            handle(i)->setVisible(wanted);
        }
        seen = seen || !widget(i)->isHidden();
    }
}

int GroupSplitter::room() const
{
    int handles = -1;
    for (int i = 0; i < count(); ++i) {
        handles += widget(i)->isHidden() ? 0 : 1;
    }
    const int length = orientation() == Qt::Vertical ? height() : width();
    return length - handleWidth() * std::max(handles, 0);
}

void GroupSplitter::share(const QList<int>& sizes)
{
    const bool isLaidOut = isVisible() && room() > 0;
    m_wished = isLaidOut || sizes.size() != count() ? QList<int>() : sizes;
    shareOut(sizes);
}

/// As soon as there is room. The groups around are shown later than this one, and have sizes of
/// their own to share: what is wished holds until control returns to the event loop.
void GroupSplitter::shareAsWished()
{
    if (m_wished.size() != count()) { // someone has come or gone since
        m_wished.clear();
    }
    if (m_wished.isEmpty() || !isVisible() || isPaused()) {
        return;
    }
    shareOut(m_wished);
    const auto forget = [this, wished = m_wished] {
        if (isVisible() && m_wished == wished) {
            m_wished.clear();
        }
    };
    QMetaObject::invokeMethod(this, forget, Qt::QueuedConnection);
}

void GroupSplitter::shareOut(const QList<int>& sizes)
{
    QList<int> seen;
    for (int i = 0; i < count(); ++i) {
        if (!widget(i)->isHidden()) {
            seen << std::max(sizes.value(i), 0);
        }
    }
    const bool laidOut = isVisible() && room() > 0;
    const int sum = std::accumulate(seen.begin(), seen.end(), 0);
    const bool asTheyAre = sizes.size() != count() || sum <= 0 || (laidOut && sum == room());
    const bool stretches = std::any_of(
        m_cells.begin(), m_cells.end(), [](const Cell& cell) { return cell.stretch > 0; });
    if (asTheyAre || (!laidOut && stretches)) {
        setSizes(sizes);
    } else {
        const QList<int> scaled = ui::docking::scaledTo(seen, laidOut ? room() : kUnknownRoom);
        QList<int> all = sizes;
        for (int i = 0, next = 0; i < count(); ++i) {
            all[i] = widget(i)->isHidden() ? all[i] : scaled[next++];
        }
        setSizes(all);
    }
    fill();
}

void GroupSplitter::give(const QList<int>& sizes)
{
    if (isVisible()) {
        m_wished.clear();
    }
    if (isPaused()) {
        m_awaited = sizes;
        m_stale = true;
        return;
    }
    readLimits();
    applyLimits();
    setSizes(sizes);
    fill();
}

Limits GroupSplitter::limits(QSize beside) const
{
    const bool upright = orientation() == Qt::Vertical;
    Limits all{{0, 0}, {0, 0}};
    int handles = -1;
    for (int i = 0; i < count(); ++i) {
        auto* child = qobject_cast<DockableWindow*>(widget(i));
        if (!child || child->isHidden()) {
            continue;
        }
        const Limits one = TreeAccess::limitsOf(*child);
        const QSize row = all.most + one.most;
        all.most = all.most.expandedTo(one.most);
        upright ? all.most.setHeight(row.height()) : all.most.setWidth(row.width());
        all.stretch = all.stretch.expandedTo(one.stretch);
        ++handles;
    }
    if (handles >= 0) {
        const int thickness = handles * handleWidth();
        all.most += beside + (upright ? QSize(0, thickness) : QSize(thickness, 0));
    }
    all.most = all.most.boundedTo({QLAYOUTSIZE_MAX, QLAYOUTSIZE_MAX});
    return all;
}

void GroupSplitter::liftLimits(QWidget& child)
{
    if (auto* window = qobject_cast<DockableWindow*>(&child)) {
        TreeAccess::setLimits(*window, {}, Qt::Horizontal | Qt::Vertical);
    }
}

void GroupSplitter::settleLimits()
{
    if (isPaused()) {
        m_stale = true;
        return;
    }
    readLimits();
    if (applyLimits()) {
        refresh();
    }
    fill();
}

bool GroupSplitter::event(QEvent* event)
{
    const bool layOut = event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show;
    if (isPaused() && event->type() == QEvent::LayoutRequest) {
        m_stale = true;
        return true;
    }
    if (layOut) {
        readLimits();
        applyLimits();
    }
    const bool handled = SolidSplitter::event(event);
    if (layOut) {
        fill();
    }
    if (event->type() == QEvent::Show) {
        shareAsWished();
    }
    return handled;
}

void GroupSplitter::resizeEvent(QResizeEvent* event)
{
    if (m_limited) {
        applyLimits();
    }
    SolidSplitter::resizeEvent(event);
    fill();
    shareAsWished();
}

void GroupSplitter::childEvent(QChildEvent* event)
{
    const bool awaited = isPaused();
    withoutLayout([&] { SolidSplitter::childEvent(event); });
    if (event->removed() && !awaited) { // by its death: the others may have to yield now
        QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest));
    }
}

void GroupSplitter::readLimits()
{
    const bool upright = orientation() == Qt::Vertical;
    m_limits.clear();
    m_cells.clear();
    m_limited = false;
    for (int i = 0; i < count(); ++i) {
        auto* child = qobject_cast<DockableWindow*>(widget(i));
        const Limits limits = child ? TreeAccess::limitsOf(*child) : Limits();
        const Cell cell{
            upright ? limits.most.height() : limits.most.width(),
            upright ? limits.stretch.height() : limits.stretch.width(),
            !widget(i)->isHidden()};
        m_limited = m_limited || cell.most < QLAYOUTSIZE_MAX;
        m_limits.push_back(limits);
        m_cells.push_back(cell);
    }
}

/// @return whether a child may grow further or less far than before
bool GroupSplitter::applyLimits()
{
    const bool upright = orientation() == Qt::Vertical;
    const Qt::Orientations across = upright ? Qt::Horizontal : Qt::Vertical;
    const std::vector<bool> yields = ui::docking::yielding(m_cells, room());
    bool changed = false;
    for (std::size_t i = 0; i < m_cells.size(); ++i) {
        if (auto* child = qobject_cast<DockableWindow*>(widget(static_cast<int>(i)))) {
            const QSize before = child->maximumSize();
            TreeAccess::setLimits(
                *child, m_limits[i], yields[i] ? Qt::Horizontal | Qt::Vertical : across);
            changed = changed || child->maximumSize() != before;
        }
    }
    return changed;
}

/// Gives out what Qt has left over: it lets no child but those with a stretch grow.
void GroupSplitter::fill()
{
    if (!isVisible() || isPaused() || static_cast<int>(m_cells.size()) != count()) {
        return;
    }
    const bool upright = orientation() == Qt::Vertical;
    QList<int> used;
    used.reserve(count());
    for (int i = 0; i < count(); ++i) {
        Cell& cell = m_cells[static_cast<std::size_t>(i)];
        cell.seen = !widget(i)->isHidden();
        used << (!cell.seen ? 0 : upright ? widget(i)->height() : widget(i)->width());
    }
    const int all = room();
    if (std::accumulate(used.begin(), used.end(), 0) >= all) {
        return;
    }
    QList<int> filled = ui::docking::filled(used, m_cells, all);
    if (filled != used) {
        const QList<int> before = sizes();
        for (int i = 0; i < count(); ++i) {
            filled[i] = widget(i)->isHidden() ? before[i] : filled[i];
        }
        setSizes(filled);
    }
}
