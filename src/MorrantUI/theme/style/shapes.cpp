// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/style/shapes.h"

#include <QPainter>

#include <algorithm>

namespace ui::style {

PainterState::PainterState(QPainter& painter)
    : m_painter(painter)
{
    m_painter.save();
}

PainterState::~PainterState()
{
    m_painter.restore();
}

QRectF openedAgainst(QRectF rect, Qt::Edge edge)
{
    switch (edge) {
    case Qt::BottomEdge: rect.setTop(rect.top() - kRadius); break;
    case Qt::LeftEdge: rect.setRight(rect.right() + kRadius); break;
    case Qt::RightEdge: rect.setLeft(rect.left() - kRadius); break;
    default: rect.setBottom(rect.bottom() + kRadius); break;
    }
    return rect;
}

QRectF centeredSquare(const QRectF& rect, double side)
{
    const double fitting = std::min({side, rect.width(), rect.height()});
    QRectF square(0, 0, fitting, fitting);
    square.moveCenter(rect.center());
    return square;
}

} // namespace ui::style
