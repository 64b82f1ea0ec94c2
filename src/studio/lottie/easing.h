#pragma once

namespace studio {

struct EasingPoint
{
    double x = 0; ///< share of time; values outside 0..1 count as the nearer end
    double y = 0; ///< share of change, unbounded
};

/// The share of change at a share of time along the cubic bezier (0,0), out, in, (1,1). The curve
/// is solved to 1e-9 of its parameter. @param time is clamped to 0..1, where the ends are exact
double ease(double time, EasingPoint out, EasingPoint in);

} // namespace studio
