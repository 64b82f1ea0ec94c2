// SPDX-License-Identifier: Apache-2.0
#include "editing/PropertyDelta.h"

#include <iterator>
#include <utility>

namespace studio {

PropertyDelta::PropertyDelta(
    PropertyAddress address, const NumberProperty& before, const NumberProperty& after)
    : m_address(std::move(address))
    , m_before{before.value, before.dimensions, {}}
    , m_after{after.value, after.dimensions, {}}
{
    std::size_t i = 0;
    std::size_t j = 0;
    const auto goes = [&] { m_before.keys.push_back({i, before.keys[i]}), ++i; };
    const auto comes = [&] { m_after.keys.push_back({j, after.keys[j]}), ++j; };
    while (i < before.keys.size() && j < after.keys.size()) {
        if (before.keys[i] == after.keys[j]) {
            ++i;
            ++j;
            continue;
        }
        const double time = before.keys[i].time;
        const double newTime = after.keys[j].time;
        if (time <= newTime) {
            goes();
        }
        if (newTime <= time) {
            comes();
        }
    }
    while (i < before.keys.size()) {
        goes();
    }
    while (j < after.keys.size()) {
        comes();
    }
}

bool PropertyDelta::isEmpty() const
{
    return m_before.isSameValue(m_after) && m_before.keys.empty() && m_after.keys.empty();
}

void PropertyDelta::apply(NumberProperty& property) const
{
    exchange(property, m_before, m_after);
}

void PropertyDelta::revert(NumberProperty& property) const
{
    exchange(property, m_after, m_before);
}

void PropertyDelta::exchange(NumberProperty& property, const State& from, const State& to)
{
    property.value = to.value;
    property.dimensions = to.dimensions;
    std::vector<Keyframe<Numbers>> keys;
    keys.reserve(property.keys.size() + to.keys.size());
    auto going = from.keys.begin();
    auto coming = to.keys.begin();
    const auto takeComing = [&] {
        for (; coming != to.keys.end() && coming->place == keys.size(); ++coming) {
            keys.push_back(coming->key);
        }
    };
    for (std::size_t i = 0; i < property.keys.size(); ++i) {
        if (going != from.keys.end() && going->place == i) {
            ++going;
            continue;
        }
        takeComing();
        keys.push_back(std::move(property.keys[i]));
    }
    takeComing();
    property.keys = std::move(keys);
}

} // namespace studio
