// SPDX-License-Identifier: Apache-2.0
#include "lottie/paints.h"

#include "lottie/evaluate.h"

#include <include/core/SkBlendMode.h>
#include <include/core/SkColorFilter.h>
#include <include/effects/SkLumaColorFilter.h>

#include <algorithm>

namespace studio {

SkPaint paintOf(float opacity)
{
    SkPaint paint;
    paint.setAlphaf(opacity);
    paint.setAntiAlias(true);
    return paint;
}

std::vector<float> dashesOf(const StrokeStyle& stroke, double frame)
{
    std::vector<float> lengths;
    for (const NumberProperty& dash : stroke.dashes) {
        lengths.push_back(static_cast<float>(std::max(scalarAt(dash, frame), 0.0)));
    }
    if (lengths.size() % 2 == 1) {
        // A dash without its gap: the list goes round twice.
        const std::vector<float> once = lengths;
        lengths.insert(lengths.end(), once.begin(), once.end());
    }
    return lengths;
}

void applyStroke(const StrokeStyle& stroke, double frame, SkPaint& paint)
{
    static constexpr SkPaint::Cap kCaps[] = {
        SkPaint::kButt_Cap, SkPaint::kRound_Cap, SkPaint::kSquare_Cap};
    static constexpr SkPaint::Join kJoins[] = {
        SkPaint::kMiter_Join, SkPaint::kRound_Join, SkPaint::kBevel_Join};
    paint.setStyle(SkPaint::kStroke_Style);
    paint.setStrokeWidth(static_cast<float>(scalarAt(stroke.width, frame)));
    paint.setStrokeCap(kCaps[static_cast<int>(stroke.cap)]);
    paint.setStrokeJoin(kJoins[static_cast<int>(stroke.join)]);
    paint.setStrokeMiter(static_cast<float>(stroke.miterLimit));
}

bool isLuma(MatteMode mode)
{
    return mode == MatteMode::Luma || mode == MatteMode::InvertedLuma;
}

SkPaint mattePaint(MatteMode mode)
{
    const bool isInverted = mode == MatteMode::InvertedAlpha || mode == MatteMode::InvertedLuma;
    SkPaint paint;
    paint.setBlendMode(isInverted ? SkBlendMode::kDstOut : SkBlendMode::kDstIn);
    if (isLuma(mode)) {
        paint.setColorFilter(SkLumaColorFilter::Make());
    }
    return paint;
}

} // namespace studio
