// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/FocusFrame.h"

#include <QPainter>

namespace morrant {

FocusFrame::FocusFrame(const QColor& lineColor, QWidget* parent)
    : Widget(parent)
    , m_lineColor(lineColor)
{}

FocusFrame::~FocusFrame() = default;

void FocusFrame::paintEvent(QPaintEvent* event)
{
    Widget::paintEvent(event);

    QPainter painter(this);
    painter.fillRect(0, 0, width(), 1, m_lineColor);
}

} // namespace morrant
