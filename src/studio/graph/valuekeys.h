// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "editing/PropertyAddress.h"
#include "editing/keychanges.h"

#include <cstddef>
#include <optional>
#include <vector>

/// Keys of a property as a graph of values shows them: easing, which a file keeps as shares of a
/// segment's time and change, as handles in frames and the value's own unit.
namespace studio {

/// From a key, the value upward.
struct HandleOffset
{
    double frames = 0;
    double value = 0;

    bool operator==(const HandleOffset&) const = default;
};

/// From a key to the next one, in one entry of the value.
struct KeyDistance
{
    double frames = 0;
    double change = 0;
};

/// Where the handles of a segment lie: what leaves its first key, from that, and what enters its
/// second one, from that. None for a handle that the file does not give.
HandleOffset outOffset(const EasingHandle& out, std::size_t entry, KeyDistance distance);
HandleOffset inOffset(const EasingHandle& in, std::size_t entry, KeyDistance distance);

/// The way back. Where the file has one handle for all entries, it stays one for all; a share of
/// time is kept within the segment. Where the value does not change, or keys are at one frame, the
/// offset says nothing about that share, which stays.
/// @param before the handle to change
EasingHandle outEasing(
    EasingHandle before, std::size_t entry, HandleOffset offset, KeyDistance distance);
EasingHandle inEasing(
    EasingHandle before, std::size_t entry, HandleOffset offset, KeyDistance distance);

/// A key of one entry.
struct ValueKey
{
    double time = 0;
    double value = 0;
    bool hold = false;
    bool curved = false; ///< it has a handle on either side
    HandleOffset left;
    HandleOffset right;

    bool operator==(const ValueKey&) const = default;
};

std::vector<ValueKey> valueKeys(const NumberProperty& property, std::size_t entry);

/// The entry whose easing counts: a position on a bent way has one for all.
std::size_t easingEntry(const Keyframe<Numbers>& key, std::size_t entry);

/// Whether both handles are there and lie on one line, so that they should stay so.
bool isSmooth(const ValueKey& key);

/// The key that a segment begins with: the one around a frame, or the nearest one. None with fewer
/// than two keys.
std::optional<std::size_t> segmentAt(const NumberProperty& property, double frame);

/// The nearest value that a property can have, in thousandths, as number fields have it.
double allowedValue(Attribute attribute, double value);

} // namespace studio
