// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/layouts/FlowLayout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

FlowLayout::FlowLayout(QWidget* parent)
    : QLayout(parent)
{}

FlowLayout::~FlowLayout()
{
    qDeleteAll(m_items);
}

void FlowLayout::addItem(QLayoutItem* item)
{
    if (!item) {
        return;
    }
    m_items.append(item);
    invalidate();
}

void FlowLayout::insertWidget(int index, QWidget* widget, Qt::Alignment alignment)
{
    if (!widget) {
        return;
    }
    addWidget(widget); // at the end, and out of the layout that it was in
    QLayoutItem* const item = m_items.takeLast();
    item->setAlignment(alignment);
    const bool inside = index >= 0 && index < m_items.size();
    m_items.insert(inside ? index : m_items.size(), item);
    invalidate();
}

int FlowLayout::count() const
{
    return static_cast<int>(m_items.size());
}

QLayoutItem* FlowLayout::itemAt(int index) const
{
    return m_items.value(index, nullptr);
}

QLayoutItem* FlowLayout::takeAt(int index)
{
    if (index < 0 || index >= m_items.size()) {
        return nullptr;
    }
    QLayoutItem* const item = m_items.takeAt(index);
    invalidate();
    return item;
}

void FlowLayout::setHorizontalSpacing(int spacing)
{
    m_horizontalSpacing = std::max(-1, spacing);
    invalidate();
}

void FlowLayout::setVerticalSpacing(int spacing)
{
    m_verticalSpacing = std::max(-1, spacing);
    invalidate();
}

int FlowLayout::horizontalSpacing() const
{
    const QWidget* const widget = parentWidget();
    if (m_horizontalSpacing >= 0 || !widget) {
        return std::max(0, m_horizontalSpacing);
    }
    return std::max(
        0, widget->style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing, nullptr, widget));
}

int FlowLayout::verticalSpacing() const
{
    const QWidget* const widget = parentWidget();
    if (m_verticalSpacing >= 0 || !widget) {
        return std::max(0, m_verticalSpacing);
    }
    return std::max(
        0, widget->style()->pixelMetric(QStyle::PM_LayoutVerticalSpacing, nullptr, widget));
}

void FlowLayout::setSpacing(int spacing)
{
    setHorizontalSpacing(spacing);
    setVerticalSpacing(spacing);
}

int FlowLayout::spacing() const
{
    return horizontalSpacing() == verticalSpacing() ? horizontalSpacing() : -1;
}

void FlowLayout::setRowAlignment(ui::FlowAlignment alignment)
{
    m_rowAlignment = alignment;
    invalidate();
}

Qt::Orientations FlowLayout::expandingDirections() const
{
    return {};
}

bool FlowLayout::hasHeightForWidth() const
{
    return true;
}

int FlowLayout::heightForWidth(int width) const
{
    if (width != m_knownWidth || m_knownWidth < 0) {
        const QMargins margins = contentsMargins();
        const int inside = width - margins.left() - margins.right();
        m_knownHeight = arranged(shownItems(), inside).height + margins.top() + margins.bottom();
        m_knownWidth = width;
    }
    return m_knownHeight;
}

QSize FlowLayout::minimumSize() const
{
    QSize least;
    for (const ui::FlowItem& item : shownItems()) {
        least = least.expandedTo(item.minimum);
    }
    return least.expandedTo({0, 0}).grownBy(contentsMargins());
}

QSize FlowLayout::sizeHint() const
{
    QSize row(0, 0);
    const std::vector<ui::FlowItem> items = shownItems();
    for (const ui::FlowItem& item : items) {
        const QSize size = item.hint.expandedTo(item.minimum).boundedTo(item.maximum);
        row = QSize(row.width() + size.width(), std::max(row.height(), size.height()));
    }
    const int gaps = std::max(0, static_cast<int>(items.size()) - 1);
    return row.grownBy({0, 0, gaps * horizontalSpacing(), 0}).grownBy(contentsMargins());
}

void FlowLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    const QRect inside = rect.marginsRemoved(contentsMargins());
    QList<QLayoutItem*> shown;
    const ui::Flow flow = arranged(shownItems(&shown), inside.width());
    for (int i = 0; i < shown.size(); ++i) {
        shown.at(i)->setGeometry(
            flow.rects.at(static_cast<std::size_t>(i)).translated(inside.topLeft()));
    }
}

void FlowLayout::invalidate()
{
    m_knownWidth = -1;
    QLayout::invalidate();
}

std::vector<ui::FlowItem> FlowLayout::shownItems(QList<QLayoutItem*>* shown) const
{
    std::vector<ui::FlowItem> items;
    for (QLayoutItem* const item : m_items) {
        if (item->isEmpty()) {
            continue;
        }
        ui::FlowItem described;
        described.hint = item->sizeHint();
        described.minimum = item->minimumSize();
        described.maximum = item->maximumSize();
        described.expands = item->expandingDirections().testFlag(Qt::Horizontal);
        described.alignment = item->alignment() & Qt::AlignVertical_Mask;
        described.fillsHeight =
            !described.alignment && item->expandingDirections().testFlag(Qt::Vertical);
        if (item->hasHeightForWidth()) {
            described.heightFor = [item](int width) { return item->heightForWidth(width); };
        }
        items.push_back(std::move(described));
        if (shown) {
            shown->append(item);
        }
    }
    return items;
}

ui::Flow FlowLayout::arranged(const std::vector<ui::FlowItem>& items, int width) const
{
    const QWidget* const widget = parentWidget();
    return ui::arrangeFlow(
        items,
        {.width = width,
         .horizontalSpacing = horizontalSpacing(),
         .verticalSpacing = verticalSpacing(),
         .rows = m_rowAlignment,
         .direction = widget != nullptr ? widget->layoutDirection() : Qt::LeftToRight});
}
