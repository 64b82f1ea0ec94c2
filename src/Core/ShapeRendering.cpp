// SPDX-License-Identifier: Apache-2.0
#include "ShapeRendering.h"

#include <include/core/SkBlendMode.h>

SkPaint ShapeRendering::commonPaint()
{
    SkPaint paint;
    paint.setAntiAlias(true);
    paint.setStyle(SkPaint::kFill_Style);
    paint.setColor(SK_ColorBLACK);
    paint.setBlendMode(SkBlendMode::kSrcOver);
    return paint;
}
