// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/valueformat.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ui {

namespace {

constexpr int kDecimals = 3;
constexpr double kHighest = std::numeric_limits<double>::max();

QString decimalText(double value)
{
    QString text = QString::number(value, 'f', kDecimals);
    qsizetype length = text.size();
    while (text.at(length - 1) == u'0' && text.at(length - 2) != u'.') {
        --length;
    }
    text.truncate(length);
    return text;
}

} // namespace

double limitValue(double value, const NumberRange& range)
{
    const double number = std::isnan(value) ? 0.0 : value;
    return std::min(std::max(number, range.min), range.max);
}

QString formatValue(double value, const NumberRange& range)
{
    const double limited = limitValue(value, range);
    return range.isInteger ? QString::number(std::round(limited), 'f', 0) : decimalText(limited);
}

bool isRange(double minimum, double maximum)
{
    return std::isfinite(minimum) && std::isfinite(maximum) && minimum <= maximum;
}

double acceptedMin(double limit, bool isInteger)
{
    return std::clamp(limit, isInteger ? NumberRange().min : -kHighest, kHighest);
}

double acceptedMax(double limit, bool isInteger)
{
    return std::clamp(limit, -kHighest, isInteger ? NumberRange().max : kHighest);
}

double scrubbedValue(const ScrubState& scrub, const NumberRange& range)
{
    const double upper = std::min(scrub.softMax, range.max);
    const double lower = std::max(scrub.softMin, range.min);
    double candidate = scrub.startValue + scrub.distance * scrub.valuePerPixel;
    if (scrub.startValue <= upper) {
        candidate = std::min(candidate, upper);
    }
    if (scrub.startValue >= lower) {
        candidate = std::max(candidate, lower);
    }
    return candidate;
}

} // namespace ui
