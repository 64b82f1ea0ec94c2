// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/RowBlock.h"

#include "MorrantUI/timeeditor/rowpass.h"

#include <QGraphicsRectItem>
#include <QPainterPath>

#include <algorithm>
#include <limits>
#include <utility>

namespace ui {

RowBlock::RowBlock(QGraphicsItem* parent)
    : QGraphicsItem(parent)
{
    setFlag(ItemContainsChildrenInShape);
    setAcceptedMouseButtons(Qt::NoButton);
}

QRectF RowBlock::boundingRect() const
{
    if (std::exchange(m_stale, false)) {
        m_top = std::numeric_limits<double>::max();
        m_bottom = std::numeric_limits<double>::lowest();
        for (const QGraphicsItem* const row : childItems()) {
            const auto* const shaped = dynamic_cast<const QGraphicsRectItem*>(row);
            const QRectF rect = shaped != nullptr ? shaped->rect() : row->boundingRect();
            m_top = std::min(m_top, row->y() + rect.top());
            m_bottom = std::max(m_bottom, row->y() + rect.bottom());
        }
    }
    if (m_top > m_bottom) {
        return kNowhere;
    }
    // What is painted has to be told in device pixels, which frames at the ends of 32 bits exceed.
    if (const RowPass* const pass = RowPass::current()) {
        return {pass->exposed().left(), m_top, pass->exposed().width(), m_bottom - m_top};
    }
    return {-kFarthestFrame, m_top, 2.0 * kFarthestFrame, m_bottom - m_top};
}

bool RowBlock::collidesWithPath(const QPainterPath& path, Qt::ItemSelectionMode /*mode*/) const
{
    const QRectF reached = path.controlPointRect();
    const QRectF own = boundingRect();
    return reached.bottom() >= own.top() && reached.top() <= own.bottom();
}

void RowBlock::paint(
    QPainter* /*painter*/, const QStyleOptionGraphicsItem* /*option*/, QWidget* /*widget*/)
{}

QVariant RowBlock::itemChange(GraphicsItemChange change, const QVariant& value)
{
    if (change == ItemChildAddedChange || change == ItemChildRemovedChange) {
        invalidate();
    }
    return QGraphicsItem::itemChange(change, value);
}

} // namespace ui
