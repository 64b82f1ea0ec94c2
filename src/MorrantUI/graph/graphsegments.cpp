// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/graphsegments.h"

#include <algorithm>
#include <cmath>

namespace ui::Graph {

namespace {

constexpr int kMostSteps = 200; ///< more than the bits of a double can be halved

/// A cubic of one coordinate in Bernstein form.
struct Cubic
{
    double at(double t) const
    {
        const double u = 1.0 - t;
        return u * u * u * a + 3.0 * u * u * t * b + 3.0 * u * t * t * c + t * t * t * d;
    }
    double slope(double t) const
    {
        const double u = 1.0 - t;
        return 3.0 * (u * u * (b - a) + 2.0 * u * t * (c - b) + t * t * (d - c));
    }

    double a = 0.0;
    double b = 0.0;
    double c = 0.0;
    double d = 0.0;
};

Cubic cubicX(const Segment& s)
{
    return {s.start.x(), s.firstControl.x(), s.secondControl.x(), s.end.x()};
}

Cubic cubicY(const Segment& s)
{
    return {s.start.y(), s.firstControl.y(), s.secondControl.y(), s.end.y()};
}

QPointF between(QPointF a, QPointF b, double t)
{
    return a * (1.0 - t) + b * t;
}

/// Widens a range by the values at the inner extremes of a cubic.
void widen(const Cubic& cubic, double& least, double& most)
{
    const auto take = [&](double t) {
        if (t > 0.0 && t < 1.0) {
            const double value = cubic.at(t);
            least = std::min(least, value);
            most = std::max(most, value);
        }
    };
    // The slope as p t^2 + q t + r.
    const double r = cubic.b - cubic.a;
    const double q = 2.0 * (cubic.c - 2.0 * cubic.b + cubic.a);
    const double p = cubic.d - 3.0 * cubic.c + 3.0 * cubic.b - cubic.a;
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
    const Cubic cubic = cubicX(segment);
    if (!(x > cubic.a)) {
        return 0.0;
    }
    if (x >= cubic.d) {
        return 1.0;
    }
    // Newton's steps where they stay between the bounds, else the middle of these.
    double before = 0.0;
    double after = 1.0;
    double t = (x - cubic.a) / (cubic.d - cubic.a);
    for (int step = 0; step < kMostSteps; ++step) {
        const double error = cubic.at(t) - x;
        (error < 0.0 ? before : after) = t;
        double next = t - error / cubic.slope(t);
        if (!(next > before && next < after)) {
            next = before + (after - before) / 2.0;
        }
        if (error == 0.0 || next == t || next <= before || next >= after) {
            break;
        }
        t = next;
    }
    return t;
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
    const QPointF a = between(segment.start, segment.firstControl, t);
    const QPointF b = between(segment.firstControl, segment.secondControl, t);
    const QPointF c = between(segment.secondControl, segment.end, t);
    const QPointF ab = between(a, b, t);
    const QPointF bc = between(b, c, t);
    const QPointF middle = between(ab, bc, t);
    return {{segment.start, a, ab, middle, false}, {middle, bc, c, segment.end, false}};
}

} // namespace ui::Graph
