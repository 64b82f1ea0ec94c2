// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/axislines.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

namespace ui::Graph {

namespace {

constexpr int kMostLines = 1000;
constexpr int kMostDecimals = 6;

} // namespace

double axisStep(double least)
{
    if (!(least > 0) || !std::isfinite(least)) {
        return 1;
    }
    const double ten = std::pow(10.0, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * ten >= least) {
            return factor * ten;
        }
    }
    return 10 * ten;
}

std::vector<double> axisLines(double first, double last, double step)
{
    std::vector<double> lines;
    if (step > 0 && (last - first) / step < kMostLines) {
        const double from = std::ceil(first / step);
        for (int i = 0; i < kMostLines && (from + i) * step <= last; ++i) { // from may be huge
            lines.push_back((from + i) * step);
        }
    }
    return lines;
}

QString axisLabel(double number, double step)
{
    const int decimals = static_cast<int>(-std::floor(std::log10(step)));
    return QLocale().toString(number + 0.0, 'f', std::clamp(decimals, 0, kMostDecimals));
}

} // namespace ui::Graph
