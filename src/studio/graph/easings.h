// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "editing/keygroups.h"

#include <Core/GraphCurveData.h>

#include <optional>
#include <vector>

/// How a property goes from one key to the next, apart from times and values.
namespace studio {

struct SegmentEasing
{
    bool hold = false;
    EasingHandle out; ///< none on both sides: linear
    EasingHandle in;
};

/// Those to choose from; others are made by hand.
enum class Preset
{
    Linear,
    EaseIn,
    EaseOut,
    EaseInAndOut,
    Back, ///< goes beyond the next key and comes back
    Hold,
};

SegmentEasing easingOf(Preset preset);
/// The one that an easing is, to a hundredth.
std::optional<Preset> presetOf(const SegmentEasing& easing);

/// Of the segment that begins with a key.
SegmentEasing easingOf(const Keyframe<Numbers>& key);
/// What brings an easing into a segment, the same one in all entries.
std::vector<PropertyKeyChange> easingChanges(
    const PropertyAddress& address, std::size_t segment, const SegmentEasing& easing);

/// The data's value of an easing's 0, and as far below 1 that of its 1: a fixed graph keeps its
/// curve between 0 and 1, and an easing may overshoot.
inline constexpr double kOvershootRoom = 0.25;

/// An easing as a fixed graph shows it; see kOvershootRoom. Of several entries the first.
std::vector<GraphCurveKey> curveOf(const SegmentEasing& easing);
/// What the first and the last of such keys say.
SegmentEasing easingOf(const std::vector<GraphCurveKey>& curve);

} // namespace studio
