// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Document.h"

#include <vector>

namespace studio {

/// Where each layer comes from: at place i stands what stood at place order[i].
using LayerOrder = std::vector<int>;

/// The order of `count` layers once some have moved together, in their own order.
/// @param layers their places, upwards
/// @param before the place, counted with all still where they were, that they go in front of;
///     `count` for the end
LayerOrder orderAfterMove(int count, const std::vector<int>& layers, int before);

/// The order that takes one back.
LayerOrder inverse(const LayerOrder& order);

/// Brings layers into an order. Each keeps the layer that is its parent.
void reorder(std::vector<Layer>& layers, const LayerOrder& order);

} // namespace studio
