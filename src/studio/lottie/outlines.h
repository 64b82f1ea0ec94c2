// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Document.h"

#include <include/core/SkPath.h>

#include <vector>

namespace studio {

/// @param reversed whether it runs from its last vertex to its first
SkPath toSkPath(const BezierPath& outline, bool reversed = false);

/// The outline of a path, rectangle, ellipse or star at a frame; empty for every other item. A
/// closed outline runs clockwise unless it is reversed, from where trimming counts its length.
SkPath outlineAt(const ShapeItem& item, double frame);

/// The stretch that trimming leaves of the paths, each for itself or all as one.
void trim(std::vector<SkPath>& paths, const TrimShape& shape, double frame);

/// Puts what merging makes of all paths into the first and empties the others.
void merge(std::vector<SkPath>& paths, const MergeShape& shape);

} // namespace studio
