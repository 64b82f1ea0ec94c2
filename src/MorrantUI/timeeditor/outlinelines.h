// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/timeeditor/dopesheetlines.h>

#include <QHash>
#include <QPointF>
#include <QSet>

#include <cmath>

/// Which lines of an outline are seen, and which keys a folded group shows.
namespace ui {

inline constexpr double kSameFrame = 0.01; ///< frames, within which keys are at one

using DopeSheetLines = std::vector<DopeSheetLine>;

/// What is not finite is shown at 0.
inline double shownFrame(const DopeSheetKey& key)
{
    return std::isfinite(key.frame) ? key.frame : 0.0;
}

/// The line behind the last one of a line's group: the next one where it has none.
std::size_t groupEnd(const DopeSheetLines& lines, std::size_t line);
bool isGroup(const DopeSheetLines& lines, std::size_t line);
bool isFolded(const DopeSheetLines& lines, const QSet<QString>& folded, std::size_t line);
/// The lines that no folded group hides.
std::vector<std::size_t> seenLines(const DopeSheetLines& lines, const QSet<QString>& folded);
/// A line and the groups that it is in, from the inside.
std::vector<QString> idsAround(const DopeSheetLines& lines, std::size_t line);

/// A mark and the keys that it stands for.
struct KeySum
{
    DopeSheetKey key;
    std::vector<DopeSheetPlace> keys;
};

/// As they are shown.
std::vector<DopeSheetKey> keysOf(const std::vector<KeySum>& sums);

/// All keys of the lines [first, last), those within kSameFrame together, upwards. One
/// is locked where a key or its line is; keys that differ in easing are shown as linear.
std::vector<KeySum> keySums(const DopeSheetLines& lines, std::size_t first, std::size_t last);

/// The keys of a line as they are shown, by which they are found again among those of a later one.
struct KeyTrace
{
    std::vector<QPointF> places; ///< x is the frame
    std::vector<bool> selected;
    std::vector<std::size_t> marks; ///< the place of each key's mark in its row
};
using KeyTraces = QHash<QString, KeyTrace>; ///< by the ids of lines

/// @param frame where it is shown
void trace(
    KeyTraces& traces,
    const DopeSheetLine& line,
    std::size_t key,
    double frame,
    bool selected,
    std::size_t mark);
/// The keys of the lines [first, last) that go on from selected ones.
std::vector<DopeSheetPlace> selectedAgain(
    const KeyTraces& traces, const DopeSheetLines& lines, std::size_t first, std::size_t last);
/// The sums of these lines by the marks that the keys had, wherever they are now, and behind those
/// one for each key that had none.
std::vector<KeySum> keptSums(
    const KeyTraces& traces, const DopeSheetLines& lines, std::size_t first, std::size_t last);

} // namespace ui
