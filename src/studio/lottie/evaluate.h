// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Document.h"
#include "lottie/spatial.h"

#include <include/core/SkMatrix.h>

namespace studio {

/// The value at a frame: before the first key its value, after the last one the last one's.
Numbers valueAt(const NumberProperty& property, double frame);

/// The way from one position key to the next.
SpatialCurve wayBetween(const Keyframe<Numbers>& from, const Keyframe<Numbers>& to);

/// The outline at a frame. Between outlines of different lengths the earlier one stands still.
BezierPath valueAt(const PathProperty& property, double frame);

/// The stops at a frame. Between lists of different lengths the earlier one stands still.
GradientStops valueAt(const StopsProperty& property, double frame);

/// The first entry of a scalar property.
double scalarAt(const NumberProperty& property, double frame);

/// From the transformed content to what holds it.
SkMatrix matrixAt(const Transform& transform, double frame);

/// From a layer's content to its composition, through all its parents.
SkMatrix layerMatrix(const Composition& composition, const Layer& layer, double frame);

/// Opacity as 0..1.
double opacityAt(const NumberProperty& percent, double frame);

/// The frame within a precomposition that its layer shows at a frame of its own composition.
double innerFrame(const Layer& layer, double frame, double frameRate);

} // namespace studio
