// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Core/core_export.h>

#include <include/core/SkPaint.h>

/// What all drawing of shapes with Skia shares.
struct ShapeRendering
{
    /// The paint that every drawing starts from: antialiased, filling, opaque black, source over.
    /// A copy of the caller's own.
    MORRANT_CORE_EXPORT static SkPaint commonPaint();
};
