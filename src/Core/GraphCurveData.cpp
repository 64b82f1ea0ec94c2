// SPDX-License-Identifier: Apache-2.0
#include "Core/GraphCurveData.h"

#include "Core/CubicBezier.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_set>
#include <utility>

using morrant::KeyInterpolationType;

namespace {

constexpr int kLastIndex = std::numeric_limits<int>::max();

bool isFinite(const num2<double>& pair)
{
    return std::isfinite(pair.x) && std::isfinite(pair.y);
}

bool isFinite(const GraphCurveKey& key)
{
    return isFinite(num2(key.time, key.value)) && isFinite(key.leftHandle)
           && isFinite(key.rightHandle);
}

GraphCurveKey clamped(GraphCurveKey key)
{
    key.time = std::clamp(key.time, 0.0, 1.0);
    key.value = std::clamp(key.value, 0.0, 1.0);
    return key;
}

bool isEarlier(const GraphCurveKey& left, const GraphCurveKey& right)
{
    return left.time < right.time;
}

int behind(int index)
{
    return index == kLastIndex ? 0 : index + 1;
}

// In shares of the segment's time, which keep their precision close to its start.
double segmentValue(const GraphCurveKey& from, const GraphCurveKey& to, double time)
{
    const double length = to.time - from.time;
    const double share = (time - from.time) / length;
    const auto isLinear = [](const GraphCurveKey& key) {
        return key.interpolation == KeyInterpolationType::Linear;
    };
    if (isLinear(from) && isLinear(to)) {
        return std::lerp(from.value, to.value, share);
    }
    const auto pull = [&](const GraphCurveKey& key, const num2<double>& handle) {
        const num2<double> offset = isLinear(key) ? num2<double>() : handle;
        return num2(
            std::clamp((key.time - from.time + offset.x) / length, 0.0, 1.0),
            std::clamp(key.value + offset.y, 0.0, 1.0));
    };
    const num2<double> leaving = pull(from, from.rightHandle);
    const num2<double> arriving = pull(to, to.leftHandle);
    const CubicBezier times{0.0, leaving.x, arriving.x, 1.0};
    const CubicBezier values{from.value, leaving.y, arriving.y, to.value};
    return std::clamp(values.at(times.parameterAt(share)), 0.0, 1.0);
}

} // namespace

const GraphCurveKey* GraphCurveData::find(int index) const
{
    const auto found = std::ranges::find(m_keys, index, &GraphCurveKey::index);
    return found != m_keys.end() ? &*found : nullptr;
}

GraphCurveData::Keys::iterator GraphCurveData::locate(int index)
{
    return std::ranges::find(m_keys, index, &GraphCurveKey::index);
}

int GraphCurveData::newIndex()
{
    while (find(m_nextIndex)) {
        m_nextIndex = behind(m_nextIndex);
    }
    return std::exchange(m_nextIndex, behind(m_nextIndex));
}

void GraphCurveData::setKeys(std::vector<GraphCurveKey> keys)
{
    std::erase_if(keys, [](const GraphCurveKey& key) { return !isFinite(key); });
    std::ranges::transform(keys, keys.begin(), clamped);
    std::ranges::stable_sort(keys, isEarlier);
    std::unordered_set<int> taken;
    std::vector<GraphCurveKey*> nameless;
    for (GraphCurveKey& key : keys) {
        if (key.index >= 0 && taken.insert(key.index).second) {
            m_nextIndex = std::max(m_nextIndex, behind(key.index));
        } else {
            nameless.push_back(&key);
        }
    }
    for (GraphCurveKey* const key : nameless) {
        while (!taken.insert(m_nextIndex).second) {
            m_nextIndex = behind(m_nextIndex);
        }
        key->index = std::exchange(m_nextIndex, behind(m_nextIndex));
    }
    m_keys = std::move(keys);
}

int GraphCurveData::add(double time, double value, KeyInterpolationType interpolation)
{
    GraphCurveKey key;
    key.time = time;
    key.value = value;
    key.interpolation = interpolation;
    if (!isFinite(key)) {
        return -1;
    }
    key = clamped(key);
    key.index = newIndex();
    m_keys.insert(std::ranges::upper_bound(m_keys, key, isEarlier), key);
    return key.index;
}

bool GraphCurveData::replace(const GraphCurveKey& key)
{
    const auto found = locate(key.index);
    if (found == m_keys.end() || !isFinite(key)) {
        return false;
    }
    const GraphCurveKey former = std::exchange(*found, clamped(key));
    if (found->time > former.time) {
        const auto end = std::lower_bound(found + 1, m_keys.end(), *found, isEarlier);
        std::rotate(found, found + 1, end);
    } else if (found->time < former.time) {
        const auto begin = std::upper_bound(m_keys.begin(), found, *found, isEarlier);
        std::rotate(begin, found, found + 1);
    }
    return true;
}

bool GraphCurveData::move(int index, double time, double value)
{
    const GraphCurveKey* const key = find(index);
    if (!key) {
        return false;
    }
    GraphCurveKey moved = *key;
    moved.time = time;
    moved.value = value;
    return replace(moved);
}

bool GraphCurveData::setHandles(int index, num2<double> left, num2<double> right)
{
    const auto found = locate(index);
    if (found == m_keys.end() || !isFinite(left) || !isFinite(right)) {
        return false;
    }
    found->leftHandle = left;
    found->rightHandle = right;
    return true;
}

bool GraphCurveData::setHandlesLocked(int index, bool locked)
{
    const auto found = locate(index);
    if (found == m_keys.end()) {
        return false;
    }
    found->handlesLocked = locked;
    return true;
}

bool GraphCurveData::setInterpolation(int index, KeyInterpolationType interpolation)
{
    const auto found = locate(index);
    if (found == m_keys.end()) {
        return false;
    }
    found->interpolation = interpolation;
    return true;
}

bool GraphCurveData::remove(int index)
{
    return std::erase_if(m_keys, [index](const GraphCurveKey& key) { return key.index == index; })
           > 0;
}

double GraphCurveData::evaluate(double time) const
{
    if (m_keys.empty()) {
        return 0.0;
    }
    const double clampedTime = time > 0.0 ? std::min(time, 1.0) : 0.0;
    const auto next =
        std::ranges::upper_bound(m_keys, clampedTime, std::ranges::less(), &GraphCurveKey::time);
    if (next == m_keys.begin()) {
        return next->value;
    }
    const auto& before = *std::prev(next);
    if (next == m_keys.end() || before.time == clampedTime) {
        return before.value;
    }
    return segmentValue(before, *next, clampedTime);
}
