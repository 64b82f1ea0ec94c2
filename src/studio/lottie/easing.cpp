// SPDX-License-Identifier: Apache-2.0
#include "lottie/easing.h"

#include <Core/CubicBezier.h>

#include <algorithm>
#include <cmath>

namespace studio {

namespace {

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
    const CubicBezier times{0, std::clamp(out.x, 0.0, 1.0), std::clamp(in.x, 0.0, 1.0), 1};
    return CubicBezier{0, out.y, in.y, 1}.at(times.parameterAt(time));
}

SplitEasing splitEasing(double time, const EasingCurve& curve)
{
    const CubicBezier times{
        0, std::clamp(curve.out.x, 0.0, 1.0), std::clamp(curve.in.x, 0.0, 1.0), 1};
    const double t = times.parameterAt(time);
    const auto [before, after] = times.splitAt(t);
    const auto [rise, rest] = CubicBezier{0, curve.out.y, curve.in.y, 1}.splitAt(t);
    const EasingPoint cut{time, rise.end};
    const auto ofLeft = [&](double x, double y) { return shareOf({x, y}, {0, 0}, cut); };
    const auto ofRight = [&](double x, double y) { return shareOf({x, y}, cut, {1, 1}); };
    return {
        {ofLeft(before.startPull, rise.startPull), ofLeft(before.endPull, rise.endPull)},
        {ofRight(after.startPull, rest.startPull), ofRight(after.endPull, rest.endPull)},
        cut.y};
}

} // namespace studio
