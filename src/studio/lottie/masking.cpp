// SPDX-License-Identifier: Apache-2.0
#include "lottie/masking.h"

#include "lottie/evaluate.h"
#include "lottie/outlines.h"

#include <include/core/SkBlendMode.h>
#include <include/core/SkCanvas.h>
#include <include/core/SkPaint.h>

#include <algorithm>

namespace studio {

namespace {

bool isDrawn(const Layer& layer)
{
    const bool isEmpty = layer.kind == LayerKind::Precomposition && layer.composition < 0;
    return layer.kind != LayerKind::Other && !isEmpty;
}

// By its place alone; null when that is not in the list.
const Layer* layerNamedAsMatte(const Composition& composition, const Layer& layer)
{
    const auto& layers = composition.layers;
    const auto own = static_cast<int>(&layer - layers.data());
    const int place = layer.matteLayer >= 0 ? layer.matteLayer : own - 1;
    const bool isThere = place >= 0 && place < static_cast<int>(layers.size());
    return isThere ? &layers[static_cast<std::size_t>(place)] : nullptr;
}

SkPaint coveragePaint(float opacity, SkBlendMode mode)
{
    SkPaint paint(SkColor4f{0, 0, 0, opacity});
    paint.setAntiAlias(true);
    paint.setBlendMode(mode);
    return paint;
}

} // namespace

const Layer* matteOf(const Composition& composition, const Layer& layer)
{
    const Layer* matte = nullptr;
    const Layer* at = &layer;
    for (int steps = 0; at && at->matte != MatteMode::None; ++steps) {
        at = layerNamedAsMatte(composition, *at);
        matte = matte ? matte : at;
        if (steps == kMaxMattes) {
            return nullptr;
        }
    }
    return matte && isDrawn(*matte) ? matte : nullptr;
}

std::vector<MaskShape> masksAt(const Layer& layer, double frame)
{
    std::vector<MaskShape> shapes;
    for (const Mask& mask : layer.masks) {
        MaskShape& shape = shapes.emplace_back();
        shape.mode = mask.mode;
        shape.path = toSkPath(valueAt(mask.path, frame));
        shape.opacity = static_cast<float>(opacityAt(mask.opacity, frame));
        if (mask.inverted) {
            shape.path.toggleInverseFillType();
        }
    }
    return shapes;
}

bool areClips(const std::vector<MaskShape>& masks)
{
    return std::all_of(masks.begin(), masks.end(), [&](const MaskShape& mask) {
        const bool addsToOthers = mask.mode == MaskMode::Add && &mask != &masks.front();
        return mask.opacity >= 1 && !addsToOthers;
    });
}

void clipTo(SkCanvas& canvas, const std::vector<MaskShape>& masks)
{
    for (const MaskShape& mask : masks) {
        const bool subtracts = mask.mode == MaskMode::Subtract;
        canvas.clipPath(mask.path, subtracts ? SkClipOp::kDifference : SkClipOp::kIntersect, true);
    }
}

std::optional<SkRect> roomOf(const std::vector<MaskShape>& masks)
{
    if (masks.empty() || masks.front().mode != MaskMode::Add) {
        return std::nullopt;
    }
    SkRect room = SkRect::MakeEmpty();
    for (const MaskShape& mask : masks) {
        const bool adds = mask.mode == MaskMode::Add;
        if (adds && mask.path.isInverseFillType()) {
            return std::nullopt;
        }
        if (adds) {
            room.join(mask.path.getBounds());
        }
    }
    return room;
}

void paintCoverage(SkCanvas& canvas, const std::vector<MaskShape>& masks)
{
    if (masks.empty() || masks.front().mode != MaskMode::Add) {
        canvas.clear(SK_ColorBLACK); // the whole layer, from which the first mask takes
    }
    for (const MaskShape& mask : masks) {
        if (mask.mode == MaskMode::Intersect) {
            SkPath outside = mask.path;
            outside.toggleInverseFillType();
            canvas.drawPath(outside, coveragePaint(1, SkBlendMode::kDstOut));
            canvas.drawPaint(coveragePaint(mask.opacity, SkBlendMode::kDstIn));
        } else {
            const bool subtracts = mask.mode == MaskMode::Subtract;
            const auto blend = subtracts ? SkBlendMode::kDstOut : SkBlendMode::kSrcOver;
            canvas.drawPath(mask.path, coveragePaint(mask.opacity, blend));
        }
    }
}

} // namespace studio
