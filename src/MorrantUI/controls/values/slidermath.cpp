// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/slidermath.h"

#include <algorithm>
#include <cmath>

namespace ui {

double SliderScale::xOf(double value) const
{
    // Halves, since the width of the range need not be a number.
    const double width = maximum / 2 - minimum / 2;
    const double share =
        width > 0.0 ? std::clamp((value / 2 - minimum / 2) / width, 0.0, 1.0) : 0.0;
    return direction == Qt::RightToLeft ? right - share * (right - left)
                                        : left + share * (right - left);
}

double SliderScale::valueAt(double x) const
{
    if (!(right > left)) {
        return minimum;
    }
    const double share = std::clamp((x - left) / (right - left), 0.0, 1.0);
    const double forward = direction == Qt::RightToLeft ? 1.0 - share : share;
    return std::lerp(minimum, maximum, forward);
}

double roundedTo(double value, int decimals)
{
    const double scale = std::pow(10.0, std::clamp(decimals, 0, 15));
    const double scaled = value * scale;
    // Beyond 2^53 there are no decimals left to round.
    return std::abs(scaled) < 9.0e15 ? std::round(scaled) / scale : value;
}

double steppedValue(double value, double minimum, double maximum, double step, int decimals)
{
    const double inside = std::min(std::max(value, minimum), maximum);
    const double multiple = step > 0.0 ? std::round(inside / step) * step : inside;
    const double distance = std::abs(multiple - inside);
    const double atEnd = inside - minimum < maximum - inside ? minimum : maximum;
    if (std::abs(atEnd - inside) < distance || multiple < minimum || multiple > maximum) {
        return atEnd;
    }
    return roundedTo(multiple, decimals);
}

double keyStep(double step, double factor, int decimals)
{
    return std::max(step * factor, std::pow(10.0, -std::clamp(decimals, 0, 15)));
}

QRectF filledGroove(const SliderScale& scale, const QRectF& groove, double value)
{
    const bool spansZero = scale.minimum < 0.0 && scale.maximum > 0.0;
    // From the lower end the fill takes the round end of the groove with it.
    const double end = scale.direction == Qt::RightToLeft ? groove.right() : groove.left();
    const double from = spansZero ? scale.xOf(0.0) : end;
    const double to = scale.xOf(value);
    return {
        QPointF(std::min(from, to), groove.top()), QPointF(std::max(from, to), groove.bottom())};
}

} // namespace ui
