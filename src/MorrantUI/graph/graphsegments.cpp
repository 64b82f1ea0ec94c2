// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/graphsegments.h"

#include <Core/CubicBezier.h>

#include <algorithm>
#include <cmath>

namespace ui::Graph {

namespace {

CubicBezier cubicX(const Segment& s)
{
    return {s.start.x(), s.firstControl.x(), s.secondControl.x(), s.end.x()};
}

CubicBezier cubicY(const Segment& s)
{
    return {s.start.y(), s.firstControl.y(), s.secondControl.y(), s.end.y()};
}

Segment segmentOf(const CubicBezier& x, const CubicBezier& y)
{
    return {
        {x.start, y.start},
        {x.startPull, y.startPull},
        {x.endPull, y.endPull},
        {x.end, y.end},
        false};
}

/// Widens a range by the values at the inner extremes of a cubic.
void widen(const CubicBezier& cubic, double& least, double& most)
{
    const auto take = [&](double t) {
        if (t > 0.0 && t < 1.0) {
            const double value = cubic.at(t);
            least = std::min(least, value);
            most = std::max(most, value);
        }
    };
    // The slope as p t^2 + q t + r.
    const auto& [a, b, c, d] = cubic;
    const double r = b - a;
    const double q = 2.0 * (c - 2.0 * b + a);
    const double p = d - 3.0 * c + 3.0 * b - a;
    const double root = std::sqrt(std::max(q * q - 4.0 * p * r, 0.0));
    const double half = -0.5 * (q + std::copysign(root, q)); // without cancellation
    if (p != 0.0) {
        take(half / p);
    }
    if (half != 0.0) {
        take(r / half);
    }
}

} // namespace

Segment limited(const Segment& segment, const CurveLimits& limits)
{
    const double left = std::min(segment.start.x(), segment.end.x());
    const double right = std::max(segment.start.x(), segment.end.x());
    const auto within = [&](QPointF control) {
        return QPointF(
            std::clamp(control.x(), left, right),
            std::max(limits.top, std::min(control.y(), limits.bottom)));
    };
    Segment result = segment;
    result.firstControl = within(segment.firstControl);
    result.secondControl = within(segment.secondControl);
    return result;
}

double parameterAt(const Segment& segment, double x)
{
    return cubicX(segment).parameterAt(x);
}

QPointF pointAt(const Segment& segment, double parameter)
{
    return {cubicX(segment).at(parameter), cubicY(segment).at(parameter)};
}

double valueAt(const Segment& segment, double x)
{
    if (x >= segment.end.x()) {
        return segment.end.y();
    }
    if (segment.hold || !(x > segment.start.x())) {
        return segment.start.y();
    }
    return cubicY(segment).at(parameterAt(segment, x));
}

QRectF segmentBounds(const Segment& segment)
{
    double top = std::min(segment.start.y(), segment.end.y());
    double bottom = std::max(segment.start.y(), segment.end.y());
    if (!segment.hold) {
        widen(cubicY(segment), top, bottom);
    }
    return {QPointF(segment.start.x(), top), QPointF(segment.end.x(), bottom)};
}

std::pair<Segment, Segment> splitAt(const Segment& segment, double x)
{
    if (segment.hold) {
        const QPointF middle(std::clamp(x, segment.start.x(), segment.end.x()), segment.start.y());
        return {
            {segment.start, segment.start, middle, middle, true},
            {middle, middle, segment.end, segment.end, true}};
    }
    const double t = parameterAt(segment, x);
    const auto [leftX, rightX] = cubicX(segment).splitAt(t);
    const auto [leftY, rightY] = cubicY(segment).splitAt(t);
    return {segmentOf(leftX, leftY), segmentOf(rightX, rightY)};
}

} // namespace ui::Graph
