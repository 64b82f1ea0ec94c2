// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Document.h"

#include <include/core/SkPaint.h>

#include <vector>

namespace studio {

/// Black with smooth edges.
SkPaint paintOf(float opacity);

/// Lengths of dash, gap, dash, gap ... in path units.
std::vector<float> dashesOf(const StrokeStyle& stroke, double frame);

/// All but the dashes.
void applyStroke(const StrokeStyle& stroke, double frame, SkPaint& paint);

bool isLuma(MatteMode mode);

/// What the matte is drawn with, over what it shows.
SkPaint mattePaint(MatteMode mode);

} // namespace studio
