// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <span>

namespace ui {

inline constexpr int kKeySnapDistance = 5; ///< frames, inclusive

/// The frame that a dragged key lands on: the candidate whose distance from the pointer, in whole
/// frames with the rest dropped, is least; of equals the smaller frame. Empty when none is near.
std::optional<int> nearestSnapFrame(double pointer, std::span<const int> candidates);

} // namespace ui
