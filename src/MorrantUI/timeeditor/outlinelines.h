// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/timeeditor/dopesheetlines.h>

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

/// All keys of the lines [first, last), those within kSameFrame together, upwards. One
/// is locked where a key or its line is; keys that differ in easing are shown as linear.
std::vector<KeySum> keySums(const DopeSheetLines& lines, std::size_t first, std::size_t last);

} // namespace ui
