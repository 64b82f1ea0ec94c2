// SPDX-License-Identifier: Apache-2.0
#include "editing/keygroups.h"

#include <algorithm>

namespace studio {

namespace {

template <typename One>
One& oneFor(const PropertyAddress& address, std::vector<One>& all)
{
    const auto found = std::find_if(all.rbegin(), all.rend(), [&address](const One& one) {
        return one.address == address; // mostly the last one
    });
    return found != all.rend() ? *found : all.emplace_back(One{address});
}

} // namespace

std::vector<ChangesOfOne> byProperty(const std::vector<PropertyKeyChange>& changes)
{
    std::vector<ChangesOfOne> all;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        ChangesOfOne& one = oneFor(changes[i].property, all);
        one.changes.push_back(changes[i].change);
        one.origins.push_back(i);
    }
    return all;
}

std::vector<KeysOfOne> byProperty(const std::vector<KeyAddress>& keys)
{
    std::vector<KeysOfOne> all;
    for (const KeyAddress& key : keys) {
        oneFor(key.property, all).places.push_back(key.key);
    }
    for (KeysOfOne& one : all) {
        std::sort(one.places.begin(), one.places.end());
        one.places.erase(std::unique(one.places.begin(), one.places.end()), one.places.end());
    }
    return all;
}

} // namespace studio
