// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/outlinelines.h"

#include "MorrantUI/scene/placematching.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

namespace ui {

namespace {

DopeSheetKey summed(const DopeSheetLine& line, DopeSheetKey key)
{
    key.frame = shownFrame(key);
    key.locked = key.locked || line.locked;
    return key;
}

void add(KeySum& sum, const KeySum& next)
{
    sum.key.frame = std::min(sum.key.frame, next.key.frame);
    sum.key.easing = sum.key.easing == next.key.easing ? sum.key.easing : KeyEasing::Linear;
    sum.key.locked = sum.key.locked || next.key.locked;
    sum.keys.push_back(next.keys.front());
}

/// What each key of the lines [first, last) goes on from: null and 0 for one that is new.
template <typename Visit>
void visitAgain(
    const KeyTraces& traces,
    const DopeSheetLines& lines,
    std::size_t first,
    std::size_t last,
    const Visit& visit)
{
    for (std::size_t line = first; line < last; ++line) {
        const auto known = traces.constFind(lines[line].id);
        const KeyTrace* const trace = known != traces.cend() ? &*known : nullptr;
        std::vector<QPointF> wanted;
        for (const DopeSheetKey& key : lines[line].keys) {
            wanted.emplace_back(shownFrame(key), 0.0);
        }
        const auto matches = matchedPlaces(trace ? trace->places : std::vector<QPointF>(), wanted);
        for (std::size_t key = 0; key < matches.size(); ++key) {
            visit(
                DopeSheetPlace{line, key},
                matches[key] ? trace : nullptr,
                matches[key].value_or(0));
        }
    }
}

} // namespace

std::size_t groupEnd(const DopeSheetLines& lines, std::size_t line)
{
    const int depth = lines.at(line).label.depth;
    std::size_t end = line + 1;
    while (end < lines.size() && lines[end].label.depth > depth) {
        ++end;
    }
    return end;
}

bool isGroup(const DopeSheetLines& lines, std::size_t line)
{
    return line + 1 < lines.size() && lines[line + 1].label.depth > lines[line].label.depth;
}

bool isFolded(const DopeSheetLines& lines, const QSet<QString>& folded, std::size_t line)
{
    return isGroup(lines, line) && folded.contains(lines[line].id);
}

std::vector<std::size_t> seenLines(const DopeSheetLines& lines, const QSet<QString>& folded)
{
    std::vector<std::size_t> seen;
    for (std::size_t line = 0; line < lines.size();) {
        seen.push_back(line);
        line = isFolded(lines, folded, line) ? groupEnd(lines, line) : line + 1;
    }
    return seen;
}

std::vector<QString> idsAround(const DopeSheetLines& lines, std::size_t line)
{
    std::vector<QString> ids{lines.at(line).id};
    int depth = lines[line].label.depth;
    while (line-- > 0) {
        if (lines[line].label.depth < depth) {
            depth = lines[line].label.depth;
            ids.push_back(lines[line].id);
        }
    }
    return ids;
}

std::vector<KeySum> keySums(const DopeSheetLines& lines, std::size_t first, std::size_t last)
{
    std::vector<KeySum> all;
    for (std::size_t line = first; line < last; ++line) {
        for (std::size_t i = 0; i < lines[line].keys.size(); ++i) {
            all.push_back({summed(lines[line], lines[line].keys[i]), {{line, i}}});
        }
    }
    std::stable_sort(all.begin(), all.end(), [](const KeySum& one, const KeySum& other) {
        return one.key.frame < other.key.frame;
    });
    std::vector<KeySum> sums;
    for (KeySum& next : all) {
        if (sums.empty() || !(next.key.frame - sums.back().key.frame <= kSameFrame)) {
            sums.push_back(std::move(next));
            continue;
        }
        add(sums.back(), next);
    }
    return sums;
}

std::vector<DopeSheetKey> keysOf(const std::vector<KeySum>& sums)
{
    std::vector<DopeSheetKey> keys;
    keys.reserve(sums.size());
    for (const KeySum& sum : sums) {
        keys.push_back(sum.key);
    }
    return keys;
}

void trace(
    KeyTraces& traces,
    const DopeSheetLine& line,
    std::size_t key,
    double frame,
    bool selected,
    std::size_t mark)
{
    KeyTrace& trace = traces[line.id];
    for (std::size_t i = trace.places.size(); i < std::max(line.keys.size(), key + 1); ++i) {
        trace.places.emplace_back(shownFrame(line.keys[i]), 0.0); // ids may be shared
        trace.selected.push_back(false);
        trace.marks.push_back(0);
    }
    trace.places[key].setX(frame);
    trace.selected[key] = selected;
    trace.marks[key] = mark;
}

std::vector<DopeSheetPlace> selectedAgain(
    const KeyTraces& traces, const DopeSheetLines& lines, std::size_t first, std::size_t last)
{
    std::vector<DopeSheetPlace> places;
    visitAgain(
        traces,
        lines,
        first,
        last,
        [&](DopeSheetPlace place, const KeyTrace* from, std::size_t key) {
            if (from && from->selected[key]) {
                places.push_back(place);
            }
        });
    return places;
}

std::vector<KeySum> keptSums(
    const KeyTraces& traces, const DopeSheetLines& lines, std::size_t first, std::size_t last)
{
    std::map<std::size_t, KeySum> kept;
    std::vector<KeySum> added;
    visitAgain(
        traces,
        lines,
        first,
        last,
        [&](DopeSheetPlace place, const KeyTrace* from, std::size_t key) {
            KeySum next{summed(lines[place.line], lines[place.line].keys[place.key]), {place}};
            if (!from) {
                added.push_back(std::move(next));
            } else if (const auto [sum, isNew] = kept.try_emplace(from->marks[key], next); !isNew) {
                add(sum->second, next);
            }
        });
    std::vector<KeySum> sums;
    for (auto& [mark, sum] : kept) {
        sums.push_back(std::move(sum));
    }
    std::move(added.begin(), added.end(), std::back_inserter(sums));
    return sums;
}

} // namespace ui
