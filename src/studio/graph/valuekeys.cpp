// SPDX-License-Identifier: Apache-2.0
#include "graph/valuekeys.h"

#include <algorithm>
#include <cmath>

namespace studio {

namespace {

constexpr double kOnLine = 1e-3; ///< share by which handles on one line may miss it
constexpr double kFinest = 1000; ///< parts of a unit

bool isNone(const HandleOffset& offset)
{
    return offset == HandleOffset();
}

KeyDistance distanceBetween(
    const Keyframe<Numbers>& from, const Keyframe<Numbers>& to, std::size_t entry)
{
    return {to.time - from.time, to.value[entry] - from.value[entry]};
}

/// @param none the share where the file gives no handle
EasingHandle withShares(
    EasingHandle before,
    std::size_t entry,
    double time,
    const std::optional<double>& change,
    double none)
{
    const bool isOwn = before.count > 1;
    const double y = change.value_or(before.count > 0 ? before.y[entry] : none);
    if (isOwn) {
        before.x[entry] = time;
        before.y[entry] = y;
    } else {
        before.x.fill(time);
        before.y.fill(y);
        before.count = 1;
    }
    return before;
}

std::optional<double> shareOf(double part, double whole)
{
    const double share = part / whole;
    return whole != 0 && std::isfinite(share) ? std::optional(share) : std::nullopt;
}

} // namespace

HandleOffset outOffset(const EasingHandle& out, std::size_t entry, KeyDistance distance)
{
    if (out.count == 0) {
        return {};
    }
    return {out.x[entry] * distance.frames, out.y[entry] * distance.change};
}

HandleOffset inOffset(const EasingHandle& in, std::size_t entry, KeyDistance distance)
{
    if (in.count == 0) {
        return {};
    }
    return {(in.x[entry] - 1) * distance.frames, (in.y[entry] - 1) * distance.change};
}

EasingHandle outEasing(
    EasingHandle before, std::size_t entry, HandleOffset offset, KeyDistance distance)
{
    const double kept = before.count > 0 ? before.x[entry] : 0;
    const double time =
        std::clamp(shareOf(offset.frames, distance.frames).value_or(kept), 0.0, 1.0);
    return withShares(before, entry, time, shareOf(offset.value, distance.change), 0);
}

EasingHandle inEasing(
    EasingHandle before, std::size_t entry, HandleOffset offset, KeyDistance distance)
{
    const double kept = before.count > 0 ? before.x[entry] : 1;
    const auto fromStart = [](std::optional<double> share) {
        return share ? std::optional(1 + *share) : std::nullopt;
    };
    const double time =
        std::clamp(fromStart(shareOf(offset.frames, distance.frames)).value_or(kept), 0.0, 1.0);
    return withShares(before, entry, time, fromStart(shareOf(offset.value, distance.change)), 1);
}

std::size_t easingEntry(const Keyframe<Numbers>& key, std::size_t entry)
{
    return key.hasSpatial ? 0 : entry;
}

std::vector<ValueKey> valueKeys(const NumberProperty& property, std::size_t entry)
{
    std::vector<ValueKey> keys;
    keys.reserve(property.keys.size());
    for (const auto& key : property.keys) {
        keys.push_back({key.time, key.value[entry], key.hold, false, {}, {}});
    }
    for (std::size_t i = 0; i + 1 < keys.size(); ++i) {
        const auto& from = property.keys[i];
        if (from.hold || from.easeOut.count == 0 || from.easeIn.count == 0) {
            continue;
        }
        const KeyDistance distance = distanceBetween(from, property.keys[i + 1], entry);
        const std::size_t easing = easingEntry(from, entry);
        keys[i].right = outOffset(from.easeOut, easing, distance);
        keys[i + 1].left = inOffset(from.easeIn, easing, distance);
        keys[i].curved = keys[i + 1].curved = true;
    }
    return keys;
}

bool isSmooth(const ValueKey& key)
{
    if (isNone(key.left) || isNone(key.right)) {
        return false;
    }
    const double one = key.left.frames * key.right.value;
    const double other = key.left.value * key.right.frames;
    return std::abs(one - other) <= kOnLine * (std::abs(one) + std::abs(other));
}

std::optional<std::size_t> segmentAt(const NumberProperty& property, double frame)
{
    const auto& keys = property.keys;
    if (keys.size() < 2) {
        return std::nullopt;
    }
    const auto next = std::upper_bound(
        keys.begin(), keys.end(), frame, [](double f, const auto& key) { return f < key.time; });
    const auto passed = static_cast<std::size_t>(next - keys.begin());
    return std::clamp<std::size_t>(passed, 1, keys.size() - 1) - 1;
}

double allowedValue(Attribute attribute, double value)
{
    const double rounded = std::round(value * kFinest) / kFinest;
    switch (attribute) {
    case Attribute::Opacity: return std::clamp(rounded, 0.0, 100.0);
    case Attribute::SolidColor:
    case Attribute::ShapeColor: return std::clamp(rounded, 0.0, 1.0);
    default: return rounded;
    }
}

} // namespace studio
