// SPDX-License-Identifier: Apache-2.0
#include "lottie/easing.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace studio {

namespace {

constexpr double kPrecision = 1e-10;

// One coordinate of the bezier from 0 to 1 with the given inner points.
double bezier(double t, double a, double b)
{
    const double u = 1 - t;
    return 3 * u * u * t * a + 3 * u * t * t * b + t * t * t;
}

double bezierSlope(double t, double a, double b)
{
    const double u = 1 - t;
    return 3 * u * u * a + 6 * u * t * (b - a) + 3 * t * t * (1 - b);
}

// The parameter at which x(t) = x. x never falls, since both handles lie within 0..1: Newton's
// steps that would leave the bracket are replaced by halving it.
double parameterAt(double x, double a, double b)
{
    double low = 0;
    double high = 1;
    double t = x;
    while (high - low > kPrecision) {
        const double error = bezier(t, a, b) - x;
        (error > 0 ? high : low) = t;
        const double slope = bezierSlope(t, a, b);
        const double step = slope > 0 ? t - error / slope : -1;
        if (step < low || step > high) {
            t = (low + high) / 2;
        } else if (std::abs(std::exchange(t, step) - step) < kPrecision) {
            break;
        }
    }
    return t;
}

EasingPoint between(EasingPoint a, EasingPoint b, double t)
{
    return {std::lerp(a.x, b.x, t), std::lerp(a.y, b.y, t)};
}

// A point within the stretch from `begin` to `end`, as shares of it.
EasingPoint shareOf(EasingPoint point, EasingPoint begin, EasingPoint end)
{
    constexpr double kNoChange = 1e-9;
    const double x = std::clamp((point.x - begin.x) / (end.x - begin.x), 0.0, 1.0);
    const double change = end.y - begin.y;
    return {x, std::abs(change) > kNoChange ? (point.y - begin.y) / change : x};
}

} // namespace

double ease(double time, EasingPoint out, EasingPoint in)
{
    if (!(time > 0)) {
        return 0;
    }
    if (time >= 1) {
        return 1;
    }
    const double t = parameterAt(time, std::clamp(out.x, 0.0, 1.0), std::clamp(in.x, 0.0, 1.0));
    return bezier(t, out.y, in.y);
}

SplitEasing splitEasing(double time, const EasingCurve& curve)
{
    constexpr EasingPoint kStart{0, 0};
    constexpr EasingPoint kEnd{1, 1};
    const EasingPoint out{std::clamp(curve.out.x, 0.0, 1.0), curve.out.y};
    const EasingPoint in{std::clamp(curve.in.x, 0.0, 1.0), curve.in.y};
    const double t = parameterAt(time, out.x, in.x);
    const EasingPoint middle = between(out, in, t);
    const EasingPoint leftOut = between(kStart, out, t);
    const EasingPoint leftIn = between(leftOut, middle, t);
    const EasingPoint rightIn = between(in, kEnd, t);
    const EasingPoint rightOut = between(middle, rightIn, t);
    const EasingPoint cut{time, between(leftIn, rightOut, t).y};
    return {
        {shareOf(leftOut, kStart, cut), shareOf(leftIn, kStart, cut)},
        {shareOf(rightOut, cut, kEnd), shareOf(rightIn, cut, kEnd)},
        cut.y};
}

} // namespace studio
