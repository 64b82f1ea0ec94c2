// SPDX-License-Identifier: Apache-2.0
#include "Core/CubicBezier.h"

#include <cmath>

namespace {

constexpr double kPrecision = 1e-12; ///< of the parameter

} // namespace

double CubicBezier::at(double parameter) const
{
    const double t = parameter;
    const double u = 1.0 - t;
    return u * u * u * start + 3.0 * u * u * t * startPull + 3.0 * u * t * t * endPull
           + t * t * t * end;
}

double CubicBezier::slopeAt(double parameter) const
{
    const double t = parameter;
    const double u = 1.0 - t;
    return 3.0
           * (u * u * (startPull - start) + 2.0 * u * t * (endPull - startPull)
              + t * t * (end - endPull));
}

// Newton's steps inside a bracket. Where a step leaves the bracket, or is not half as long as the
// one before, the bracket is halved instead: near a level stretch Newton's method crawls.
double CubicBezier::parameterAt(double value) const
{
    if (!(value > start)) {
        return 0.0;
    }
    if (value >= end) {
        return 1.0;
    }
    double low = 0.0;
    double high = 1.0;
    double t = (value - start) / (end - start);
    double lastStep = 1.0;
    while (high - low > kPrecision) {
        const double error = at(t) - value;
        if (error == 0.0) {
            break;
        }
        (error > 0.0 ? high : low) = t;
        const double slope = slopeAt(t);
        double next = slope > 0.0 ? t - error / slope : -1.0;
        if (!(next > low && next < high) || std::abs(next - t) > lastStep / 2.0) {
            next = (low + high) / 2.0;
        }
        lastStep = std::abs(next - t);
        t = next;
        if (lastStep < kPrecision) {
            break;
        }
    }
    return t;
}
