// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "editing/PropertyAddress.h"
#include "editing/keygroups.h"
#include <MorrantUI/graph/easings.h>

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

/// Keys of a property as graphs show them, and back: a file keeps an easing once for all entries of
/// a value, or once for each.
namespace studio {

/// Keys of one entry. Handles that lie on one line are locked.
std::vector<ValueGraphKey> valueKeys(const NumberProperty& property, std::size_t entry);

/// The entry whose easing counts: a position on a bent way has one for all.
std::size_t easingEntry(const Keyframe<Numbers>& key, std::size_t entry);
/// Of the segment that begins with a key, in each of its entries that the file spells out.
std::vector<SegmentEasing> easingsOf(const Keyframe<Numbers>& key);

/// What leaves a key and what enters the next one; none on both sides of a linear one.
std::pair<EasingHandle, EasingHandle> handlesOf(const SegmentEasing& easing);
/// A handle with another place in one entry. What is one for all entries stays one for all.
EasingHandle withShare(EasingHandle handle, std::size_t entry, QPointF share);
/// What brings an easing into a segment, the same one in all entries.
std::vector<PropertyKeyChange> easingChanges(
    const PropertyAddress& address, std::size_t segment, const SegmentEasing& easing);

/// The key that a segment begins with: the one around a frame, or the nearest one. None with fewer
/// than two keys.
std::optional<std::size_t> segmentAt(const NumberProperty& property, double frame);

/// The segments between selected keys that are neighbours, by the key that each begins with. Where
/// none are, those that the keys begin with, or the last one ends.
/// @param keys selected, upwards @param count of all keys
std::vector<std::size_t> segmentsOf(const std::vector<std::size_t>& keys, std::size_t count);

/// The nearest value that a property can have, in thousandths, as number fields have it.
double allowedValue(Attribute attribute, double value);

} // namespace studio
