// SPDX-License-Identifier: Apache-2.0
#include "timeline/doperows.h"

#include "editing/keyrows.h"
#include "lottie/reader.h"
#include <MorrantUI/timeline/playback.h>

#include <algorithm>
#include <cmath>

namespace studio {

namespace {

constexpr std::size_t kUnfoldedRows = 24; ///< that a document may have to be opened unfolded

KeyEasing easingOf(const Keyframe<Numbers>& key)
{
    if (key.hold) {
        return KeyEasing::Hold;
    }
    return key.easeOut.count > 0 && key.easeIn.count > 0 ? KeyEasing::Bezier : KeyEasing::Linear;
}

std::vector<DopeKey> keysOf(const Document& document, const KeyRow& row)
{
    std::vector<DopeKey> keys;
    const NumberProperty* property = row.address ? findProperty(document, *row.address) : nullptr;
    for (std::size_t i = 0; i < row.times.size(); ++i) {
        DopeKey key{row.times[i], KeyEasing::Linear, {}};
        if (property) {
            key.easing = easingOf(property->keys[i]);
            key.keys = {{*row.address, i}};
        }
        keys.push_back(std::move(key));
    }
    return keys;
}

/// All keys of some rows, one mark a frame. It can be moved when all that it stands for can.
std::vector<DopeKey> summaryOf(const Document& document, const std::vector<KeyRow>& rows)
{
    std::vector<DopeKey> all;
    for (const KeyRow& row : rows) {
        const auto keys = keysOf(document, row);
        all.insert(all.end(), keys.begin(), keys.end());
    }
    std::stable_sort(
        all.begin(), all.end(), [](const DopeKey& a, const DopeKey& b) { return a.time < b.time; });
    std::vector<DopeKey> marks;
    for (const DopeKey& key : all) {
        if (marks.empty() || key.time - marks.back().time > kSameFrame) {
            marks.push_back(key);
            continue;
        }
        DopeKey& mark = marks.back();
        const bool isOpen = !mark.keys.empty() && !key.keys.empty();
        mark.easing = mark.easing == key.easing ? mark.easing : KeyEasing::Linear;
        mark.keys.insert(mark.keys.end(), key.keys.begin(), key.keys.end());
        if (!isOpen) {
            mark.keys.clear();
        }
    }
    return marks;
}

} // namespace

bool DopeRow::isSameAs(const DopeRow& other) const
{
    const auto place = [](const DopeRow& row) {
        return row.address ? std::optional(std::pair(row.address->attribute, row.address->item))
                           : std::nullopt;
    };
    return id == other.id && isLayer == other.isLayer && place(*this) == place(other);
}

std::vector<DopeRow> dopeRows(const Document& document, int layer, const FoldedLayers& folded)
{
    const Layer* found = findLayer(document, layer);
    if (!found) {
        return {};
    }
    const auto properties = keyRowsOf(document, layer);
    DopeRow own{layer, found->span.begin, found->name};
    own.isLayer = true;
    own.isOpen = !found->locked;
    own.foldable = !properties.empty();
    own.folded = own.foldable && folded.count(own.id) > 0;
    if (own.folded) {
        own.keys = summaryOf(document, properties);
        return {std::move(own)};
    }
    std::vector<DopeRow> rows{std::move(own)};
    for (const KeyRow& property : properties) {
        DopeRow row{layer, found->span.begin, property.name};
        row.address = property.address;
        row.isOpen = property.address && !found->locked;
        row.keys = keysOf(document, property);
        rows.push_back(std::move(row));
    }
    return rows;
}

FoldedLayers firstFolded(const Document& document)
{
    FoldedLayers layers;
    std::size_t rows = 0;
    for (int i = 0; i < static_cast<int>(document.main.layers.size()); ++i) {
        rows += 1 + keyRowsOf(document, i).size();
        layers.insert(findLayer(document, i)->span.begin);
    }
    return rows > kUnfoldedRows ? layers : FoldedLayers();
}

std::vector<bool> selectionAfter(
    const std::vector<double>& before,
    const std::vector<bool>& selected,
    const std::vector<double>& after)
{
    const auto has = [](const std::vector<double>& times, double time) {
        return std::binary_search(times.begin(), times.end(), time);
    };
    std::vector<double> kept;
    std::size_t gone = 0;
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (selected[i] && has(after, before[i])) {
            kept.push_back(before[i]);
        } else if (selected[i]) {
            ++gone;
        }
    }
    std::vector<bool> result;
    std::size_t come = 0;
    for (const double time : after) {
        come += has(before, time) ? 0 : 1;
        result.push_back(has(kept, time));
    }
    for (std::size_t i = 0; gone == come && i < after.size(); ++i) {
        result[i] = result[i] || !has(before, after[i]);
    }
    return result;
}

ClipFrames clipFrames(const ClipTimes& times)
{
    const auto frame = [](double time) {
        return static_cast<int>(std::lround(std::clamp(time, -kMaxFrame, kMaxFrame)));
    };
    return {frame(times.inPoint), std::max(frame(times.inPoint) + 1, frame(times.outPoint)), 0};
}

ClipTimes editedTimes(const ClipTimes& times, const ClipFrames& from, const ClipFrames& to)
{
    const int start = to.start - from.start;
    const int end = to.end - from.end;
    const int moved = start == end ? start : 0; // else it was trimmed
    return {
        times.inPoint + start, times.outPoint + end, times.startTime + moved + to.slip - from.slip};
}

std::pair<int, int> sheetRange(const Document& document)
{
    const auto range = ui::wholeFrames(document.inPoint, document.outPoint);
    const double count = ui::frameSpan(range) + 1.0;
    double first = range.first;
    double last = range.second + 1.0; // where clips of the whole document end
    for (int i = 0; i < static_cast<int>(document.main.layers.size()); ++i) {
        for (const KeyRow& row : keyRowsOf(document, i)) {
            if (!row.times.empty()) {
                first = std::min(first, row.times.front());
                last = std::max(last, row.times.back());
            }
        }
    }
    first = std::max(first, range.first - count);
    last = std::min(last, range.second + 1.0 + count);
    return {static_cast<int>(std::floor(first)), static_cast<int>(std::ceil(last))};
}

} // namespace studio
