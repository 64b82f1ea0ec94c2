// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Property.h"

#include <optional>
#include <vector>

namespace studio {

/// What becomes of a key: only what is given changes. Numbers that are not finite change nothing.
/// Easing belongs to the key that it leaves or enters, as an artist sees it, although files keep
/// what enters a key with the one before.
struct KeyChange
{
    std::size_t key = 0;               ///< place among the property's keys
    std::optional<double> time = {};   ///< frames
    std::optional<Numbers> value = {}; ///< entries past the property's dimensions do not count
    std::optional<bool> hold = {};     ///< up to the next key
    std::optional<EasingHandle> easeOut = {}; ///< none (a count of 0) on both sides is linear,
    std::optional<EasingHandle> easeIn = {};  ///< and on one side a handle of no length
    bool asCopy = false;                      ///< the key stays and a copy of it changes
};

/// Changes keys together. Where a key is brought to a frame at which there is another (within
/// kSameFrame), it takes that one's place; of two that are both brought there, the one that was
/// later. Keys that were at one frame before stay two. What leaves and what enters a key goes with
/// it; a key that was the last one is left evenly and straight.
/// @return where the keys are afterwards, one for each change; nothing for those that are no more
std::vector<std::optional<std::size_t>> changeKeys(
    NumberProperty& property, const std::vector<KeyChange>& changes);

/// Removes keys by their places. What leaves the key before and what enters the one after become
/// one segment. Without its last key the property stands still at that key's value.
void removeKeys(NumberProperty& property, const std::vector<std::size_t>& places);

/// A key away from its property: with what enters it, and no place in a file.
struct LooseKey
{
    double time = 0; ///< frames
    Numbers value{};
    bool hold = false;
    EasingHandle easeOut;
    EasingHandle easeIn;  ///< how the value enters this key
    Numbers spatialOut{}; ///< both relative to this key's position
    Numbers spatialIn{};

    bool operator==(const LooseKey&) const = default;
};

LooseKey looseKey(const NumberProperty& property, std::size_t place);

/// Adds keys, each in the place of those that are at its frame.
/// @param keys upwards
/// @return where they are afterwards
std::vector<std::size_t> insertKeys(NumberProperty& property, const std::vector<LooseKey>& keys);

} // namespace studio
