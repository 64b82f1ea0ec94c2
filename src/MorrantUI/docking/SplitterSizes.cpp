// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/SplitterSizes.h"

#include "MorrantUI/docking/GroupSplitter.h"
#include "MorrantUI/docking/shares.h"
#include <MorrantUI/docking/DockableGroup.h>

#include <numeric>
#include <utility>

namespace ui::docking {

namespace {

int sumOf(const QList<int>& sizes)
{
    return std::accumulate(sizes.begin(), sizes.end(), 0);
}

} // namespace

SplitterSizes::SplitterSizes(DockableGroup& group)
    : m_group(group)
{}

void SplitterSizes::takeMemoryOf(SplitterSizes& other)
{
    m_arrivals = std::exchange(other.m_arrivals, {});
}

SplitterSizes::Memory SplitterSizes::memory() const
{
    return {QRect(m_group.pos(), m_group.size()), m_group.sizes(), m_arrivals};
}

void SplitterSizes::recall(const Memory& memory)
{
    if (m_group.isFloating()) {
        m_group.move(memory.group.topLeft());
        m_group.resize(memory.group.size());
    }
    if (sumOf(memory.sizes) > 0) {
        m_group.applySizes(memory.sizes);
    }
    m_arrivals = memory.arrivals;
}

bool SplitterSizes::isVertical() const
{
    return m_group.getLayoutMode() == DockableGroup::LayoutMode::Vertical;
}

/// Of the row of children.
int SplitterSizes::length() const
{
    return m_group.m_splitter ? m_group.m_splitter->room() : 0;
}

Arrival SplitterSizes::before(const DockableWindow& window) const
{
    return {
        &window,
        childrenBut(nullptr),
        window.size(),
        m_group.sizes(),
        false,
        QRect(m_group.pos(), m_group.size()),
        QRect()};
}

void SplitterSizes::growFor(DockableWindow& window, int place)
{
    const bool fixed = !m_group.isFloating() || m_group.isMaximized() || m_group.isFullScreen();
    if (fixed) {
        return;
    }
    const QSize grown = m_group.combinedSize(&window);
    if (place == 0 && m_group.childCount() > 0) {
        m_group.offsetParent(&window);
    }
    if (grown.isValid()) {
        m_group.resize(grown + beside(place));
    }
}

/// What a floating group needs beside the newcomer itself: the border, or a handle. In front of the
/// others it gives its own room to the handle, so that those stay where they are.
QSize SplitterSizes::beside(int place) const
{
    if (m_group.childCount() == 0) {
        return {2 * kBorder, 2 * kBorder};
    }
    const int handle = place == 0 ? 0 : kHandleWidth;
    return isVertical() ? QSize(0, handle) : QSize(handle, 0);
}

void SplitterSizes::shareAfter(const Arrival& arrival, int place)
{
    if (!m_group.isVisible() || sumOf(arrival.sizes) <= 0) {
        return; // never laid out, so that there is nothing to keep
    }
    const int gained = length() - sumOf(arrival.sizes);
    QList<int> shared = arrival.sizes;
    if (gained > 0) {
        shared.insert(place, gained);
    } else {
        const QSize wanted = arrival.newcomerSize;
        const int extent = isVertical() ? wanted.height() : wanted.width();
        shared = withNewcomer(arrival.sizes, place, extent, kHandleWidth);
    }
    m_group.applySizes(shared);
    Arrival settled = arrival;
    settled.after = QRect(m_group.pos(), m_group.size());
    remember(settled);
}

void SplitterSizes::giveBack(DockableWindow& child)
{
    const auto arrival = m_arrivals.take(child, false);
    if (!arrival || !m_group.isVisible() || arrival->others != childrenBut(nullptr)) {
        return;
    }
    const bool grew = arrival->before.size() != arrival->after.size();
    if (m_group.isWindow() && grew && arrival->after.size() == m_group.size()) {
        m_group.move(m_group.pos() + arrival->before.topLeft() - arrival->after.topLeft());
        m_group.resize(arrival->before.size());
        child.resize(arrival->newcomerSize);
    }
    m_group.applySizes(scaledTo(arrival->sizes, length()));
}

void SplitterSizes::splitInserted(
    const DockableWindow& target, const DockableWindow& split, const QList<int>& sizes)
{
    if (sumOf(sizes) > 0) {
        m_group.applySizes(sizes);
    }
    m_arrivals.replace(target, split);
    remember({&split, childrenBut(&split), {}, sizes, true, {}, {}});
}

void SplitterSizes::splitDissolved(
    const DockableWindow& split,
    const DockableWindow& last,
    int place,
    const QList<int>& sizes,
    const QList<int>& parts)
{
    if (sumOf(sizes) == 0) {
        return;
    }
    if (parts.size() > 1) {
        m_group.applySizes(withReplaced(sizes, place, parts, kHandleWidth));
        return;
    }
    const auto arrival = m_arrivals.take(split, true);
    const bool known = arrival && arrival->others == childrenBut(&last);
    m_group.applySizes(known ? scaledTo(arrival->sizes, sumOf(sizes)) : sizes);
    m_arrivals.replace(split, last);
}

void SplitterSizes::rememberPair(
    const DockableWindow& target,
    const QRect& targetAlone,
    const DockableWindow& newcomer,
    QSize newcomerAlone)
{
    if (m_group.windowMode() != DockableWindow::WindowMode::Group) {
        return;
    }
    const QMargins border(kBorder, kBorder, kBorder, kBorder);
    const QPoint place = m_group.pos();
    const QRect now(place, m_group.size());
    const QRect here = targetAlone.marginsAdded(border);
    const QRect there =
        QRect(place + newcomer.mapTo(&m_group, QPoint()), newcomerAlone).marginsAdded(border);
    remember({&newcomer, {&target}, newcomerAlone, {1}, false, here, now});
    remember({&target, {&newcomer}, targetAlone.size(), {1}, false, there, now});
}

void SplitterSizes::setSizesAround(DockableWindow& child, int extent)
{
    const int outer = isVertical() ? m_group.height() : m_group.width();
    const int room = outer - 2 * kBorder - kHandleWidth;
    if (extent > 0 && extent < room) {
        m_group.applySizes(
            m_group.indexOfChild(&child) == 0 ? QList{extent, room - extent}
                                              : QList{room - extent, extent});
    }
}

QList<int> SplitterSizes::sharesFor(int room, int wanted, DockableArea area)
{
    return withNewcomer({room}, insertIndex(area) == 0 ? 0 : 1, wanted, kHandleWidth);
}

std::vector<const DockableWindow*> SplitterSizes::childrenBut(const DockableWindow* one) const
{
    std::vector<const DockableWindow*> found;
    for (int index = 0; index < m_group.childCount(); ++index) {
        if (const DockableWindow* child = m_group.getChild(index); child != one) {
            found.push_back(child);
        }
    }
    return found;
}

void SplitterSizes::remember(const Arrival& arrival)
{
    m_arrivals.remember(arrival, childrenBut(nullptr));
}

} // namespace ui::docking
