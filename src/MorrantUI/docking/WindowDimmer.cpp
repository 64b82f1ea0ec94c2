// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/WindowDimmer.h"

#include <MorrantUI/theme/colors.h>

#include <QPainter>

WindowDimmer::WindowDimmer(QWidget* parent)
    : Widget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

WindowDimmer::~WindowDimmer() = default;

QColor WindowDimmer::color() const
{
    QColor color = ui::colorQt(QStringLiteral("Base"));
    color.setAlphaF(0.5F);
    return color;
}

void WindowDimmer::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), color());
}
