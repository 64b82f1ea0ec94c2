// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/scene/placematching.h"

#include <map>
#include <utility>

namespace ui {

namespace {

/// QPointF's own comparison takes what is next to nothing for nothing.
std::pair<double, double> exact(QPointF place)
{
    return {place.x(), place.y()};
}

} // namespace

std::vector<std::optional<std::size_t>> matchedPlaces(
    const std::vector<QPointF>& shown, const std::vector<QPointF>& wanted)
{
    std::vector<std::optional<std::size_t>> matches(wanted.size());
    std::vector<bool> isTaken(shown.size());
    std::multimap<std::pair<double, double>, std::size_t> moved;
    for (std::size_t i = 0; i < shown.size(); ++i) {
        if (i < wanted.size() && exact(shown[i]) == exact(wanted[i])) {
            matches[i] = i;
            isTaken[i] = true;
        } else {
            moved.emplace(exact(shown[i]), i);
        }
    }
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        const auto there = matches[i] ? moved.end() : moved.find(exact(wanted[i]));
        if (there != moved.end()) {
            matches[i] = there->second;
            isTaken[there->second] = true;
            moved.erase(there);
        }
    }
    std::size_t next = 0;
    for (auto& match : matches) {
        while (next < shown.size() && isTaken[next]) {
            ++next;
        }
        if (!match && next < shown.size()) {
            match = next++;
        }
    }
    return matches;
}

} // namespace ui
