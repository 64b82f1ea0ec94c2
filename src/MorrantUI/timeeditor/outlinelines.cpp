// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/outlinelines.h"

#include <algorithm>
#include <utility>

namespace ui {

namespace {

DopeSheetKey summed(const DopeSheetLine& line, DopeSheetKey key)
{
    key.frame = shownFrame(key);
    key.locked = key.locked || line.locked;
    return key;
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
        KeySum& sum = sums.back();
        sum.key.easing = sum.key.easing == next.key.easing ? sum.key.easing : KeyEasing::Linear;
        sum.key.locked = sum.key.locked || next.key.locked;
        sum.keys.push_back(next.keys.front());
    }
    return sums;
}

} // namespace ui
