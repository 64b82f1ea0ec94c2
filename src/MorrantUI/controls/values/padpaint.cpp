#include "MorrantUI/controls/values/padpaint.h"

#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/theme/colors.h>

#include <QFontInfo>
#include <QPainter>
#include <QStyleOption>
#include <QWidget>

namespace ui::pads {

style::Mood moodOf(const QWidget& widget, bool pressed)
{
    QStyleOption option;
    option.initFrom(&widget);
    option.state.setFlag(QStyle::State_Sunken, pressed);
    return style::moodOf(option);
}

void drawKnob(
    QPainter& painter,
    const QPointF& center,
    double diameter,
    const QColor& ground,
    const style::Mood& mood)
{
    QRectF knob(0, 0, diameter, diameter);
    knob.moveCenter(center);
    const QRectF disc = knob.adjusted(1, 1, -1, -1);
    style::fillRounded(painter, knob, diameter / 2, ground);
    style::fillRounded(
        painter, disc, disc.width() / 2, style::shade(colorQt(QStringLiteral("Light")), mood));
    if (mood.keyboard) {
        style::drawFocusRing(painter, knob, diameter / 2);
    }
}

int fontSize(const QWidget& widget)
{
    return QFontInfo(widget.font()).pixelSize();
}

} // namespace ui::pads
