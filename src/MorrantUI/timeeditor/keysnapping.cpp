// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/keysnapping.h"

#include <MorrantUI/scene/framemath.h>

#include <cmath>
#include <utility>

namespace ui {

std::optional<int> nearestSnapFrame(double pointer, std::span<const int> candidates)
{
    std::optional<std::pair<int, int>> best;
    for (const int frame : candidates) {
        const std::pair<int, int> candidate(frameOf(std::abs(frame - pointer)), frame);
        if (!best || candidate < *best) {
            best = candidate;
        }
    }
    if (!best || best->first > kKeySnapDistance || std::isnan(pointer)) {
        return std::nullopt;
    }
    return best->second;
}

} // namespace ui
