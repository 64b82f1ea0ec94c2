// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/FlashFrame.h"

#include <QPainter>

FlashFrame::FlashFrame(const QColor& lineColor, QWidget* parent)
    : morrant::FocusFrame(lineColor, parent)
    , m_currentColor(lineColor)
{}

FlashFrame::~FlashFrame() = default;

void FlashFrame::setCurrentColor(const QColor& color)
{
    if (color != m_currentColor) {
        m_currentColor = color;
        update();
    }
}

void FlashFrame::paintEvent(QPaintEvent* event)
{
    morrant::FocusFrame::paintEvent(event);

    QPainter painter(this);
    painter.fillRect(0, 0, width(), 1, m_currentColor);
}
