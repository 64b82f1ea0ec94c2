// SPDX-License-Identifier: Apache-2.0
#include "lottie/spatial.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace studio {

namespace {

constexpr double kPrecision = 1e-9; // of the parameter, and of lengths in pixels

// Abscissae and weights of the eight-point Gauss-Legendre rule, one half: the other mirrors it.
constexpr std::array<std::array<double, 2>, 4> kGauss = {
    {{0.1834346424956498, 0.3626837833783620},
     {0.5255324099163290, 0.3137066458778873},
     {0.7966664774136267, 0.2223810344533745},
     {0.9602898564975363, 0.1012285362903763}}};

Point position(const SpatialCurve& c, double t)
{
    const double u = 1 - t;
    Point result;
    for (std::size_t i = 0; i < 2; ++i) {
        result[i] = u * u * u * c.start[i] + 3 * u * u * t * c.control1[i]
                    + 3 * u * t * t * c.control2[i] + t * t * t * c.end[i];
    }
    return result;
}

Point velocity(const SpatialCurve& c, double t)
{
    const double u = 1 - t;
    Point result;
    for (std::size_t i = 0; i < 2; ++i) {
        result[i] = 3 * u * u * (c.control1[i] - c.start[i])
                    + 6 * u * t * (c.control2[i] - c.control1[i])
                    + 3 * t * t * (c.end[i] - c.control2[i]);
    }
    return result;
}

double speed(const SpatialCurve& c, double t)
{
    const Point v = velocity(c, t);
    return std::hypot(v[0], v[1]);
}

// Integrates the speed over two panels: one alone is off by a pixel where a curve doubles back.
double lengthTo(const SpatialCurve& c, double t)
{
    constexpr int kPanels = 2;
    const double half = t / (2 * kPanels);
    double sum = 0;
    for (int panel = 0; panel < kPanels; ++panel) {
        const double middle = half * (2 * panel + 1);
        for (const auto& [place, weight] : kGauss) {
            sum += weight * (speed(c, middle - half * place) + speed(c, middle + half * place));
        }
    }
    return sum * half;
}

double parameterAtLength(const SpatialCurve& c, double length, double total)
{
    double low = 0;
    double high = 1;
    double t = length / total;
    while (high - low > kPrecision) {
        const double error = lengthTo(c, t) - length;
        (error > 0 ? high : low) = t;
        const double slope = speed(c, t);
        const double step = slope > 0 ? t - error / slope : -1;
        if (step < low || step > high) {
            t = (low + high) / 2;
        } else if (std::abs(std::exchange(t, step) - step) < kPrecision) {
            break;
        }
    }
    return t;
}

// Goes on from an end of the curve. Right at it a tangent of zero length has no direction: then
// that of a little way inside counts.
Point beyond(const SpatialCurve& c, double end, double distance)
{
    constexpr double kInset = 1e-3;
    const Point origin = position(c, end);
    const bool hasTangent = speed(c, end) > kPrecision;
    const Point direction = velocity(c, hasTangent ? end : std::clamp(end, kInset, 1 - kInset));
    const double length = std::hypot(direction[0], direction[1]);
    if (!(length > 0)) {
        return origin;
    }
    return {
        origin[0] + direction[0] / length * distance, origin[1] + direction[1] / length * distance};
}

Point between(const Point& a, const Point& b, double t)
{
    return {std::lerp(a[0], b[0], t), std::lerp(a[1], b[1], t)};
}

} // namespace

Point pointAlong(const SpatialCurve& curve, double progress)
{
    const double total = lengthTo(curve, 1);
    if (!(total > kPrecision) || !std::isfinite(total)) {
        return progress < 1 ? curve.start : curve.end;
    }
    if (progress <= 0) {
        return beyond(curve, 0, progress * total);
    }
    if (progress >= 1) {
        return beyond(curve, 1, (progress - 1) * total);
    }
    return position(curve, parameterAtLength(curve, progress * total, total));
}

std::optional<std::array<SpatialCurve, 2>> splitAlong(const SpatialCurve& curve, double progress)
{
    const double total = lengthTo(curve, 1);
    const bool hasLength = total > kPrecision && std::isfinite(total);
    if (!hasLength || !(progress > 0) || !(progress < 1)) {
        return std::nullopt;
    }
    const double t = parameterAtLength(curve, progress * total, total);
    const Point middle = between(curve.control1, curve.control2, t);
    const Point left1 = between(curve.start, curve.control1, t);
    const Point left2 = between(left1, middle, t);
    const Point right2 = between(curve.control2, curve.end, t);
    const Point right1 = between(middle, right2, t);
    const Point cut = between(left2, right1, t);
    const SpatialCurve left{curve.start, left1, left2, cut};
    const SpatialCurve right{cut, right1, right2, curve.end};
    return std::array{left, right};
}

} // namespace studio
