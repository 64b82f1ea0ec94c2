// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QGraphicsItem>

namespace ui {

/// Some rows that follow each other in the stack. It draws nothing and takes nothing; what it is
/// for is that Qt, looking for what is at a place, passes over all rows of a block at once.
class RowBlock : public QGraphicsItem
{
public:
    static constexpr int kRows = 32; ///< about the square root of a large document's rows

    explicit RowBlock(QGraphicsItem* parent);

    /// A row of the block has another place or height.
    void invalidate() { m_stale = true; }

    /// As wide as frames can be, as high as the rows.
    QRectF boundingRect() const override;
    bool collidesWithPath(const QPainterPath& path, Qt::ItemSelectionMode mode) const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;

private:
    mutable bool m_stale = true;
    mutable double m_top = 0.0;
    mutable double m_bottom = 0.0;
};

} // namespace ui
