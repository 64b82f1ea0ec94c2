// SPDX-License-Identifier: Apache-2.0
#include "editing/keychanges.h"

#include "editing/keyediting.h"
#include "lottie/reader.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace studio {

namespace {

using Key = Keyframe<Numbers>;
using Keys = std::vector<Key>;

constexpr std::size_t kNoPlace = static_cast<std::size_t>(-1);

/// A key with both of its sides while keys change their neighbours.
struct SidedKey
{
    Key key;
    EasingHandle in;
    Numbers wayIn{};
    std::size_t place = kNoPlace; ///< in the list it was taken from
    std::size_t change = kNoPlace;
    double from = 0;        ///< frame where it was
    bool arrives = false;   ///< takes the place of what is at its frame
    bool leavesNew = false; ///< its sides were set
    bool entersNew = false;
};

std::vector<SidedKey> takeApart(const Keys& keys)
{
    std::vector<SidedKey> sided(keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        sided[i].key = keys[i];
        sided[i].place = i;
        sided[i].from = keys[i].time;
        if (i > 0) {
            sided[i].in = keys[i - 1].easeIn;
            sided[i].wayIn = keys[i - 1].spatialIn;
        }
    }
    return sided;
}

void leaveEvenly(Key& key)
{
    key.easeOut = key.easeIn = {};
    key.spatialOut = key.spatialIn = {};
    key.hasSpatial = false;
}

EasingHandle handleAt(double corner)
{
    EasingHandle handle;
    handle.x.fill(corner);
    handle.y.fill(corner);
    handle.count = 1;
    return handle;
}

/// Makes a segment of what leaves one key and enters the next. A side without a handle beside one
/// that has one is a handle of no length: files have both or none.
void join(Key& key, const SidedKey& next)
{
    key.easeIn = next.in;
    key.spatialIn = next.wayIn;
    key.hasSpatial = key.spatialOut != Numbers{} || key.spatialIn != Numbers{};
    if (key.easeOut.count == 0 && key.easeIn.count != 0) {
        key.easeOut = handleAt(0);
    } else if (key.easeIn.count == 0 && key.easeOut.count != 0) {
        key.easeIn = handleAt(1);
    }
}

/// @param count of the list that the keys were taken from
Keys putTogether(const std::vector<SidedKey>& sided, std::size_t count)
{
    Keys keys;
    keys.reserve(sided.size());
    for (std::size_t i = 0; i < sided.size(); ++i) {
        const SidedKey& from = sided[i];
        Key& key = keys.emplace_back(from.key);
        const bool wasLast = from.place != kNoPlace && from.place + 1 == count;
        if (i + 1 == sided.size()) {
            if (!wasLast || from.leavesNew) {
                leaveEvenly(key);
            }
            continue;
        }
        const SidedKey& next = sided[i + 1];
        const bool wereNeighbors = from.place != kNoPlace && from.place + 1 == next.place;
        if (wereNeighbors && !from.leavesNew && !next.entersNew) {
            continue; // as the file has it
        }
        if (wasLast && !from.leavesNew) {
            leaveEvenly(key);
        }
        join(key, next);
    }
    return keys;
}

/// The nearest keys come first: in a crowd that is told at once.
bool isDisplaced(const std::vector<SidedKey>& keys, std::size_t at)
{
    const SidedKey& one = keys[at];
    const auto isNear = [&one](const SidedKey& other) {
        return std::abs(other.key.time - one.key.time) <= kSameFrame;
    };
    const auto displaces = [&one](const SidedKey& other) {
        return other.arrives && (!one.arrives || other.from > one.from);
    };
    for (std::size_t i = at + 1; i < keys.size() && isNear(keys[i]); ++i) {
        if (displaces(keys[i])) {
            return true;
        }
    }
    for (std::size_t i = at; i-- > 0 && isNear(keys[i]);) {
        if (displaces(keys[i])) {
            return true;
        }
    }
    return false;
}

/// Brings keys into order and drops those whose place others have taken.
std::vector<SidedKey> settle(std::vector<SidedKey> keys)
{
    std::stable_sort(keys.begin(), keys.end(), [](const SidedKey& a, const SidedKey& b) {
        return a.key.time < b.key.time;
    });
    std::vector<SidedKey> left;
    left.reserve(keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (!isDisplaced(keys, i)) {
            left.push_back(keys[i]);
        }
    }
    return left;
}

bool isFinite(const Numbers& numbers)
{
    return std::all_of(numbers.begin(), numbers.end(), [](double n) { return std::isfinite(n); });
}

bool isFinite(const EasingHandle& handle)
{
    return isFinite(handle.x) && isFinite(handle.y);
}

/// As the file can say it.
Numbers within(Numbers numbers, int dimensions)
{
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const bool isUsed = static_cast<int>(i) < dimensions;
        numbers[i] = isUsed ? std::clamp(numbers[i], -kMaxMagnitude, kMaxMagnitude) : 0;
    }
    return numbers;
}

