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

std::vector<DopeSheetKey> keysOf(const Document& document, const KeyRow& row)
{
    std::vector<DopeSheetKey> keys;
    const NumberProperty* property = row.address ? findProperty(document, *row.address) : nullptr;
    for (std::size_t i = 0; i < row.times.size(); ++i) {
        keys.push_back({row.times[i], property ? easingOf(property->keys[i]) : KeyEasing::Linear});
    }
    return keys;
}

/// A property's, which is the same as long as the layer has it.
QString idOf(const QString& layer, const KeyRow& row, std::size_t place)
{
    if (!row.address) {
        return u"%1 %2"_qs.arg(layer).arg(place);
    }
    QString id = u"%1/%2"_qs.arg(layer).arg(static_cast<int>(row.address->attribute));
    for (const std::size_t item : row.address->item) {
        id += u'/' + QString::number(item);
    }
    return id;
}

} // namespace

std::vector<DopeRow> dopeRows(const Document& document, int layer)
{
    const Layer* found = findLayer(document, layer);
    if (!found) {
        return {};
    }
    DopeRow own{layer, true};
    own.line.id = QString::number(found->span.begin);
    own.line.label.text = found->name;
    own.line.label.dimmed = found->hidden || found->locked;
    own.line.locked = found->locked;
    own.line.clip = clipFrames(clipOf(*found));
    std::vector<DopeRow> rows{own};
    for (const KeyRow& property : keyRowsOf(document, layer)) {
        DopeRow row{layer, false, property.address, own.line};
        row.line.id = idOf(own.line.id, property, rows.size());
        row.line.clip.reset();
        row.line.label.text = property.name;
        row.line.label.depth = 1;
        row.line.locked = found->locked || !property.address;
        row.line.label.dimmed = found->hidden || row.line.locked;
        row.line.keys = keysOf(document, property);
        rows.push_back(std::move(row));
    }
    return rows;
}

QSet<QString> firstFolded(const std::vector<DopeRow>& rows)
{
    QSet<QString> layers;
    for (const DopeRow& row : rows) {
        if (row.isLayer && rows.size() > kUnfoldedRows) {
            layers.insert(row.line.id);
        }
    }
    return layers;
}

DopeSheetClip clipFrames(const ClipTimes& times)
{
    const auto frame = [](double time) {
        return static_cast<int>(std::lround(std::clamp(time, -kMaxFrame, kMaxFrame)));
    };
    return {frame(times.inPoint), std::max(frame(times.inPoint) + 1, frame(times.outPoint)), 0};
}

ClipTimes editedTimes(const ClipTimes& times, const DopeSheetClip& from, const DopeSheetClip& to)
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
