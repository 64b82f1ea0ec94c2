// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Core/core_export.h>

#include <utility>

/// One coordinate of a cubic bezier curve over its parameter from 0 to 1, by its four control
/// values: the two ends, and between them where the curve is pulled to.
struct CubicBezier
{
    double start = 0.0;
    double startPull = 0.0;
    double endPull = 0.0;
    double end = 0.0;

    MORRANT_CORE_EXPORT double at(double parameter) const;      ///< the value at 0..1
    MORRANT_CORE_EXPORT double slopeAt(double parameter) const; ///< the derivative there

    /// The parameter at which the coordinate has a value, to the last bits of a double; beyond the
    /// ends it is 0 or 1. The coordinate must grow from start to end, which it does while both
    /// pulls lie between them; otherwise one of several solutions is found. Where a whole stretch
    /// of the parameter has the value, one out of it.
    MORRANT_CORE_EXPORT double parameterAt(double value) const;

    /// The curve up to a parameter and from there on, each over a parameter from 0 to 1 of its own.
    MORRANT_CORE_EXPORT std::pair<CubicBezier, CubicBezier> splitAt(double parameter) const;
};
