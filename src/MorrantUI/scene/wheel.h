#pragma once

#include <QPoint>

#include <cmath>

namespace ui {

/// A share of a wheel's distance, each side rounded to the nearest whole step, halves away from 0.
inline QPoint wheelShare(QPoint delta, double share)
{
    return {
        static_cast<int>(std::lround(delta.x() * share)),
        static_cast<int>(std::lround(delta.y() * share))};
}

} // namespace ui
