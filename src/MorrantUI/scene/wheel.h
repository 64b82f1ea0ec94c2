// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPoint>
#include <QPointF>

#include <cmath>

namespace ui {

/// How far a wheel scrolls time editor and ruler, of its distance.
inline constexpr double kWheelShare = 0.4;

/// Whole steps of a share of a wheel's distance, rounded to the nearest.
/// @param share 0..1
/// @param rest what rounding has left over so far: a fine wheel, whose single steps come to
///     nothing, gets as far as a coarse one
inline QPoint wheelSteps(QPoint delta, double share, QPointF& rest)
{
    const auto steps = [share](int distance, double& left) {
        if (distance == 0) {
            return 0; // no step of the other side's
        }
        left += distance * share;
        const double whole = std::round(left);
        left -= whole;
        return static_cast<int>(whole);
    };
    return {steps(delta.x(), rest.rx()), steps(delta.y(), rest.ry())};
}

} // namespace ui
