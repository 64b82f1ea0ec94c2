// SPDX-License-Identifier: Apache-2.0
#include "editing/keyediting.h"

#include "editing/keychanges.h"
#include "lottie/easing.h"
#include "lottie/evaluate.h"
#include "lottie/reader.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace studio {

namespace {

using Key = Keyframe<Numbers>;
using Keys = std::vector<Key>;

// The keys that count as being at a frame: [first, second).
template <typename List>
auto keysAt(List& keys, int frame)
{
    const auto isBefore = [frame](const Key& key) { return key.time < frame - kSameFrame; };
    const auto isWithin = [frame](const Key& key) { return key.time <= frame + kSameFrame; };
    const auto first = std::partition_point(keys.begin(), keys.end(), isBefore);
    return std::pair(first, std::partition_point(first, keys.end(), isWithin));
}

EasingPoint pointOf(const EasingHandle& handle, std::size_t entry)
{
    return {handle.x[entry], handle.y[entry]};
}

void setPoint(EasingHandle& handle, std::size_t entry, EasingPoint point)
{
    handle.x[entry] = point.x;
    handle.y[entry] = point.y;
}

void straighten(Key& key)
{
    key.spatialOut = {};
    key.spatialIn = {};
    key.hasSpatial = false;
}

// Divides the easing of a segment between its halves.
// @return the share of the change at the cut, by the first entry
double cutEasing(Key& from, Key& middle, double share)
{
    if (from.easeOut.count == 0 || from.easeIn.count == 0) {
        return share;
    }
    from.easeOut.count = from.easeIn.count = std::max(from.easeOut.count, from.easeIn.count);
    middle.easeOut = from.easeOut;
    middle.easeIn = from.easeIn;
    double progress = share;
    for (std::size_t i = Numbers().size(); i-- > 0;) {
        const auto cut = splitEasing(share, {pointOf(from.easeOut, i), pointOf(from.easeIn, i)});
        setPoint(from.easeOut, i, cut.left.out);
        setPoint(from.easeIn, i, cut.left.in);
        setPoint(middle.easeOut, i, cut.right.out);
        setPoint(middle.easeIn, i, cut.right.in);
        progress = cut.progress;
    }
    return progress;
}

void setWay(Key& key, const SpatialCurve& way)
{
    for (std::size_t i = 0; i < way.start.size(); ++i) {
        key.spatialOut[i] = way.control1[i] - way.start[i];
        key.spatialIn[i] = way.control2[i] - way.end[i];
    }
    key.hasSpatial = true;
}

// Puts a key into a segment so that nothing moves differently.
void cutSegment(Key& from, Key& middle, const Key& to)
{
    middle.hold = from.hold;
    if (from.hold) {
        return;
    }
    const SpatialCurve way = wayBetween(from, to);
    const double progress =
        cutEasing(from, middle, (middle.time - from.time) / (to.time - from.time));
    if (!from.hasSpatial) {
        return;
    }
    if (const auto halves = splitAlong(way, progress)) {
        setWay(from, halves->front());
        setWay(middle, halves->back());
    } else {
        straighten(from);
    }
}

// Past either end the new segment is straight and even, whatever the file says of a last key.
Key& insertKey(NumberProperty& property, int frame)
{
    Keys& keys = property.keys;
    Key key;
    key.time = frame;
    key.value = valueAt(property, frame);
    const auto next = std::partition_point(
        keys.begin(), keys.end(), [frame](const Key& other) { return other.time < frame; });
    if (next != keys.begin()) {
        Key& previous = *(next - 1);
        if (next != keys.end()) {
            cutSegment(previous, key, *next);
        } else {
            straighten(previous);
            previous.easeOut = previous.easeIn = {};
        }
    }
    return *keys.insert(next, std::move(key));
}

// The key that the frame's value comes from. Of several at one frame that is the last.
Key& keyFor(NumberProperty& property, int frame)
{
    const auto [first, last] = keysAt(property.keys, frame);
    if (first == last) {
        return insertKey(property, frame);
    }
    std::for_each(first, last, [frame](Key& key) { key.time = frame; });
    return *(last - 1);
}

} // namespace

KeyState keyStateAt(const NumberProperty& property, int frame)
{
    if (!property.isAnimated()) {
        return KeyState::None;
    }
    const auto [first, last] = keysAt(property.keys, frame);
    return first == last ? KeyState::Animated : KeyState::KeyAtFrame;
}

void setEntryAt(NumberProperty& property, int frame, EntryChange change)
{
    if (!std::isfinite(change.value)) {
        return;
    }
    Numbers& numbers = property.isAnimated() ? keyFor(property, frame).value : property.value;
    numbers.at(change.entry) = std::clamp(change.value, -kMaxMagnitude, kMaxMagnitude);
    property.dimensions = std::max(property.dimensions, static_cast<int>(change.entry) + 1);
}

void toggleKeyAt(NumberProperty& property, int frame)
{
    Keys& keys = property.keys;
    const auto [first, last] = keysAt(keys, frame);
    if (first == last) {
        insertKey(property, frame);
        return;
    }
    std::vector<std::size_t> places(static_cast<std::size_t>(last - first));
    std::iota(places.begin(), places.end(), static_cast<std::size_t>(first - keys.begin()));
    removeKeys(property, places);
}

} // namespace studio
