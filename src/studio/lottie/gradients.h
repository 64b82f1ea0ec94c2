// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Document.h"

#include <include/core/SkColor.h>
#include <include/core/SkRefCnt.h>

#include <vector>

class SkShader;

namespace studio {

struct GradientStop
{
    float offset = 0; ///< 0..1
    SkColor4f color;

    bool operator==(const GradientStop&) const = default;
};

/// The stops of a gradient in order, with its colours and its opacities brought together: where
/// only one of them has a stop the other is what it is there. Two at one offset are a sharp edge.
/// Offsets that go back count as the one before; numbers that make no whole stop are passed over.
/// @param colorStops how many of them are colours; too many or fewer than none mean all
std::vector<GradientStop> stopsOf(const GradientStops& numbers, int colorStops);

/// The gradient at a frame, null when it has no stops or no place.
/// @param stops its own, at that frame
sk_sp<SkShader> shaderAt(const Gradient& gradient, const GradientStops& stops, double frame);

} // namespace studio
