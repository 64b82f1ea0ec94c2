// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

namespace ui::test {

/// Relative luminance of an opaque sRGB colour, 0 to 1, as WCAG 2.1 defines it.
inline double luminance(const QColor& colour)
{
    const auto linear = [](double channel) {
        return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
           + 0.0722 * linear(colour.blueF());
}

/// Contrast ratio of two opaque colours, 1 to 21, as WCAG 2.1 defines it.
inline double contrast(const QColor& a, const QColor& b)
{
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// What is seen of a translucent colour on an opaque ground.
inline QColor over(const QColor& colour, const QColor& ground)
{
    const auto mix = [&](double top, double bottom) {
        return static_cast<float>(top * colour.alphaF() + bottom * (1.0 - colour.alphaF()));
    };
    return QColor::fromRgbF(
        mix(colour.redF(), ground.redF()),
        mix(colour.greenF(), ground.greenF()),
        mix(colour.blueF(), ground.blueF()));
}

} // namespace ui::test