EasingHandle within(EasingHandle handle)
{
    const int most = static_cast<int>(handle.x.size());
    handle.count = std::clamp(handle.count, 0, most);
    if (handle.count == 0) {
        return {};
    }
    handle.y = within(handle.y, most);
    for (std::size_t i = 0; i < handle.x.size(); ++i) {
        const bool isOwn = static_cast<int>(i) < handle.count;
        handle.x[i] = std::clamp(handle.x[isOwn ? i : 0], 0.0, 1.0);
        handle.y[i] = handle.y[isOwn ? i : 0];
    }
    return handle;
}

void apply(const KeyChange& change, SidedKey& key, int dimensions)
{
    if (change.time && std::isfinite(*change.time) && *change.time != key.from) {
        key.key.time = std::clamp(*change.time, -kMaxFrame, kMaxFrame);
        key.arrives = true;
    }
    if (change.value && isFinite(*change.value)) {
        key.key.value = within(*change.value, dimensions);
    }
    key.key.hold = change.hold.value_or(key.key.hold);
    if (change.easeOut && isFinite(*change.easeOut)) {
        key.key.easeOut = within(*change.easeOut);
        key.leavesNew = true;
    }
    if (change.easeIn && isFinite(*change.easeIn)) {
        key.in = within(*change.easeIn);
        key.entersNew = true;
    }
}

/// An edit's own key has no place in the file.
void forgetSpans(Key& key)
{
    key.span = key.timeSpan = key.valueSpan = key.endSpan = {};
    key.holdSpan = key.easeOutSpan = key.easeInSpan = {};
}

} // namespace

std::vector<std::optional<std::size_t>> changeKeys(
    NumberProperty& property, const std::vector<KeyChange>& changes)
{
    const std::size_t count = property.keys.size();
    std::vector<SidedKey> sided = takeApart(property.keys);
    for (std::size_t i = 0; i < changes.size(); ++i) {
        const KeyChange& change = changes[i];
        if (change.key >= count) {
            continue;
        }
        SidedKey changed = sided[change.key];
        changed.change = i;
        apply(change, changed, property.dimensions);
        if (!change.asCopy) {
            sided[change.key] = std::move(changed);
        } else if (changed.arrives) { // at its own frame a copy would only hide the key
            changed.place = kNoPlace;
            forgetSpans(changed.key);
            sided.push_back(std::move(changed));
        }
    }
    sided = settle(std::move(sided));
    std::vector<std::optional<std::size_t>> places(changes.size());
    for (std::size_t i = 0; i < sided.size(); ++i) {
        if (sided[i].change != kNoPlace) {
            places[sided[i].change] = i;
        }
    }
    property.keys = putTogether(sided, count);
    return places;
}

void removeKeys(NumberProperty& property, const std::vector<std::size_t>& places)
{
    std::vector<SidedKey> sided = takeApart(property.keys);
    for (const std::size_t place : places) {
        if (place < sided.size()) {
            sided[place].place = kNoPlace;
        }
    }
    if (sided.empty()) {
        return;
    }
    const Numbers last = sided.back().key.value;
    const auto isRemoved = [](const SidedKey& key) { return key.place == kNoPlace; };
    sided.erase(std::remove_if(sided.begin(), sided.end(), isRemoved), sided.end());
    if (sided.empty()) {
        property.value = last;
    }
    property.keys = putTogether(sided, property.keys.size());
}

LooseKey looseKey(const NumberProperty& property, std::size_t place)
{
    const Key& key = property.keys.at(place);
    const Key* before = place > 0 ? &property.keys[place - 1] : nullptr;
    return {
        key.time,
        key.value,
        key.hold,
        key.easeOut,
        before ? before->easeIn : EasingHandle(),
        key.spatialOut,
        before ? before->spatialIn : Numbers()};
}

std::vector<std::size_t> insertKeys(NumberProperty& property, const std::vector<LooseKey>& keys)
{
    const std::size_t count = property.keys.size();
    std::vector<SidedKey> sided = takeApart(property.keys);
    for (const LooseKey& loose : keys) {
        SidedKey& added = sided.emplace_back();
        added.key.time = loose.time;
        added.key.value = loose.value;
        added.key.hold = loose.hold;
        added.key.easeOut = loose.easeOut;
        added.key.spatialOut = loose.spatialOut;
        added.in = loose.easeIn;
        added.wayIn = loose.spatialIn;
        added.from = loose.time;
        added.arrives = true;
    }
    sided = settle(std::move(sided));
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < sided.size(); ++i) {
        if (sided[i].place == kNoPlace) {
            places.push_back(i);
        }
    }
    property.keys = putTogether(sided, count);
    return places;
}

} // namespace studio
