// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/padpaint.h"

#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/theme/colors.h>

#include <QFontInfo>
#include <QPainter>
#include <QWidget>

namespace ui::pads {

void drawKnob(
    QPainter& painter,
    const QPointF& center,
    double diameter,
    const QColor& ground,
    const style::WidgetState& state)
{
    QRectF knob(0, 0, diameter, diameter);
    knob.moveCenter(center);
    const QRectF disc = knob.adjusted(1, 1, -1, -1);
    style::fillRounded(painter, knob, diameter / 2, ground);
    style::fillRounded(
        painter, disc, disc.width() / 2, style::shade(colorQt(QStringLiteral("Light")), state));
    if (state.keyboard) {
        style::drawFocusRing(painter, knob, diameter / 2);
    }
}

int fontSize(const QWidget& widget)
{
    return QFontInfo(widget.font()).pixelSize();
}

QSize squareOf(const QWidget& widget, double fontSizes)
{
    const int side = qRound(fontSizes * fontSize(widget));
    return {side, side};
}

} // namespace ui::pads
