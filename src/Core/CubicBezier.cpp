// SPDX-License-Identifier: Apache-2.0
#include "Core/CubicBezier.h"

#include <cmath>
#include <limits>

namespace {

constexpr double kLastBits = 4.0 * std::numeric_limits<double>::epsilon(); ///< of a parameter

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

// Newton's steps inside a bracket, until they are none, or no double lies between. Where a step
// leaves the bracket, or is not half as long as the one before, the bracket is halved instead: near
// a level stretch Newton's method crawls.
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
    while (true) {
        const double error = at(t) - value;
        if (error == 0.0) {
            return t;
        }
        (error > 0.0 ? high : low) = t;
        double next = t - error / slopeAt(t);
        if (std::abs(next - t) <= kLastBits * t) {
            return t;
        }
        if (!(next > low && next < high) || std::abs(next - t) > lastStep / 2.0) {
            next = low + (high - low) / 2.0;
        }
        if (next <= low || next >= high) {
            return t;
        }
        lastStep = std::abs(next - t);
        t = next;
    }
}

std::pair<CubicBezier, CubicBezier> CubicBezier::splitAt(double parameter) const
{
    const double a = std::lerp(start, startPull, parameter);
    const double b = std::lerp(startPull, endPull, parameter);
    const double c = std::lerp(endPull, end, parameter);
    const double ab = std::lerp(a, b, parameter);
    const double bc = std::lerp(b, c, parameter);
    const double middle = std::lerp(ab, bc, parameter);
    return {{start, a, ab, middle}, {middle, bc, c, end}};
}
