// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "editing/PropertyAddress.h"
#include "editing/keychanges.h"

#include <vector>

namespace studio {

/// A change of one key of the document; its place is as in KeyAddress.
struct PropertyKeyChange
{
    PropertyAddress property;
    KeyChange change;
};

/// The changes of one property.
struct ChangesOfOne
{
    PropertyAddress address;
    std::vector<KeyChange> changes = {};
    std::vector<std::size_t> origins = {}; ///< places among all changes
};

struct KeysOfOne
{
    PropertyAddress address;
    std::vector<std::size_t> places = {}; ///< upwards, each once
};

/// Sorted by property, in the order of first appearance.
std::vector<ChangesOfOne> byProperty(const std::vector<PropertyKeyChange>& changes);
std::vector<KeysOfOne> byProperty(const std::vector<KeyAddress>& keys);

} // namespace studio
