// SPDX-License-Identifier: Apache-2.0
#include "FrameSlider.h"

#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionSlider>

namespace studio {

FrameSlider::FrameSlider(QWidget* parent)
    : QSlider(Qt::Horizontal, parent)
{}

void FrameSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    setSliderDown(true);
    setSliderPosition(valueAt(event->position().x()));
}

void FrameSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (isSliderDown()) {
        setSliderPosition(valueAt(event->position().x()));
    }
}

void FrameSlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        setSliderDown(false);
    }
}

int FrameSlider::valueAt(double x) const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect groove =
        style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, this);
    const int handle = style()->pixelMetric(QStyle::PM_SliderLength, &option, this);
    const int offset = qRound(x) - groove.x() - handle / 2;
    return QStyle::sliderValueFromPosition(
        minimum(), maximum(), offset, groove.width() - handle, option.upsideDown);
}

} // namespace studio
