// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/scene/edgescroll.h"

#include <algorithm>
#include <cmath>

namespace ui {

double edgeScrollSpeed(double position, double extent)
{
    const double before = kEdgeBand - position;
    const double behind = position - (extent - kEdgeBand);
    const double beyond = std::max(before, behind);
    if (!(beyond > 0.0) || extent < 2.0 * kEdgeBand) {
        return 0.0;
    }
    const double speed =
        std::min(kSlowestEdgeScroll + kEdgeScrollGain * beyond, kFastestEdgeScroll);
    return before > behind ? -speed : speed;
}

} // namespace ui
