// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <optional>

namespace studio {

using Point = std::array<double, 2>;

/// The way from one position key to the next: a cubic bezier in pixels.
struct SpatialCurve
{
    Point start{};
    Point control1{};
    Point control2{};
    Point end{};
};

/// The point at a share of the curve's length. Below 0 and above 1 it goes straight on.
Point pointAlong(const SpatialCurve& curve, double progress);

/// Cuts a curve at a share of its length into two that together are the same way; nothing at or
/// past its ends.
std::optional<std::array<SpatialCurve, 2>> splitAlong(const SpatialCurve& curve, double progress);

} // namespace studio
