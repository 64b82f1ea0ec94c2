// SPDX-License-Identifier: Apache-2.0
#include "graph/easings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

using morrant::KeyInterpolationType;

namespace studio {

namespace {

constexpr double kSameShare = 0.01;
constexpr double kScale = 1 - 2 * kOvershootRoom; ///< of the data's value, for an easing's 0 to 1

EasingHandle handle(double x, double y)
{
    EasingHandle made;
    made.x.fill(x);
    made.y.fill(y);
    made.count = 1;
    return made;
}

double toData(double share)
{
    return kOvershootRoom + kScale * share;
}

bool isSame(const EasingHandle& a, const EasingHandle& b)
{
    if ((a.count == 0) != (b.count == 0)) {
        return false;
    }
    for (std::size_t i = 0; i < a.x.size(); ++i) {
        if (std::abs(a.x[i] - b.x[i]) > kSameShare || std::abs(a.y[i] - b.y[i]) > kSameShare) {
            return false;
        }
    }
    return true;
}

/// Along the diagonal a curve is straight, however long its handles.
bool isStraight(const EasingHandle& ease)
{
    EasingHandle diagonal = ease;
    diagonal.y = ease.x;
    return isSame(ease, diagonal);
}

} // namespace

SegmentEasing easingOf(Preset preset)
{
    switch (preset) {
    case Preset::EaseIn: return {false, handle(0.42, 0), handle(1, 1)};
    case Preset::EaseOut: return {false, handle(0, 0), handle(0.58, 1)};
    case Preset::EaseInAndOut: return {false, handle(0.42, 0), handle(0.58, 1)};
    case Preset::Back: return {false, handle(0.34, 1.4), handle(0.64, 1)};
    case Preset::Hold: return {true, {}, {}};
    case Preset::Linear: break;
    }
    return {};
}

std::optional<Preset> presetOf(const SegmentEasing& easing)
{
    if (easing.hold) {
        return Preset::Hold;
    }
    if (isStraight(easing.out) && isStraight(easing.in)) {
        return Preset::Linear;
    }
    for (const Preset preset :
         {Preset::EaseIn, Preset::EaseOut, Preset::EaseInAndOut, Preset::Back}) {
        const SegmentEasing known = easingOf(preset);
        if (isSame(known.out, easing.out) && isSame(known.in, easing.in)) {
            return preset;
        }
    }
    return std::nullopt;
}

SegmentEasing easingOf(const Keyframe<Numbers>& key)
{
    const bool isCurved = !key.hold && key.easeOut.count > 0 && key.easeIn.count > 0;
    return isCurved ? SegmentEasing{false, key.easeOut, key.easeIn}
                    : SegmentEasing{key.hold, {}, {}};
}

std::vector<PropertyKeyChange> easingChanges(
    const PropertyAddress& address, std::size_t segment, const SegmentEasing& easing)
{
    PropertyKeyChange leave{address, {.key = segment}};
    PropertyKeyChange enter{address, {.key = segment + 1}};
    leave.change.hold = easing.hold;
    if (!easing.hold) { // what it was comes back when the hold is taken away
        leave.change.easeOut = easing.out;
        enter.change.easeIn = easing.in;
    }
    return {std::move(leave), std::move(enter)};
}

std::vector<GraphCurveKey> curveOf(const SegmentEasing& easing)
{
    const bool isCurved = !easing.hold && easing.out.count > 0;
    GraphCurveKey first;
    first.value = toData(0);
    first.handlesLocked = false;
    first.interpolation = isCurved ? KeyInterpolationType::Bezier : KeyInterpolationType::Linear;
    GraphCurveKey last = first;
    last.time = 1;
    last.value = toData(1);
    last.index = 1;
    if (isCurved) {
        first.rightHandle = {easing.out.x[0], kScale * easing.out.y[0]};
        last.leftHandle = {easing.in.x[0] - 1, kScale * (easing.in.y[0] - 1)};
    }
    if (!easing.hold) {
        return {first, last};
    }
    GraphCurveKey corner = first; // a level segment, and a jump at its end
    corner.time = 1;
    corner.index = 2;
    return {first, corner, last};
}

SegmentEasing easingOf(const std::vector<GraphCurveKey>& curve)
{
    if (curve.size() != 2) {
        return easingOf(curve.empty() ? Preset::Linear : Preset::Hold);
    }
    const GraphCurveKey& first = curve.front();
    const GraphCurveKey& last = curve.back();
    if (first.interpolation != KeyInterpolationType::Bezier) {
        return {};
    }
    const auto within = [](double share) { return std::clamp(share, 0.0, 1.0); };
    return {
        false,
        handle(within(first.rightHandle.x), first.rightHandle.y / kScale),
        handle(within(1 + last.leftHandle.x), 1 + last.leftHandle.y / kScale)};
}

} // namespace studio
