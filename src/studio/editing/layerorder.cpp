// SPDX-License-Identifier: Apache-2.0
#include "editing/layerorder.h"

#include <algorithm>
#include <utility>

namespace studio {

LayerOrder orderAfterMove(int count, const std::vector<int>& layers, int before)
{
    LayerOrder order;
    LayerOrder behind;
    for (int place = 0; place < count; ++place) {
        if (!std::binary_search(layers.begin(), layers.end(), place)) {
            (place < before ? order : behind).push_back(place);
        }
    }
    order.insert(order.end(), layers.begin(), layers.end());
    order.insert(order.end(), behind.begin(), behind.end());
    return order;
}

LayerOrder inverse(const LayerOrder& order)
{
    LayerOrder places(order.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        places[static_cast<std::size_t>(order[i])] = static_cast<int>(i);
    }
    return places;
}

void reorder(std::vector<Layer>& layers, const LayerOrder& order)
{
    const LayerOrder places = inverse(order);
    std::vector<Layer> result;
    result.reserve(layers.size());
    for (const int from : order) {
        Layer& layer = result.emplace_back(std::move(layers[static_cast<std::size_t>(from)]));
        for (int* other : {&layer.parent, &layer.matteLayer}) {
            if (*other >= 0) {
                *other = places[static_cast<std::size_t>(*other)];
            }
        }
    }
    layers = std::move(result);
}

} // namespace studio
