// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Document.h"

namespace studio {

/// When a layer is shown.
struct ClipTimes
{
    double inPoint = 0;   ///< first frame shown
    double outPoint = 0;  ///< first frame no longer shown, above inPoint
    double startTime = 0; ///< frame at which a precomposition's own frame 0 lies

    bool operator==(const ClipTimes&) const = default;
};

struct ClipChange
{
    int layer = -1;
    ClipTimes times;
};

ClipTimes clipOf(const Layer& layer);
void setClip(Layer& layer, const ClipTimes& times);

/// Whether a layer can have these times.
bool isClip(const ClipTimes& times);

} // namespace studio
