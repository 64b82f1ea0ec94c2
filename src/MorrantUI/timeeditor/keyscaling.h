// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QGraphicsItem>
#include <QPointer>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

/// The scaling of keys in time, in the dope sheet and in the graph alike.
namespace ui {

/// Maps a value linearly from one range to another. Not finite when the range to come from is
/// empty.
constexpr double mapped(
    double value, double fromFirst, double fromLast, double toFirst, double toLast)
{
    return toFirst + (toLast - toFirst) * (value - fromFirst) / (fromLast - fromFirst);
}

/// Keys, each with its scene x when the scaling began.
template <typename Key>
using ScaledKeys = std::vector<std::pair<int, Key*>>;

/// Those that still live.
template <typename Key>
ScaledKeys<Key> living(const std::vector<std::pair<int, QPointer<Key>>>& keys)
{
    ScaledKeys<Key> alive;
    alive.reserve(keys.size());
    for (const auto& [frame, key] : keys) {
        if (key) {
            alive.emplace_back(frame, key);
        }
    }
    return alive;
}

/// A step of a scaling: one edge of the selection goes from a frame to another, the opposite end
/// stays.
struct KeyScale
{
    int from = 0; ///< the frame that was pressed
    int to = 0;
    bool right = false;   ///< which edge is dragged
    bool ripples = false; ///< what lies beyond the dragged edge goes along
};

/// Selected keys land on whole frames; a place that is not finite, as of a selection without
/// length, moves nothing. The others beyond the view's scale range on the dragged side go along, or
/// back once they have. They move by their scene x alone, whatever their parent's (deliberate).
template <typename View, typename Key>
void scaleKeys(
    View& view, const KeyScale& scale, ScaledKeys<Key> selected, const ScaledKeys<Key>& others)
{
    if (selected.empty()) {
        return;
    }
    const auto byFrame = [](const auto& a, const auto& b) { return a.first < b.first; };
    std::stable_sort(selected.begin(), selected.end(), byFrame);
    const double first = selected.front().second->scenePos().x();
    const double last = selected.back().second->scenePos().x();
    for (const auto& [frame, key] : selected) {
        const double x = std::round(
            scale.right ? mapped(frame, first, scale.from, first, scale.to)
                        : mapped(frame, scale.from, last, scale.to, last));
        const QGraphicsItem* const parent = key->parentItem();
        if (std::isfinite(x)) {
            key->setX(parent ? x - parent->x() : x);
        }
    }
    if (!scale.ripples && !view.getDoneRippleEdit()) {
        return;
    }
    view.setDoneRippleEdit(true);
    const double moved = scale.ripples ? static_cast<double>(scale.to) - scale.from : 0.0;
    const std::pair<int, int> range = view.getScaleRange();
    for (const auto& [frame, key] : others) {
        if (scale.right ? frame > range.second : frame < range.first) {
            key->setX(frame + moved);
        }
    }
}

} // namespace ui
