// SPDX-License-Identifier: Apache-2.0
#include "graph/valuekeys.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace studio {

namespace {

constexpr double kFinest = 1000; ///< parts of a unit

bool isEased(const Keyframe<Numbers>& key)
{
    return !key.hold && key.easeOut.count > 0 && key.easeIn.count > 0;
}

SegmentEasing easingAt(const Keyframe<Numbers>& key, std::size_t entry)
{
    return {
        false,
        {key.easeOut.x[entry], key.easeOut.y[entry]},
        {key.easeIn.x[entry], key.easeIn.y[entry]}};
}

} // namespace

std::vector<ValueGraphKey> valueKeys(const NumberProperty& property, std::size_t entry)
{
    std::vector<ValueGraphKey> keys;
    keys.reserve(property.keys.size());
    for (const auto& key : property.keys) {
        keys.push_back({.time = key.time, .value = key.value[entry], .hold = key.hold});
    }
    for (std::size_t i = 0; i + 1 < keys.size(); ++i) {
        const auto& from = property.keys[i];
        if (isEased(from)) {
            ui::easing::setEasing(keys[i], keys[i + 1], easingAt(from, easingEntry(from, entry)));
            keys[i].interpolation = keys[i + 1].interpolation = ui::Graph::Interpolation::Bezier;
        }
    }
    for (ValueGraphKey& key : keys) {
        key.handlesLocked = ui::easing::isSmooth(key);
    }
    return keys;
}

std::size_t easingEntry(const Keyframe<Numbers>& key, std::size_t entry)
{
    return key.hasSpatial ? 0 : entry;
}

std::vector<SegmentEasing> easingsOf(const Keyframe<Numbers>& key)
{
    std::vector<SegmentEasing> easings;
    const int entries = isEased(key) ? std::max(key.easeOut.count, key.easeIn.count) : 0;
    for (int entry = 0; entry < entries; ++entry) {
        easings.push_back(easingAt(key, static_cast<std::size_t>(entry)));
    }
    return entries > 0 ? easings : std::vector{SegmentEasing{.hold = key.hold}};
}

std::pair<EasingHandle, EasingHandle> handlesOf(const SegmentEasing& easing)
{
    return easing == SegmentEasing()
               ? std::pair<EasingHandle, EasingHandle>()
               : std::pair(withShare({}, 0, easing.out), withShare({}, 0, easing.in));
}

EasingHandle withShare(EasingHandle handle, std::size_t entry, QPointF share)
{
    if (handle.count > 1) {
        handle.x[entry] = share.x();
        handle.y[entry] = share.y();
    } else {
        handle.x.fill(share.x());
        handle.y.fill(share.y());
        handle.count = 1;
    }
    return handle;
}

std::vector<PropertyKeyChange> easingChanges(
    const PropertyAddress& address, std::size_t segment, const SegmentEasing& easing)
{
    PropertyKeyChange leave{address, {.key = segment}};
    PropertyKeyChange enter{address, {.key = segment + 1}};
    leave.change.hold = easing.hold;
    if (!easing.hold) { // what it was comes back when the hold is taken away
        std::tie(leave.change.easeOut, enter.change.easeIn) = handlesOf(easing);
    }
    return {std::move(leave), std::move(enter)};
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

std::vector<std::size_t> segmentsOf(const std::vector<std::size_t>& keys, std::size_t count)
{
    std::vector<std::size_t> between;
    std::vector<std::size_t> beside;
    for (std::size_t i = 0; i < keys.size() && count > 1; ++i) {
        if (i > 0 && keys[i - 1] + 1 == keys[i]) {
            between.push_back(keys[i - 1]);
        }
        beside.push_back(std::min(keys[i], count - 2));
    }
    return between.empty() ? beside : between;
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
