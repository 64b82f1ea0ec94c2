// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "editing/DocumentEditor.h"
#include <MorrantUI/timeeditor/DopeSheetOutline.h>

#include <optional>
#include <utility>
#include <vector>

/// What of a document the dope sheet shows, as plain values.
namespace studio {

/// A layer, or one of its animated properties below it.
struct DopeRow
{
    int layer = -1; ///< place in the main composition; -1 for what belongs to none
    bool isLayer = false;
    std::optional<PropertyAddress> address = {}; ///< none: no property, or one that is never edited
    DopeSheetLine line = {};                     ///< its keys as the property has them
};

/// The rows of a layer from top to bottom, the layer's own first; none where there is no layer.
/// Their ids stay theirs wherever the layer moves.
std::vector<DopeRow> dopeRows(const Document& document, int layer);

/// The layers that are folded when these rows are first shown: none of few rows, else all.
QSet<QString> firstFolded(const std::vector<DopeRow>& rows);

/// A layer's times as whole frames on the sheet.
DopeSheetClip clipFrames(const ClipTimes& times);

/// Times after an edit of the frames, which keeps what they have between frames. What a clip shows
/// moves with it.
ClipTimes editedTimes(const ClipTimes& times, const DopeSheetClip& from, const DopeSheetClip& to);

/// The frames that the sheet reaches over: the document's, and farther where there are keys, by no
/// more than the document's length on either side.
std::pair<int, int> sheetRange(const Document& document);

} // namespace studio
