// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace studio {

struct EasingPoint
{
    double x = 0; ///< share of time; values outside 0..1 count as the nearer end
    double y = 0; ///< share of change, unbounded
};

/// The share of change at a share of time along the cubic bezier (0,0), out, in, (1,1).
/// @param time is clamped to 0..1, where the ends are exact
double ease(double time, EasingPoint out, EasingPoint in);

/// A curve within the unit square, from (0,0) to (1,1).
struct EasingCurve
{
    EasingPoint out;
    EasingPoint in;
};

struct SplitEasing
{
    EasingCurve left;
    EasingCurve right;
    double progress = 0; ///< share of change at the cut
};

/// Cuts a curve at a share of time into two that together move as it did. A half without change is
/// linear, and where handles reach far past each other the halves come as close as they can.
/// @param time within 0..1, ends excluded
SplitEasing splitEasing(double time, const EasingCurve& curve);

} // namespace studio
