// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Document.h"

class SkPath;

namespace studio {

/// What drawing takes, in roughly nanoseconds of one core: counted before each step from what the
/// step is given, so that a picture never depends on how fast the machine is.
inline constexpr double kMaxDrawCost = 1e9; ///< of one frame; real files stay below half

/// How much of a path there is to work on. Lengths are those of its control polygon.
struct PathExtent
{
    double verbs = 0;
    double length = 0; ///< path units
    double pieces = 0; ///< straight ones that measuring cuts its curves into
    double steps = 0;  ///< device lines that filling walks its edges over
};

/// @param scale device pixels a path unit
/// @param tallest device lines of the canvas: nothing beyond it is walked
PathExtent extentOf(const SkPath& path, double scale = 1, double tallest = 0);

/// Of evaluating or copying outlines, of cutting them by length, of filling and of stroking.
double copyCost(const PathExtent& extent);
double measureCost(const PathExtent& extent);
double fillCost(const PathExtent& extent);
double strokeCost(const PathExtent& extent);
/// Of the dashes, or of the pieces of a trimmed path.
double dashCost(double count);
/// Of merging paths: any two of their edges may cross.
double mergeCost(double verbs);
/// Of blending an area once; opacity over several draws takes that twice.
double pixelCost(double devicePixels);
/// Of a gradient's stops, and of an area in its colours beyond that of one colour.
double gradientCost(double numbers, double devicePixels);
/// Of taking an area's brightness for its opacity.
double lumaCost(double devicePixels);
/// Of a layer's or group's matrix.
double transformCost(const Transform& transform);

} // namespace studio
