// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Document.h"

#include <include/core/SkPath.h>

#include <optional>
#include <vector>

class SkCanvas;

namespace studio {

/// Mattes that have mattes themselves, at most.
inline constexpr int kMaxMattes = 8;

/// The layer that is a layer's matte, also while it is hidden. Null where it has none, and where it
/// cannot be drawn: the matte is not there, is of a kind that is not drawn, or has too many mattes
/// above it, as in a circle. The layer is then drawn whole.
const Layer* matteOf(const Composition& composition, const Layer& layer);

/// A mask at a frame.
struct MaskShape
{
    MaskMode mode = MaskMode::Add;
    SkPath path; ///< filled inversely where the mask is inverted
    float opacity = 1;
};

std::vector<MaskShape> masksAt(const Layer& layer, double frame);

/// Whether the masks come to clips, which cost less: none is translucent, and none adds to others.
bool areClips(const std::vector<MaskShape>& masks);
void clipTo(SkCanvas& canvas, const std::vector<MaskShape>& masks);

/// What masks that add up leave at most, in the layer's units; empty where others come first.
std::optional<SkRect> roomOf(const std::vector<MaskShape>& masks);

/// Paints what masks leave of their layer as opacity, from a transparent canvas on.
void paintCoverage(SkCanvas& canvas, const std::vector<MaskShape>& masks);

} // namespace studio
