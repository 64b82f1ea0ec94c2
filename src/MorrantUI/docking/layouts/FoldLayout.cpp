// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/layouts/FoldLayout.h"

FoldLayout::FoldLayout(QWidget* parent)
    : QVBoxLayout(parent)
{
    setContentsMargins(0, 0, 0, 0);
    setSpacing(0);
}

int FoldLayout::contentHeight(int width) const
{
    return QVBoxLayout::hasHeightForWidth() ? QVBoxLayout::heightForWidth(width)
                                            : QVBoxLayout::sizeHint().height();
}

void FoldLayout::setPart(int full, double share)
{
    m_part = Part{full, share};
    invalidate();
}

void FoldLayout::clearPart()
{
    m_part.reset();
    invalidate();
}

QSize FoldLayout::sizeHint() const
{
    const QSize whole = QVBoxLayout::sizeHint();
    return m_part ? QSize(whole.width(), m_part->height()) : whole;
}

QSize FoldLayout::minimumSize() const
{
    const QSize whole = QVBoxLayout::minimumSize();
    return m_part ? QSize(whole.width(), m_part->height()) : whole;
}

bool FoldLayout::hasHeightForWidth() const
{
    return !m_part && QVBoxLayout::hasHeightForWidth();
}

int FoldLayout::heightForWidth(int width) const
{
    return m_part ? -1 : QVBoxLayout::heightForWidth(width);
}

int FoldLayout::minimumHeightForWidth(int width) const
{
    return m_part ? -1 : QVBoxLayout::minimumHeightForWidth(width);
}

void FoldLayout::setGeometry(const QRect& rect)
{
    QVBoxLayout::setGeometry(
        m_part ? QRect(rect.topLeft(), QSize(rect.width(), m_part->full)) : rect);
}
